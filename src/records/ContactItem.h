#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/DateValue.h"
#include "platform/HashMap.h"
#include "records/ContactFieldTypes.h"

/// One typed value of a contact. Host and library share it by its layout. What no format reads is carried for the host.
class CContactField {
 public:
    CContactField() = default;
    CContactField(const CContactField& other) : CContactField() { *this = other; }
    /// Copies all but the version; the groups are entered anew in the source's order of iteration.
    CContactField& operator=(const CContactField& other);
    virtual ~CContactField() = default;

    /// Sets everything but the version to its value in a new field.
    void Clear();

    /// Enters a group, or gives one that is there a new name.
    void SetGroup(std::int32_t key, std::u16string name) { groups.Set(key, std::move(name)); }

    std::int32_t version = 100;
    std::int32_t reservedFlags = 0;
    std::int32_t Type = 0;  ///< a type id of ContactFieldTypes.h, or any other number
    std::u16string Data;    ///< the value
    std::int32_t attributes[3] = {-1, -1, -1};
    std::u16string firstText;
    std::int32_t firstNumber = -1;
    std::u16string secondText;
    std::uint32_t extraNumber = 0;  ///< stored by the native file alone
    std::u16string extraText;       ///< stored by the native file alone
    /// The contact's groups, id and name; carried by the field that GetNameField finds.
    orvale::HashMap<std::u16string> groups;
    std::u16string thirdText;
    std::int32_t secondNumber = -1;
};

/// One contact: an ordered list of typed values. Host and library share it by its layout.
class CContactItem {
 public:
    CContactItem() { Clear(); }
    CContactItem(const CContactItem& other) : CContactItem() { *this = other; }
    /// A deep copy of all but the version. A null entry of the list is copied as one.
    CContactItem& operator=(const CContactItem& other);
    virtual ~CContactItem() { FreeBlob(); }

    /// Sets everything but the version to its value in a new contact, and both dates to the present local time. The
    /// blob is freed only where its size is above 0.
    void Clear(const DateValue& now = DateValue::Now());

    /// Appends a copy of a field. 1, or 0 where there was no memory for it.
    std::int32_t AddField(const CContactField& field);

    std::size_t FieldCount() const { return fields.size(); }

    /// The field at an index, which may be null in a list that the host built. Throws std::out_of_range beyond the end.
    CContactField* Field(std::size_t index) const { return fields.at(index).get(); }

    /// The first field of a type at or behind an index (a negative one counts as 0); the index then stands behind the
    /// field, so that repeated calls walk all fields of the type. Null, and the index unchanged, if there is none.
    const CContactField* FindField(std::int32_t type, std::int32_t& index) const;

    /// The first field of the given name; else of the family, the middle, the full name; else null.
    const CContactField* GetNameField() const;

    std::int32_t version = 100;
    std::int32_t reservedFlags = 0;
    std::int32_t Index = -1;  ///< shown in the log alone
    std::int32_t reservedNumber1 = -1;
    std::int32_t MemoryLocation = -1;  ///< shown in the log alone
    std::int32_t reservedNumber2 = 0;
    std::int32_t Storage = 0;  ///< the memory that holds the contact: the id of a phonebook profile's device
    std::vector<std::unique_ptr<CContactField>> fields;  ///< in order of adding; entries may be null
    std::int32_t blobSize = 0;                           ///< bytes in `blob`
    std::uint8_t* blob = nullptr;                        ///< from new[]; the contact's own where blobSize is above 0
    std::int32_t reservedNumber3 = 0;
    std::u16string firstText;
    std::u16string secondText;
    DateValue firstDate;
    DateValue secondDate;

 private:
    void FreeBlob();
};
