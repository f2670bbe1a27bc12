#include "command/exchange/VcfProperty.h"

#include <algorithm>
#include <cstring>

#include "platform/Text.h"
#include "records/QuotedPrintable.h"

namespace orvale {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr char kFold = '\n';

std::string_view TrimBlanks(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// The first of a character that stands outside of quotes.
std::size_t FindUnquoted(std::string_view text, char wanted) {
    const std::size_t found = text.find(wanted);
    if (text.substr(0, found).find('"') == kNone) return found;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (text[i] == wanted && !quoted) return i;
    }
    return quoted ? found : kNone;  // a quote that never ends is none
}

std::string_view TakeUpTo(std::string_view& rest, std::size_t end) {
    end = std::min(end, rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return TrimBlanks(piece);
}

std::string_view Unquote(std::string_view value) {
    if (value.starts_with('"')) value.remove_prefix(1);
    if (value.ends_with('"')) value.remove_suffix(1);
    return value;
}

// What a word says that stands alone, or as the value of TYPE or ENCODING.
void TakeWord(std::string_view word, VcfProperty& property) {
    if (const std::uint32_t bit = VcfTypeBit(word))
        property.types |= bit;
    else if (VcfSameName(word, "QUOTED-PRINTABLE"))
        property.encoding = VcfEncoding::kQuotedPrintable;
    else if (VcfSameName(word, "BASE64") || VcfSameName(word, "B"))
        property.encoding = VcfEncoding::kBase64;
}

void TakeParameter(std::string_view parameter, VcfProperty& property) {
    const std::size_t equals = parameter.find('=');
    if (equals == kNone) return TakeWord(parameter, property);
    const std::string_view name = TrimBlanks(parameter.substr(0, equals));
    std::string_view value = TrimBlanks(parameter.substr(equals + 1));
    if (VcfSameName(name, "TYPE") || VcfSameName(name, "ENCODING")) {
        for (value = Unquote(value); !value.empty();)
            TakeWord(Unquote(TakeUpTo(value, value.find(','))), property);
    } else if (VcfSameName(name, "CHARSET")) {
        property.charset = Unquote(value);
    } else if (VcfSameName(name, "PREF")) {
        property.types |= vcf::kPref;
    } else if (VcfSameName(name, "LABEL")) {
        property.label = Unquote(value);
    } else if (VcfSameName(name, vcf::kIdParameter)) {
        property.id = Unquote(value);
    }
}

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

bool ParseVcfProperty(std::string_view line, VcfProperty& property) {
    property = VcfProperty();
    const std::size_t colon = FindUnquoted(line, ':');
    if (colon == kNone) return false;
    property.value = line.substr(colon + 1);
    std::string_view head = line.substr(0, colon);
    const auto quotes = std::count(head.begin(), head.end(), '"');
    const bool hasQuotes = quotes != 0 && quotes % 2 == 0;
    const auto end = [&] { return hasQuotes ? FindUnquoted(head, ';') : head.find(';'); };
    std::string_view name = TakeUpTo(head, end());
    if (const std::size_t dot = name.rfind('.'); dot != kNone) name.remove_prefix(dot + 1);
    property.name = name;
    while (!head.empty())
        TakeParameter(TakeUpTo(head, end()), property);
    property.rows = VcfRowsOf(property.name);
    if (!property.rows.empty()) property.kind = VcfKindOf(property.rows, property.types);
    return true;
}

bool VcfHeads::Parse(std::string_view line, VcfProperty& property) {
    constexpr std::size_t kLongest = 64;  // of those that are kept
    const std::size_t colon = line.find(':');
    if (colon == 0 || colon > kLongest) return ParseVcfProperty(line, property);
    const std::string_view text = line.substr(0, colon);
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    Head& head = heads_[(colon * 31 + byte(0) * 7U + byte(colon / 2) * 3U + byte(colon - 1)) % heads_.size()];
    if (head.text == text) {
        property = head.property;
        property.value = line.substr(colon + 1);
        return true;
    }
    if (!ParseVcfProperty(line, property)) return false;
    const bool isSimple = property.charset.empty() && property.id.empty() && property.label.empty();
    if (isSimple && text.find('"') == kNone) {
        head.text = text;
        head.property = property;
        head.property.value = {};
        head.property.name = std::string_view(head.text).substr(
            static_cast<std::size_t>(property.name.data() - text.data()), property.name.size());
    }
    return true;
}

void UnfoldVcfLine(std::string& text, VcfVersion version) {
    const auto isBlank = [&](std::size_t i) { return i < text.size() && (text[i] == ' ' || text[i] == '\t'); };
    std::size_t place = text.find(kFold);
    if (place == kNone) return;
    VcfProperty property;
    const bool isQuoted = ParseVcfProperty(text, property) && property.encoding == VcfEncoding::kQuotedPrintable;
    std::size_t to = place;
    const std::size_t mark = std::string_view(text).substr(0, place).find_last_not_of(" \t");
    char last = mark == kNone ? '\0' : text[mark];  // that is no blank
    for (; place < text.size(); ++place) {
        if (text[place] != kFold) {
            if (!isBlank(place)) last = text[place];
            text[to++] = text[place];
            continue;
        }
        if (isQuoted && last == '=') {
            text[to++] = kFold;
            last = kFold;
        } else if (isBlank(place + 1)) {
            if (version != VcfVersion::k21 || isBlank(place + 2)) ++place;
        }
    }
    text.resize(to);
}

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

// Whether a value holds what Unescape looks for; most hold none.
bool VcfDecoder::HasEscapes(std::string_view bytes) {
    return bytes.find('\\') != kNone || bytes.find('\r') != kNone || bytes.find('\n') != kNone;
}

// The escapes of 3.0 and 4.0; in 2.1 only separators are escaped, and a backslash before anything else is itself.
void VcfDecoder::Unescape(std::u16string& text) const {
    std::u16string out;
    for (std::size_t from = 0; from < text.size(); ++from) {
        const char16_t unit = text[from];
        const char16_t next = from + 1 < text.size() ? text[from + 1] : u'\0';
        if (unit == u'\r' || unit == u'\n') {
            if (unit == u'\r' && next == u'\n') ++from;
            out += u"\r\n";
        } else if (unit == u'\\' && (next == u';' || next == u',' || next == u':')) {
            out += next;
            ++from;
        } else if (unit == u'\\' && version_ != VcfVersion::k21 && (next == u'n' || next == u'N')) {
            out += u"\r\n";
            ++from;
        } else if (unit == u'\\' && version_ != VcfVersion::k21 && next == u'\\') {
            out += u'\\';
            ++from;
        } else {
            out += unit;
        }
    }
    text = std::move(out);
}

void VcfDecoder::Text(const VcfProperty& property, std::u16string& text) {
    plainSeparators_.clear();
    const std::string_view bytes = Bytes(property);
    Assign(bytes, PageOf(property), text);
    if (HasEscapes(bytes)) Unescape(text);
}

std::span<std::u16string> VcfDecoder::Parts(const VcfProperty& property, char separator, std::size_t most) {
    std::size_t count = 0;
    plainSeparators_.clear();
    const std::string_view bytes = Bytes(property);
    const CodePage* page = PageOf(property);
    if (page == nullptr && !ThreadCodePage().HoldsAll() && !IsUtf8(bytes)) page = &ThreadCodePage();
    std::size_t start = 0;
    const bool hasEscapes = HasEscapes(bytes);
    const auto add = [&](std::size_t end) {
        if (count == parts_.size()) parts_.emplace_back();
        std::u16string& part = parts_[count++];
        Assign(bytes.substr(start, end - start), page, part);
        if (hasEscapes) Unescape(part);
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

std::u16string DecodeVcfParameter(std::string_view value) {
    const std::u16string raw = FromUtf8(value);
    std::u16string text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char16_t next = i + 1 < raw.size() ? raw[i + 1] : u'\0';
        const bool isCode = (raw[i] == u'^' && (next == u'n' || next == u'\'' || next == u'^')) ||
                            (raw[i] == u'\\' && (next == u'n' || next == u'N'));
        if (raw[i] == u'\r') {
            text += u"\r\n";
            continue;
        }
        if (!isCode) {
            text += raw[i];
            continue;
        }
        ++i;
        text += next == u'\'' ? u"\"" : next == u'^' ? u"^" : u"\r\n";
    }
    return text;
}

}  // namespace orvale
