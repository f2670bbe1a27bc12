#include "native/SMSFile.h"

#include <algorithm>
#include <array>

#include "frame/LittleEndian.h"
#include "frame/RecordLog.h"
#include "native/RecordLayout.h"

using orvale::Operation;
using orvale::Require;

namespace {

constexpr orvale::NativeFormat kFormat = {
    .fileVersion = 101,
    .header = {.flag = "<QZ-SMS>", .dateOffset = 0, .versionOffset = 10, .version = 101},
    .open = u"ORVALE - CSMSFile::Open",
    .readFileHeader = {u"Orvale - CSMSFile::ReadFileHeader", Operation::kAll},
    .verify = {u"ORVALE - CSMSFile::Verify", Operation::kBegin | Operation::kFinish},
    .read = {u"ORVALE - CSMSFile::Read", Operation::kAll},
    .writeFileHeader = {u"Orvale - CSMSFile::WriteFileHeader",
                        Operation::kSucceeded | Operation::kFailed | Operation::kFinish},
    .write = {u"ORVALE - CSMSFile::Write", Operation::kSucceeded | Operation::kFailed | Operation::kFinish},
};

// Takes what arrives and asks no primitive whether it came whole: in this format a message that the file cuts short is
// handed out with what there is of it, and only the end of the file between two messages ends the reading.
class LenientReader {
 public:
    explicit LenientReader(CFileObject& file) : file_(file) {}

    void Int(std::int32_t& value) { file_.ReadInt(&value); }
    void String(std::u16string& text) { file_.ReadString(&text); }

 private:
    CFileObject& file_;
};

}  // namespace

CSMSFile::CSMSFile() : NativeFile(kFormat) {}

CSMSFile::~CSMSFile() {
    CSMSFile::Close();
}

void CSMSFile::Close() {
    try {
        sms_.Reset();
    } catch (const std::exception&) {  // no memory for the text of the present time: Read resets it anyway
    }
    orvale::LogText(u"ORVALE - CSMSFile::Close : Begin/Finish\r\n");
    CloseStream();
}

// What was read stays where the flag is wrong, so that Verify tells a wrong flag from no header. A file that is too
// short for a header is refused before any of it is read.
std::int32_t CSMSFile::ReadFileHeader() {
    return Operation(*this, kFormat.readFileHeader).Run([&] {
        Require(IsOpened() && GetLength() >= kFormat.header.Size());
        header_.Load(*this);
        Require(header_.HasRightFlag());
        LogHeader(kFormat.readFileHeader);
    });
}

void CSMSFile::BeginRecord(void** record) {
    Require(!AtEnd());
    *record = &sms_;
    sms_.Reset();
}

void CSMSFile::ReadRecord() {
    LenientReader reader(*this);
    orvale::VisitSms(reader, sms_);
    orvale::LogSms(&sms_);
}

void CSMSFile::WriteRecord(const void* record) {
    const auto& sms = *static_cast<const CSMSItem*>(record);
    orvale::LogSms(&sms);
    orvale::LayoutWriter writer(*this);
    orvale::VisitSms(writer, sms);
}

void CSMSFile::SkipText(std::uint32_t bytes) {
    for (std::string_view ahead = Ahead(); bytes > 0 && !ahead.empty(); ahead = Ahead()) {
        const auto size = static_cast<std::uint32_t>(std::min<std::size_t>(bytes, ahead.size()));
        Skip(size);
        bytes -= size;
    }
}

std::int32_t CSMSFile::ReadString(std::u16string* text) {
    if (text == nullptr) return 0;
    const Gathering gathering(*this);
    try {
        std::int32_t length = 0;  // stays 0 where it can't be read: an empty text
        ReadInt(&length);
        text->clear();
        if (length > kMostStringBytes) {
            SkipText(static_cast<std::uint32_t>(length));  // the texts and records behind it stay readable
            return 0;
        }
        if (length <= 0) return 1;
        std::array<char, static_cast<std::size_t>(kMostStringBytes) + 2> bytes;
        const std::size_t got = CFile::Read(bytes.data(), static_cast<std::uint32_t>(length));
        bytes.at(got) = '\0';  // completes the unit of an odd last byte
        orvale::AssignUnits(*text, bytes.data(), (got + 1) / 2);
        return 1;
    } catch (...) {
        text->clear();
        // As in WriteString: a text that the file or the memory failed to give would be an empty one to Read's caller.
        if (!gathering.IsOutermost()) throw;
        return 0;
    }
}

void CSMSFile::WriteString(const std::u16string* text) {
    if (text == nullptr) return;
    const Gathering gathering(*this);
    try {
        const auto bytes = static_cast<std::int32_t>(text->size() * sizeof(char16_t));
        WriteInt(&bytes);
        orvale::WriteUnits(*this, *text);
        if (gathering.IsOutermost()) HandOver();
    } catch (...) {
        // By itself a string has nobody to tell. Inside Write a half-gathered one is Write's failure: its record would
        // be told written and could not be read.
        if (!gathering.IsOutermost()) throw;
    }
}
