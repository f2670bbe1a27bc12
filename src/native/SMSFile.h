#pragma once

#include "frame/FileObject.h"
#include "native/NativeHeader.h"
#include "records/SMSItem.h"

/// The native SMS file: a header of 14 bytes with the flag "<QZ-SMS>" and the version 101 but no date, then messages up
/// to the end of the file, with no count and no index (see VisitSms). Its strings are unlike those of the other native
/// files: the length counts bytes, and one that is to be read back has at most 4094 of them.
class CSMSFile : public CFileObject {
 public:
    static constexpr std::int32_t kMostStringBytes = 4094;

    CSMSFile();
    ~CSMSFile() override;

    using CFileObject::Open;
    using CFileObject::Read;
    using CFileObject::Write;
    void Close() override;
    std::int32_t ReadFileHeader() override;
    std::int32_t Verify() override;

    /// Fails at the end of the file without having touched `*record`. A record that the file cuts short succeeds, with
    /// 0 and empty texts from the cut on.
    std::int32_t Read(void** record) override;
    std::int32_t WriteFileHeader() override;
    std::int32_t Write(const void* record) override;

    /// Takes as much of the text as arrives, up to a zero unit, and gives 1; of an odd number of bytes the last is a
    /// unit by itself. 0 and the empty text for a length above the limit and where the file fails. Never throws.
    std::int32_t ReadString(std::u16string* text) override;

    /// Writes the number of bytes and the units. Never throws when called by itself.
    void WriteString(const std::u16string* text) override;

 private:
    void SkipText(std::uint32_t bytes);

    orvale::NativeHeader header_;
    CSMSItem sms_;
};
