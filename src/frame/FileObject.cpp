#include "frame/FileObject.h"

#include <array>
#include <bit>
#include <limits>
#include <stdexcept>

#include "frame/LittleEndian.h"
#include "frame/Log.h"
#include "frame/UtcText.h"
#include "platform/Format.h"
#include "records/QuotedPrintable.h"

namespace {

// Whether all bytes of a number arrived; none are taken at the end of the file.
template <class Number>
bool ReadNumber(CFile& file, Number& number) {
    const std::string_view ahead = file.Ahead();
    if (ahead.size() >= sizeof number) {
        number = orvale::FromLittleEndian<Number>(ahead.data());
        file.Skip(sizeof number);
        return true;
    }
    std::array<char, sizeof number> bytes;
    if (file.CFile::Read(bytes.data(), bytes.size()) != bytes.size()) return false;
    number = orvale::FromLittleEndian<Number>(bytes.data());
    return true;
}

template <class Number>
void WriteNumber(CFile& file, Number number) {
    const auto bytes = orvale::ToLittleEndian(number);
    file.CFile::Write(bytes.data(), bytes.size());
}

std::int32_t ReadInt32(CFile& file, std::int32_t* value) {
    std::uint32_t number = 0;
    if (value == nullptr || !ReadNumber(file, number)) return 0;
    *value = static_cast<std::int32_t>(number);
    return 1;
}

void WriteInt32(CFile& file, const std::int32_t* value) {
    if (value != nullptr) WriteNumber(file, static_cast<std::uint32_t>(*value));
}

}  // namespace

std::int32_t CFileObject::Open(const char16_t* fileName, const std::uint32_t* openFlags) {
    if (fileName == nullptr || openFlags == nullptr) return 0;
    if (orvale::LogEnabled()) orvale::LogFormat(u"%s : File Name[%s]\r\n", openLine_, fileName);
    return CFile::Open(fileName, *openFlags | kShareExclusive, nullptr);
}

void CFileObject::CloseStream() noexcept {
    try {
        CFile::Close();  // NOLINT(bugprone-parent-virtual-call): the stream's own
    } catch (...) {      // nothing is gathered between operations, so nothing is lost that an operation called written
    }
}

std::int32_t CFileObject::ReadString(std::u16string* text) {
    if (text == nullptr) return 0;
    try {
        std::int32_t length = -1;  // stays so where it can't be read
        ReadInt32(*this, &length);
        text->clear();
        if (length <= 0 || length > kLongestString) return length == 0;
        std::array<char, 2 * static_cast<std::size_t>(kLongestString)> bytes;
        const std::size_t units =
            CFile::Read(bytes.data(), 2 * static_cast<std::uint32_t>(length)) / 2;  // no half unit
        orvale::AssignUnits(*text, bytes.data(), units);
        return text->size() == static_cast<std::size_t>(length);
    } catch (...) {
        text->clear();
        return 0;
    }
}

void CFileObject::WriteString(const std::u16string* text) {
    if (text == nullptr) return;
    const Gathering gathering(*this);
    WriteNumber(*this, static_cast<std::uint32_t>(text->size()));
    orvale::WriteUnits(*this, *text);
    if (gathering.IsOutermost()) HandOver();
}

void CFileObject::WriteNarrow(std::u16string_view text) {
    const std::string bytes = ToNarrow(text);
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("more than a write can take");
    CFile::Write(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}

std::int32_t CFileObject::ReadInt(std::int32_t* value) {
    return ReadInt32(*this, value);
}
void CFileObject::WriteInt(const std::int32_t* value) {
    WriteInt32(*this, value);
}
std::int32_t CFileObject::ReadLong(std::int32_t* value) {
    return ReadInt32(*this, value);
}
void CFileObject::WriteLong(const std::int32_t* value) {
    WriteInt32(*this, value);
}

std::int32_t CFileObject::ReadUInt(std::uint32_t* value) {
    return value != nullptr && ReadNumber(*this, *value);
}

void CFileObject::WriteUInt(const std::uint32_t* value) {
    if (value != nullptr) WriteNumber(*this, *value);
}

std::int32_t CFileObject::ReadDate(DateValue* date) {
    std::uint64_t bits = 0;
    if (date == nullptr || !ReadNumber(*this, bits)) return 0;
    *date = DateValue(std::bit_cast<double>(bits));
    return 1;
}

void CFileObject::WriteDate(const DateValue* date) {
    if (date != nullptr) WriteNumber(*this, std::bit_cast<std::uint64_t>(date->Value()));
}

std::u16string CFileObject::GetDateStamp() {
    const orvale::CalendarFields today = orvale::UtcNow();
    return orvale::Format(u"%4d%0.2d%0.2d", today.year, today.month, today.day);
}

std::u16string CFileObject::EncodeQuotedPrintable(const char16_t* text) {
    return text != nullptr ? orvale::EncodeQuotedPrintable(text, Converter()) : std::u16string();
}

std::u16string CFileObject::DecodeQuotedPrintable(const char16_t* text) {
    return text != nullptr ? orvale::DecodeQuotedPrintable(text, Converter()) : std::u16string();
}

std::u16string CFileObject::DateToUtcText(const DateValue* date) {
    return date != nullptr ? orvale::DateToUtcText(*date) : std::u16string();
}

std::int32_t CFileObject::UtcTextToDate(const std::u16string* text, DateValue* date) {
    return text != nullptr && date != nullptr && orvale::UtcTextToDate(*text, *date);
}
