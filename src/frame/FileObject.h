#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/FileInterface.h"
#include "platform/CodePage.h"

/// The base of all format classes: what an operation does where a format has nothing of its own, and the primitives
/// that the native formats are written in. All numbers in files are little-endian.
///
/// A string in a file is its length as a signed 32-bit number of UTF-16 units, then the units, without terminator. One
/// that is to be read back has at most 1023 units.
class CFileObject : public CFileInterface {
 public:
    static constexpr std::int32_t kLongestString = 1023;

    std::int32_t GetObjectVersion() override { return objectVersion_; }
    std::int32_t GetFileVersion() override { return fileVersion_; }
    using CFileInterface::Open;
    std::int32_t Open(const char16_t* fileName, const std::uint32_t* openFlags) override;
    void SetProfile(const void*) override {}
    std::int32_t ReadFileHeader() override { return 1; }
    std::int32_t WriteFileHeader() override { return 1; }
    void GetProfile(const void**) override {}

    // Slots 33 to 47. A reading primitive gives 1, or 0 where the file ends too early; all but ReadString let a failure
    // of the file through as std::system_error.

    /// Slot 33. The string is emptied where its length can't be read, is above the limit, or the file fails. A text cut
    /// short or with a zero unit inside gives 0 and the units before that.
    virtual std::int32_t ReadString(std::u16string* text);
    virtual void WriteString(const std::u16string* text);  // slot 34
    virtual std::int32_t ReadInt(std::int32_t* value);     // slot 35: untouched at the end of the file
    virtual void WriteInt(const std::int32_t* value);      // slot 36
    virtual std::int32_t ReadUInt(std::uint32_t* value);   // slot 37
    virtual void WriteUInt(const std::uint32_t* value);    // slot 38
    virtual std::int32_t ReadDate(DateValue* date);        // slot 39: set, as a valid date, only when all arrived
    virtual void WriteDate(const DateValue* date);         // slot 40: the double, whatever the status
    virtual std::int32_t ReadLong(std::int32_t* value);    // slot 41
    virtual void WriteLong(const std::int32_t* value);     // slot 42
    virtual std::u16string GetDateStamp();                 // slot 43: today in UTC as "20100726"
    virtual std::u16string EncodeQuotedPrintable(const char16_t* text);               // slot 44: see QuotedPrintable.h
    virtual std::u16string DecodeQuotedPrintable(const char16_t* text);               // slot 45
    virtual std::u16string DateToUtcText(const DateValue* date);                      // slot 46: see UtcText.h
    virtual std::int32_t UtcTextToDate(const std::u16string* text, DateValue* date);  // slot 47

    /// Conversion by the code page of the thread, with a converter that the object keeps.
    orvale::TextConverter& Converter() { return converter_ ? *converter_ : converter_.emplace(); }
    /// Set by a step that found no memory, where that would else go unseen: the operation under way, or the next one,
    /// is a failure then (see Operation). In a format that keeps it, so is every one until the next Open: there a
    /// failed Read can't be told from the end of the file, which the operations behind it show.
    bool& Shortage() { return shortage_; }
    bool KeepsShortage() const { return keepsShortage_; }

    std::string ToNarrow(std::u16string_view text) { return Converter().ToNarrow(text); }
    std::u16string ToWide(std::string_view bytes) { return Converter().ToWide(bytes); }

    /// Writes a text, in the code page of the thread, at the file's position.
    void WriteNarrow(std::u16string_view text);

 protected:
    /// `openLine` is the head of the line that Open logs, such as "ORVALE - CQZSFile::Open".
    CFileObject(std::int32_t fileVersion, std::u16string_view openLine, bool keepsShortage = false)
        : fileVersion_(fileVersion), openLine_(openLine), keepsShortage_(keepsShortage) {}

    /// Closes the stream if it is open; what it fails to hand over is lost, as Close has no result.
    void CloseStream() noexcept;

 private:
    std::int32_t objectVersion_ = 100;
    std::int32_t fileVersion_;
    std::u16string_view openLine_;
    std::optional<orvale::TextConverter> converter_;
    bool shortage_ = false;
    bool keepsShortage_;
};
