#include "records/QuotedPrintable.h"

#include <iterator>
#include <memory>

#include "support/MemoryWatch.h"
#include "support/Target.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

constexpr int kPages[] = {65001, 1252, 932, 936, 949, 950};

TextConverter& ConverterOf(std::size_t page) {
    static std::unique_ptr<TextConverter> converters[std::size(kPages)];
    std::unique_ptr<TextConverter>& converter = converters[page];
    if (!converter) converter = std::make_unique<TextConverter>(*FindCodePage(kPages[page]));
    return *converter;
}

// The units of an input, two bytes each, the lower first.
std::u16string UnitsOf(std::string_view bytes) {
    std::u16string units(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                         static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
    return units;
}

}  // namespace

// The first byte picks the page and whether the rest is text of the page or units. A text that was encoded is decoded
// to what the page holds of it, on one line; a text of which it is told that decoding changes nothing is not changed.
ORVALE_FUZZ_TARGET("quoted-printable") {
    if (input.empty()) return;
    const auto choice = static_cast<unsigned char>(input[0]);
    TextConverter& converter = ConverterOf(choice % std::size(kPages));
    const MemoryWatch watch(input.size());
    const std::string_view rest = input.substr(1);
    const std::u16string text = choice < 0x80 ? converter.ToWide(rest) : UnitsOf(rest);

    const std::u16string held = converter.ToWide(converter.ToNarrow(text));
    const std::u16string encoded = EncodeQuotedPrintable(text, converter);
    Must(encoded.find_first_of(u"\r\n;") == std::u16string::npos, "what is encoded breaks neither line nor list");
    Must(DecodeQuotedPrintable(encoded, converter) == held, "what is encoded is decoded to what the page holds of it");

    const std::u16string decoded = DecodeQuotedPrintable(text, converter);
    Must(decoded.size() <= 4 * text.size(), "decoding doesn't grow a text beyond its bytes");
    if (!NeedsDecoding(text, converter))
        Must(converter.ToWide(QuotedPrintableBytes(text, converter)) == text,
             "what needs no decoding isn't changed by it");
}
