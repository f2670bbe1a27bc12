#include "command/exchange/VcfDecoder.h"

#include <algorithm>

#include "command/exchange/VcfText.h"
#include "platform/Text.h"
#include "records/QuotedPrintable.h"

namespace orvale {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr char kFold = '\n';

// Takes the soft line breaks out of quoted-printable, then the codes: a break may stand within one. Where a code hid a
// separator is kept.
void DecodeQuotedPrintable(std::string_view value, std::string& out, std::vector<std::size_t>& plainSeparators) {
    std::string joined;
    if (value.find(kFold) != kNone) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            if (value[i] == kFold) continue;
            const std::size_t next = value[i] == '=' ? value.find_first_not_of(" \t", i + 1) : kNone;
            if (next != kNone && value[next] == kFold)
                i = next;
            else
                joined.push_back(value[i]);
        }
        value = joined;
    }
    const auto isDigit = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    };
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '=' || i + 2 >= value.size() || !isDigit(value[i + 1]) || !isDigit(value[i + 2])) {
            if (value[i] != '=' || i + 1 != value.size()) out.push_back(value[i]);  // a break with nothing behind it
            continue;
        }
        const char byte = static_cast<char>(HexDigitValue(value[i + 1]) * 16 + HexDigitValue(value[i + 2]));
        if (byte == ';' || byte == ',') plainSeparators.push_back(out.size());
        out.push_back(byte);
        i += 2;
    }
}

void DecodeBase64(std::string_view value, std::string& out) {
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : value) {
        const int digit = c >= 'A' && c <= 'Z'   ? c - 'A'
                          : c >= 'a' && c <= 'z' ? c - 'a' + 26
                          : c >= '0' && c <= '9' ? c - '0' + 52
                          : c == '+'             ? 62
                          : c == '/'             ? 63
                                                 : -1;
        if (digit < 0) continue;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        out.push_back(static_cast<char>(bits >> count & 0xFF));
    }
}

// What cards call the code pages, where iconv and locales have another name.
struct CharsetName {
    std::string_view name;
    std::int32_t page;
};

constexpr CharsetName kCharsetNames[] = {
    {"UTF8", 65001},     {"US-ASCII", 65001}, {"ASCII", 65001}, {"LATIN1", 28591},   {"LATIN-1", 28591},
    {"SHIFT-JIS", 932},  {"X-SJIS", 932},     {"SJIS", 932},    {"MS_KANJI", 932},   {"WINDOWS-31J", 932},
    {"GB_2312-80", 936}, {"GB2312", 936},     {"X-GBK", 936},   {"BIG5-HKSCS", 950}, {"KS_C_5601-1987", 949},
};

const CodePage* FindCharset(std::string_view name) {
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    for (const CharsetName& row : kCharsetNames)
        if (row.name == upper) return FindCodePage(row.page);
    for (const std::string_view prefix : {"WINDOWS-", "IBM", "CP-"})
        if (upper.starts_with(prefix)) upper.replace(0, prefix.size(), "CP");
    return FindCodePageOfCodeset(upper);
}

// Whether the next byte may look like ASCII and be the other half of a character.
bool IsLeadByte(const CodePage* page, char byte) {
    constexpr std::int32_t kGb18030 = 54936;
    const auto value = static_cast<unsigned char>(byte);
    return page != nullptr && (page->IsLeadByte(value) || (page->number == kGb18030 && value > 0x80));
}

bool IsUtf8(std::string_view bytes) {
    if (AsciiPrefix(bytes) == bytes.size()) return true;
    std::size_t bad = 0;
    FromUtf8(bytes, &bad);
    return bad == 0;
}

}  // namespace

std::string_view VcfDecoder::Bytes(const VcfProperty& property) {
    if (property.encoding == VcfEncoding::kPlain) return property.value;
    bytes_.clear();
    if (property.encoding == VcfEncoding::kBase64)
        DecodeBase64(property.value, bytes_);
    else
        DecodeQuotedPrintable(property.value, bytes_, plainSeparators_);
    return bytes_;
}

// The page of the value's bytes; null for UTF-8 where they are that, and for the thread's page where they aren't.
const CodePage* VcfDecoder::PageOf(const VcfProperty& property) {
    if (property.encoding == VcfEncoding::kPlain && isUnicode_) return FindCodePage(65001);
    if (property.charset.empty()) return nullptr;
    const CodePage* const page = FindCharset(property.charset);
    if (page == nullptr) ++unknownCharsets_;
    return page;
}

void VcfDecoder::Assign(std::string_view bytes, const CodePage* page, std::u16string& text) {
    if (page == nullptr && !ThreadCodePage().HoldsAll() && !IsUtf8(bytes)) page = &ThreadCodePage();
    if (page == nullptr || page->HoldsAll()) return AssignFromUtf8(text, bytes, &badBytes_);
    std::unique_ptr<TextConverter>& converter = converters_[page->number];
    if (!converter) converter = std::make_unique<TextConverter>(*page);
    const std::size_t before = converter->Replaced();
    converter->AssignWide(bytes, text);
    for (std::size_t zero = bytes.find('\0'); zero != kNone; zero = bytes.find('\0')) {  // it ends nothing here
        bytes.remove_prefix(zero + 1);
        text.append(1, u'\0').append(converter->ToWide(bytes));
    }
    badBytes_ += converter->Replaced() - before;
}

void VcfDecoder::Text(const VcfProperty& property, std::u16string& text) {
    plainSeparators_.clear();
    const std::string_view bytes = Bytes(property);
    Assign(bytes, PageOf(property), text);
    if (HasVcfEscapes(bytes)) UnescapeVcfText(text, version_);
}

std::span<std::u16string> VcfDecoder::Parts(const VcfProperty& property, char separator, std::size_t most) {
    std::size_t count = 0;
    plainSeparators_.clear();
    const std::string_view bytes = Bytes(property);
    const CodePage* page = PageOf(property);
    if (page == nullptr && !ThreadCodePage().HoldsAll() && !IsUtf8(bytes)) page = &ThreadCodePage();
    std::size_t start = 0;
    const bool hasEscapes = HasVcfEscapes(bytes);
    const auto add = [&](std::size_t end) {
        if (count == parts_.size()) parts_.emplace_back();
        std::u16string& part = parts_[count++];
        Assign(bytes.substr(start, end - start), page, part);
        if (hasEscapes) UnescapeVcfText(part, version_);
        start = end + 1;
    };
    if (!hasEscapes && page == nullptr && plainSeparators_.empty()) {
        for (std::size_t end = bytes.find(separator); end != kNone && count + 1 < most;
             end = bytes.find(separator, start))
            add(end);
        add(bytes.size());
        return {parts_.data(), count};
    }
    auto plain = plainSeparators_.begin();
    for (std::size_t i = 0; i < bytes.size() && count + 1 < most; ++i) {
        if (bytes[i] == '\\' || IsLeadByte(page, bytes[i])) {
            ++i;  // the next byte is no separator, nor a backslash
            continue;
        }
        if (bytes[i] != separator) continue;
        while (plain != plainSeparators_.end() && *plain < i)
            ++plain;
        if (plain == plainSeparators_.end() || *plain != i) add(i);
    }
    add(bytes.size());
    return {parts_.data(), count};
}

}  // namespace orvale
