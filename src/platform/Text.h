#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

/// What the formats need of 16-bit text, told once. Text is a sequence of UTF-16 code units (Unicode, chapter 3.9);
/// nothing here demands that surrogate halves come in pairs.
namespace orvale {

// What the two below ask for units beyond ASCII.
bool IsSpaceBeyondAscii(char16_t unit);
char16_t ToLowerBeyondAscii(char16_t unit);

/// Whether a unit is white space in Unicode's classification, whatever the locale of the process.
inline bool IsSpace(char16_t unit) {
    return unit < 0x80 ? unit == u' ' || (unit >= u'\t' && unit <= u'\r') : IsSpaceBeyondAscii(unit);
}

/// The unit in lower case by Unicode's classification, whatever the locale of the process.
constexpr char16_t ToLower(char16_t unit) {
    if (unit >= 0x80) return ToLowerBeyondAscii(unit);
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

/// The text without the white space at both ends. The view shares the text's storage.
inline std::u16string_view Trim(std::u16string_view text) {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Whether two texts are equal; the comparison of views goes unit by unit.
inline bool SameUnits(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

// The same without regard to case, of texts of one size.
bool SameUnitsNoCase(std::u16string_view a, std::u16string_view b);

/// Whether two texts are equal without regard to case, unit by unit.
inline bool EqualsNoCase(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() && SameUnitsNoCase(a, b);
}

/// Whether the text ends in `suffix`, without regard to case.
bool EndsWithNoCase(std::u16string_view text, std::u16string_view suffix);

/// Replaces every occurrence of `from` (not empty) by `to`, from left to right; what was put in isn't looked at again.
std::u16string Replace(std::u16string_view text, std::u16string_view from, std::u16string_view to);

/// The decimal number at the start of a text: white space, a sign, digits. Wraps modulo 2^32, so that "4294967295" is
/// -1. 0 where there is no digit.
std::int32_t ToNumber(std::u16string_view text);

/// UTF-8 of a text. A surrogate half that stands alone becomes `replacement`; `replaced`, if given, is raised by one
/// for each.
std::string ToUtf8(std::u16string_view text, std::size_t* replaced = nullptr, char16_t replacement = 0xFFFD);

/// Text of UTF-8. Each byte that is part of no character becomes U+FFFD; `replaced`, if given, is raised by one for
/// each.
std::u16string FromUtf8(std::string_view bytes, std::size_t* replaced = nullptr);

/// The same, in place of what `out` holds: for many texts in turn, which then cost no memory each.
void AssignFromUtf8(std::u16string& out, std::string_view bytes, std::size_t* replaced = nullptr);

/// The same, to where there is room for as many units as there are bytes. Gives how many came.
std::size_t WidenUtf8(std::string_view bytes, char16_t* to, std::size_t* replaced = nullptr);

/// Each byte as one unit, to where there is room for so many. Tells whether that is the bytes' text in any code page:
/// whether all are ASCII, as most texts are, and none is zero.
bool WidenAscii(std::string_view bytes, char16_t* to);

/// How many bytes or units at the front of a text are ASCII.
template <class Unit>
std::size_t AsciiPrefix(std::basic_string_view<Unit> text) {
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(Unit);
    constexpr std::uint64_t kBeyond = sizeof(Unit) == 1 ? 0x8080808080808080 : 0xFF80FF80FF80FF80;
    std::size_t count = 0;
    for (std::uint64_t units = 0; count + kStep <= text.size(); count += kStep) {
        std::memcpy(&units, text.data() + count, sizeof units);
        if ((units & kBeyond) != 0) break;
    }
    while (count < text.size() && static_cast<std::make_unsigned_t<Unit>>(text[count]) < 0x80)
        ++count;
    return count;
}

/// Where a unit stands first in a text, or npos. The search of views goes unit by unit, this one by four.
inline std::size_t FindUnit(std::u16string_view text, char16_t unit) {
    constexpr std::size_t kStep = 4;
    constexpr std::uint64_t kOnes = 0x0001000100010001;
    std::size_t place = 0;
    for (std::uint64_t four = 0; place + kStep <= text.size(); place += kStep) {
        std::memcpy(&four, text.data() + place, sizeof four);
        four ^= kOnes * unit;
        if (((four - kOnes) & ~four & kOnes << 15) != 0) break;  // one of them is 0 now
    }
    while (place < text.size() && text[place] != unit)
        ++place;
    return place < text.size() ? place : std::u16string_view::npos;
}

/// Takes the front of `rest` up to the first `delimiter` (not empty), which goes too; all of it where there is none.
inline std::u16string_view TakeToken(std::u16string_view& rest, std::u16string_view delimiter) {
    const std::size_t found = delimiter.size() == 1 ? FindUnit(rest, delimiter.front()) : rest.find(delimiter);
    const std::u16string_view token = rest.substr(0, found);
    rest.remove_prefix(found == std::u16string_view::npos ? rest.size() : found + delimiter.size());
    return token;
}

/// Whether every surrogate half of the text is part of a pair.
bool IsWellFormed(std::u16string_view text);

}  // namespace orvale
