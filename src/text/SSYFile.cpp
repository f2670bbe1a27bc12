#include "text/SSYFile.h"

#include "frame/LittleEndian.h"
#include "frame/Operation.h"
#include "frame/RecordLog.h"
#include "platform/HashMap.h"
#include "records/SSYRecord.h"

using orvale::Operation;
using orvale::Require;

namespace {

constexpr std::size_t kVersionOffset = 0;
constexpr std::size_t kVersionWidth = 40;
constexpr std::size_t kDateOffset = 40;
constexpr std::size_t kDateWidth = 10;
constexpr std::size_t kSizeOffset = 50;
constexpr std::size_t kLongestRecord = 2048;  // bytes, with the zero

}  // namespace

CSSYFile::CSSYFile() : CFileObject(100, u"ORVALE - CSSYFile::Open") {}

CSSYFile::~CSSYFile() {
    CSSYFile::Close();
}

void CSSYFile::Close() {
    contact_.Clear();
    CloseStream();
}

std::int32_t CSSYFile::ReadFileHeader() {
    Operation operation(*this, u"ORVALE - CSSYFile::ReadFileHeader", Operation::kBegin);
    return operation.Run([&] {
        Require(IsOpened());
        Seek(0, kBegin);
        header_.fill('\0');
        const std::uint32_t got = CFile::Read(header_.data(), kHeaderSize);
        if (orvale::LogEnabled()) {
            orvale::LogFormat(u"Orvale - CSSYFile::ReadFileHeader : Version[%s]\r\n",
                              HeaderText(kVersionOffset, kVersionWidth));
            orvale::LogFormat(u"Orvale - CSSYFile::ReadFileHeader : Time[%s]\r\n", HeaderText(kDateOffset, kDateWidth));
        }
        operation.Tell(u"Finish");  // not for a closed file
        Require(got == kHeaderSize, "the file is shorter than its header");
    });
}

std::u16string CSSYFile::HeaderText(std::size_t offset, std::size_t width) {
    return ToWide(std::string_view(header_.data() + offset, width));
}

std::int32_t CSSYFile::SizeOfRecords() const {
    return static_cast<std::int32_t>(orvale::FromLittleEndian<std::uint32_t>(header_.data() + kSizeOffset));
}

std::int32_t CSSYFile::Verify() {
    Operation operation(*this, u"Orvale - CSSYFile::Verify", Operation::kBegin | Operation::kFinish);
    if (!IsOpened()) {
        operation.Tell(u"Not opened");
        return VERIFY_NOT_OPENED;
    }
    const std::int32_t fits = operation.Run([&] {
        const auto length = static_cast<std::int64_t>(GetLength());
        Require(SizeOfRecords() == length - static_cast<std::int64_t>(kHeaderSize));
    });
    if (fits != 0) return VERIFY_OK;
    operation.Tell(u"Wrong file size");
    return VERIFY_WRONG_SIZE;
}

std::int32_t CSSYFile::ReadString(std::u16string* text) try {
    if (text == nullptr || !IsOpened()) return 0;
    recordBytes_.clear();
    for (std::string_view ahead = Ahead(); !ahead.empty(); ahead = Ahead()) {
        ahead = ahead.substr(0, kLongestRecord - recordBytes_.size());
        const std::size_t zero = ahead.find('\0');
        recordBytes_.append(ahead.substr(0, zero));
        if (zero != std::string_view::npos) {
            Skip(zero + 1);
            *text = ToWide(recordBytes_);
            return 1;
        }
        Skip(ahead.size());
        if (recordBytes_.size() == kLongestRecord) return 0;
    }
    return 0;
} catch (const std::exception&) {
    return 0;
}

std::int32_t CSSYFile::Read(void** record) {
    Operation operation(*this, u"Orvale - CSSYFile::Read",
                        Operation::kBegin | Operation::kSucceeded | Operation::kFinish);
    const std::int32_t result = operation.Run([&] {
        Require(IsOpened() && record != nullptr);
        *record = &contact_;
        contact_.Clear();
        std::u16string text;
        Require(ReadString(&text) != 0 && !text.empty());
        ParseRecord(text);
        orvale::LogContact(&contact_);
    });
    if (result == 0) operation.Tell(u"failed");
    return result;
}

// The fields stand in the order of the map, with the last value of each type.
void CSSYFile::ParseRecord(std::u16string_view text) {
    orvale::HashMap<std::u16string> values;
    orvale::CutSSYRecord(
        text, [&](std::int32_t type, std::u16string value) { values.Set(type, std::move(value)); },
        [](const std::u16string&) {});

    CContactField field;
    for (const auto& entry : values) {
        field.Type = entry.key;
        field.Data = entry.value;
        Require(contact_.AddField(field) != 0, "no memory");
    }
}
