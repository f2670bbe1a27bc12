#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "frame/FileObject.h"
#include "records/ContactItem.h"

/// SSY, a contact format that is read and never written. A header of 54 bytes:
///
///     offset  bytes
///          0     40  version, text that ends in a zero; it is only logged
///         40     10  date, the same
///         50      4  signed: how many bytes follow the header
///
/// Then contacts, each a text in the thread's code page of at most 2047 bytes that ends in a zero byte: given name,
/// family name, two items that are dropped and the fourth name, each ended by a comma; pairs of a number and a value,
/// all parted by commas, ended by a colon; email and web address. Outside the pairs "&44" is a comma and "&45" a colon.
class CSSYFile : public CFileObject {
 public:
    CSSYFile();
    ~CSSYFile() override;

    using CFileObject::Read;
    using CFileObject::Write;
    void Close() override;
    std::int32_t ReadFileHeader() override;

    /// VERIFY_WRONG_SIZE where the header's size isn't that of the rest of the file. Reading doesn't look at it.
    std::int32_t Verify() override;
    std::int32_t Read(void** record) override;
    std::int32_t WriteFileHeader() override { return 0; }
    std::int32_t Write(const void*) override { return 0; }

    /// The text of one record. 0, and the text as it was, where the file ends before the record's zero byte and for a
    /// record over the limit, of which 2048 bytes are then gone.
    std::int32_t ReadString(std::u16string* text) override;

 private:
    static constexpr std::size_t kHeaderSize = 54;

    std::u16string HeaderText(std::size_t offset, std::size_t width);
    std::int32_t SizeOfRecords() const;
    void ParseRecord(std::u16string_view text);

    std::array<char, kHeaderSize> header_{};
    CContactItem contact_;
    std::string recordBytes_;  // of the record that ReadString read last: kept for its memory
};
