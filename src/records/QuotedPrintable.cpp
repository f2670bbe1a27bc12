#include "records/QuotedPrintable.h"

#include <algorithm>

#include "platform/Text.h"

namespace orvale {
namespace {

void AppendEscape(std::string& out, char byte) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    out += {'=', kDigits[value >> 4], kDigits[value & 15]};
}

// Looks at all units, with no way out at the first, so that it takes many at a time.
template <class Test>
bool HasAny(std::u16string_view text, Test test) {
    char16_t found = 0;
    for (const char16_t unit : text)
        found |= static_cast<char16_t>(test(unit));
    return found != 0;
}

bool HasDoubledEquals(std::u16string_view text) {
    while (!text.empty()) {
        TakeToken(text, u"=");
        if (text.starts_with(u'=')) return true;
    }
    return false;
}

}  // namespace

int HexDigitValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return 0;
}

std::u16string EncodeQuotedPrintable(std::u16string_view text, TextConverter& converter) {
    const std::string bytes = converter.ToNarrow(text);
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char byte = bytes[i];
        if (converter.Page().IsLeadByte(static_cast<unsigned char>(byte))) {
            AppendEscape(out, byte);
            if (++i < bytes.size()) AppendEscape(out, bytes[i]);
        } else if (byte == '\n' || byte == '\r' || byte == ';' || byte == '=') {
            AppendEscape(out, byte);
        } else {
            out.push_back(byte);
        }
    }
    return converter.ToWide(out);
}

// All values go through the code page, decoded or not, so that what it lacks is replaced in each. A page that holds all
// lacks no more than halves of surrogate pairs; a pair takes that road for nothing.
bool NeedsDecoding(std::u16string_view text, const TextConverter& converter) {
    const auto isCode = [](char16_t unit) { return unit == u'=' || unit == u'\0'; };
    if (!converter.Page().HoldsAll()) return HasAny(text, [&](char16_t unit) { return isCode(unit) || unit >= 0x80; });
    return HasAny(text, [&](char16_t unit) { return isCode(unit) || (unit & 0xF800) == 0xD800; });
}

std::string QuotedPrintableBytes(std::u16string_view text, TextConverter& converter) {
    // What is decoded takes the place of what it was decoded from.
    std::string bytes =
        HasDoubledEquals(text) ? converter.ToNarrow(Replace(text, u"==", u"=")) : converter.ToNarrow(text);
    auto code = std::find(bytes.begin(), bytes.end(), '=');
    auto to = code;
    while (bytes.end() - code > 2) {  // there is no code without both its digits
        *to++ = static_cast<char>(HexDigitValue(code[1]) * 16 + HexDigitValue(code[2]));
        const auto next = std::find(code + 3, bytes.end(), '=');
        to = std::copy(code + 3, next, to);
        code = next;
    }
    bytes.erase(to, code);
    return bytes;
}

std::u16string DecodeQuotedPrintable(std::u16string_view text, TextConverter& converter) {
    if (!NeedsDecoding(text, converter)) return std::u16string(text);
    return converter.ToWide(QuotedPrintableBytes(text, converter));
}

}  // namespace orvale
