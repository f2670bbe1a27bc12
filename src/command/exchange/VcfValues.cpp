#include "command/exchange/VcfValues.h"

#include <algorithm>

#include "command/exchange/VcfText.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// What of a value of such a shape is none of it where it stands in front; empty for shapes without such.
constexpr std::u16string_view SchemeOf(VcfShape shape) {
    return shape == VcfShape::kPhone ? u"tel:" : shape == VcfShape::kEmail ? u"mailto:" : u"";
}

// Whether a text has the form of a pattern in which "0" stands for any digit.
bool HasForm(std::u16string_view text, std::u16string_view pattern) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), [](char16_t unit, char16_t wanted) {
        return wanted == u'0' ? unit >= u'0' && unit <= u'9' : unit == wanted;
    });
}

bool IsBetween(std::u16string_view twoDigits, int first, int last) {
    const int number = (twoDigits[0] - u'0') * 10 + (twoDigits[1] - u'0');
    return number >= first && number <= last;
}

bool IsMonth(std::u16string_view digits) {
    return IsBetween(digits, 1, 12);
}

bool IsDayOfMonth(std::u16string_view digits) {
    return IsBetween(digits, 1, 31);
}

// The days of 4.0 that lack a part.
bool IsPartialDay(std::u16string_view text) {
    return HasForm(text, u"0000") || (HasForm(text, u"0000-00") && IsMonth(text.substr(5))) ||
           (HasForm(text, u"--00") && IsMonth(text.substr(2))) ||
           (HasForm(text, u"--0000") && IsMonth(text.substr(2, 2)) && IsDayOfMonth(text.substr(4))) ||
           (HasForm(text, u"---00") && IsDayOfMonth(text.substr(3)));
}

}  // namespace

std::u16string JoinFilled(std::span<const std::u16string> parts) {
    std::u16string text;
    for (const std::u16string& part : parts)
        if (!part.empty()) text.append(text.empty() ? u"" : u", ").append(part);
    return text;
}

void RemoveVcfScheme(std::u16string& text, VcfShape shape) {
    const std::u16string_view scheme = SchemeOf(shape);
    if (text.size() > scheme.size() && EqualsNoCase(std::u16string_view(text).substr(0, scheme.size()), scheme))
        text.erase(0, scheme.size());
}

bool HasVcfScheme(std::u16string_view text, VcfShape shape) {
    const std::u16string_view scheme = SchemeOf(shape);
    std::size_t met = 0;
    for (const char16_t unit : text) {
        if (IsLeftOutOfVcf(unit)) continue;
        if (met == scheme.size()) return met != 0;
        if (!EqualsNoCase({&unit, 1}, scheme.substr(met++, 1))) return false;
    }
    return false;
}

bool IsDashedDay(std::u16string_view text) {
    return HasForm(text, u"0000-00-00");
}

std::u16string DayFromVcf(std::u16string text) {
    if (HasForm(text, u"--00-00")) return text.erase(4, 1);
    constexpr std::size_t kLength = 10;  // of a day with hyphens
    if (!IsDashedDay(std::u16string_view(text).substr(0, kLength))) return text;
    std::u16string_view time = std::u16string_view(text).substr(kLength);
    if (time.ends_with(u'Z')) time.remove_suffix(1);
    if (!time.empty() && time != u"T00:00:00" && time != u"T000000") return text;
    return text.substr(0, 4) + text.substr(5, 2) + text.substr(8, 2);
}

std::optional<std::u16string> DayToVcf(std::u16string_view day, VcfVersion version) {
    const bool isWhole = HasForm(day, u"00000000");
    std::u16string text(day);
    if (version == VcfVersion::k40) return isWhole || IsPartialDay(day) ? std::optional(std::move(text)) : std::nullopt;
    if (!isWhole) return std::nullopt;
    return text.insert(6, 1, u'-').insert(4, 1, u'-');
}

VcfGender GenderToVcf(std::u16string_view gender) {
    constexpr std::u16string_view kLetters = u"MFONU";  // male, female, other, none, unknown
    constexpr std::u16string_view kBetween = u", ";
    const bool hasLetter = !gender.empty() && kLetters.find(gender.front()) != std::u16string_view::npos;
    if (hasLetter && gender.size() == 1) return {gender, u""};
    if (!hasLetter || !gender.substr(1).starts_with(kBetween)) return {u"", gender};
    const std::u16string_view text = gender.substr(1 + kBetween.size());
    const bool saysNothing = std::all_of(text.begin(), text.end(), IsLeftOutOfVcf);
    return saysNothing ? VcfGender{u"", gender} : VcfGender{gender.substr(0, 1), text};
}

}  // namespace orvale
