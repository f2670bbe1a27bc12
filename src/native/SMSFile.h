#pragma once

#include "native/NativeFile.h"
#include "records/SMSItem.h"

/// The native SMS file: a header of 14 bytes with the flag "<QZ-SMS>" and the version 101 but no date, then messages
/// (see VisitSms). Its strings are unlike those of the other native files: the length counts bytes, and one that is to
/// be read back has at most 4094 of them. A message that the file cuts short is handed out, with 0 and empty texts from
/// the cut on: of damage Read tells nothing. Behind the last message it fails without having touched `*record`.
class CSMSFile : public orvale::NativeFile {
 public:
    static constexpr std::int32_t kMostStringBytes = 4094;

    CSMSFile();
    ~CSMSFile() override;
    void Close() override;

    /// Judges the flag as well: 0 for a wrong one, which Verify then tells.
    std::int32_t ReadFileHeader() override;

    /// Takes as much of the text as arrives, up to a zero unit, and gives 1; of an odd number of bytes the last is a
    /// unit by itself. 0 and the empty text for a length above the limit and where the file fails. Never throws when
    /// called by itself.
    std::int32_t ReadString(std::u16string* text) override;

    /// Writes the number of bytes and the units. Never throws when called by itself.
    void WriteString(const std::u16string* text) override;

 private:
    void BeginRecord(void** record) override;
    void ReadRecord() override;
    void WriteRecord(const void* record) override;
    void SkipText(std::uint32_t bytes);

    CSMSItem sms_;
};
