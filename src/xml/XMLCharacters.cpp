#include "xml/XMLCharacters.h"

#include <algorithm>
#include <iterator>

#include "platform/Text.h"

namespace orvale {
namespace {

// Char of XML 1.0, but for what a pair of surrogate halves makes.
constexpr bool IsSingleUnitCharacter(char16_t unit) {
    return unit >= 0x20 ? (unit < 0xD800 || unit >= 0xE000) && unit < 0xFFFE
                        : unit == u'\t' || unit == u'\n' || unit == u'\r';
}

}  // namespace

std::u16string CleanText(std::u16string_view text) {
    std::u16string clean;
    clean.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(clean), IsSingleUnitCharacter);
    return clean;
}

bool FitsXml(std::u16string_view text) {
    return IsWellFormed(text) && std::all_of(text.begin(), text.end(), [](char16_t unit) {
               return IsSingleUnitCharacter(unit) || (unit >= 0xD800 && unit < 0xE000);
           });
}

bool FitsComment(std::u16string_view text) {
    return FitsXml(text) && text.find(u"--") == std::u16string_view::npos && !text.ends_with(u'-');
}

// Name of XML 1.0, fifth edition, as far as one unit makes a character.
bool IsName(std::u16string_view text) {
    struct Range {
        char16_t first, last;
    };
    constexpr Range kStart[] = {{u':', u':'},     {u'A', u'Z'},     {u'_', u'_'},     {u'a', u'z'},
                                {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
                                {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                                {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}};
    constexpr Range kFurther[] = {{u'-', u'.'}, {u'0', u'9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};
    const auto within = [](char16_t unit, const auto& ranges) {
        return std::any_of(std::begin(ranges), std::end(ranges),
                           [&](const Range& range) { return unit >= range.first && unit <= range.last; });
    };
    return !text.empty() && within(text.front(), kStart) && std::all_of(text.begin(), text.end(), [&](char16_t unit) {
        return within(unit, kStart) || within(unit, kFurther);
    });
}

}  // namespace orvale
