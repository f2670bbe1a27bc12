#include "command/exchange/PercentText.h"

#include "records/QuotedPrintable.h"

namespace orvale {

std::string PercentForm(std::string_view bytes, std::string_view alsoMarked) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string form;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F && c != '%' && alsoMarked.find(c) == std::string_view::npos)
            form += c;
        else
            form += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return form;
}

std::string PercentBytes(std::string_view form) {
    std::string bytes;
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] == '%' && i + 2 < form.size()) {
            bytes += static_cast<char>(HexDigitValue(form[i + 1]) << 4 | HexDigitValue(form[i + 2]));
            i += 2;
        } else {
            bytes += form[i];
        }
    }
    return bytes;
}

}  // namespace orvale
