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

std::string QuotedPrintableBytes(std::u16string_view text, TextConverter& converter) {
    const std::string bytes = converter.ToNarrow(Replace(text, u"==", u"="));
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '=' && i + 2 < bytes.size()) {
            out.push_back(static_cast<char>(HexDigitValue(bytes[i + 1]) * 16 + HexDigitValue(bytes[i + 2])));
            i += 2;
        } else {
            out.push_back(bytes[i]);
        }
    }
    return out;
}

std::u16string DecodeQuotedPrintable(std::u16string_view text, TextConverter& converter) {
    // Most values are ASCII with nothing to decode, and come back from the code page as they went.
    const auto goesThrough = [](char16_t unit) { return unit != u'=' && unit != 0 && unit < 0x80; };
    if (std::all_of(text.begin(), text.end(), goesThrough)) return std::u16string(text);
    return converter.ToWide(QuotedPrintableBytes(text, converter));
}

}  // namespace orvale
