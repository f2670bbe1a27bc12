#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/DateValue.h"
#include "records/LayoutVersion.h"
#include "records/ValueTables.h"

/// One email. Host and library share it by its layout.
///
/// `account`, and each subfolder of a CEmailBox, is a run of XML elements with text only and no element around them, in
/// the form "<name>text</name>". The names are the host's.
class CEmailItem {
 public:
    CEmailItem() = default;
    CEmailItem(const CEmailItem& other) : CEmailItem() { *this = other; }
    CEmailItem& operator=(const CEmailItem& other);  ///< a deep copy of all but the version
    virtual ~CEmailItem() { FreeRawData(); }

    /// Sets everything but the version to its value in a new email. rawData is freed only where rawSize is above 0.
    void Reset();

    orvale::LayoutVersion<100> version;
    std::int32_t reserved1 = -1;  ///< the host's, as are reserved2 and rawData: no format stores them
    std::int32_t operation = 0;   ///< OPERATION_ flags, for the log alone
    std::int32_t type = 0;        ///< of the box that holds the message: EMAILBOX_
    std::u16string box;           ///< the name of that box
    std::int32_t index = -1;      ///< place on the phone, for the log alone
    std::int32_t device = 0;      ///< where the message lies: DEVL_
    std::int32_t status = 0;      ///< EMAIL_READ and the other flags of kEmailStatus
    std::u16string account;       ///< a run of XML elements
    std::u16string folder;        ///< name of the subfolder
    std::u16string from;
    std::u16string to;
    std::u16string cc;
    std::u16string bcc;
    std::u16string subject;
    std::u16string body;
    DateValue received;
    DateValue sent;
    std::vector<std::u16string> accessory;  ///< a text for each attachment; attached data is stored nowhere
    std::int32_t importance = 0;            ///< EMAIL_IMPORTANCE_
    std::int32_t symbol = 0;                ///< EMAIL_SYMBOL_
    std::int32_t sensitivity = 0;           ///< EMAIL_SENSITIVTY_
    std::int32_t rawSize = 0;               ///< bytes in `rawData`
    std::uint8_t* rawData = nullptr;        ///< from new[]; the email's own where rawSize is above 0
    std::u16string entryid;
    std::int32_t reserved2 = 0;

 private:
    void CopyValues(const CEmailItem& other);
    void FreeRawData();
};

/// One memory of a phone for emails.
class CEmailDevice {
 public:
    orvale::LayoutVersion<100> version;
    std::u16string name;
    std::int32_t id = 0;  ///< DEVL_
    std::int32_t capacity = 0;
    std::int32_t config = 0;  ///< not in use: 0
};

/// One box of an account.
class CEmailBox {
 public:
    orvale::LayoutVersion<100> version;
    std::int32_t type = 0;  ///< EMAILBOX_
    std::u16string name;
    std::int32_t capacity = 0;
    std::int32_t config = 0;                 ///< EMBX_
    std::vector<std::u16string> subfolders;  ///< each a run of XML elements
};

/// One email account of a phone.
class CEmailAccount {
 public:
    CEmailAccount() = default;
    /// A deep copy of all but the version; a null box is left out.
    CEmailAccount(const CEmailAccount& other);
    CEmailAccount& operator=(const CEmailAccount& other);

    orvale::LayoutVersion<100> version;
    std::int32_t id = 0;  ///< EMAILACCOUNT_
    std::u16string name;
    std::u16string password;  ///< as the host gives it
    std::u16string Address;
    std::int32_t config = 0;  ///< not in use: 0
    std::int32_t capacity = 0;
    std::vector<std::unique_ptr<CEmailBox>> boxes;  ///< entries may be null
};

/// What a phone holds of emails.
class CEmailProfile {
 public:
    /// Sets everything but the version to its value in a new profile, handset and dllname too.
    void Reset();

    /// Makes this a deep copy of another profile: dllname gets its ".dll" (see DriverName), null entries are left out,
    /// versions aren't copied.
    void CopyFrom(const CEmailProfile& other);

    orvale::LayoutVersion<100> version;
    std::u16string handset;
    std::u16string dllname;                                ///< name of the phone's driver module
    std::int32_t config = 0;                               ///< EMMD_
    std::int32_t capacity = 0;                             ///< of the phone
    std::vector<std::unique_ptr<CEmailDevice>> devices;    ///< entries may be null
    std::vector<std::unique_ptr<CEmailAccount>> accounts;  ///< entries may be null
};
