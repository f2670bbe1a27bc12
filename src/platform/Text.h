#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What the formats need of 16-bit text, told once. Text is a sequence of UTF-16 code units (Unicode, chapter 3.9);
/// nothing here demands that surrogate halves come in pairs.
namespace orvale {

/// Whether a unit is white space in Unicode's classification, whatever the locale of the process.
bool IsSpace(char16_t unit);

/// The unit in lower case by Unicode's classification, whatever the locale of the process.
char16_t ToLower(char16_t unit);

/// The text without the white space at both ends. The view shares the text's storage.
std::u16string_view Trim(std::u16string_view text);

/// Whether two texts are equal without regard to case, unit by unit.
bool EqualsNoCase(std::u16string_view a, std::u16string_view b);

/// Whether the text ends in `suffix`, without regard to case.
bool EndsWithNoCase(std::u16string_view text, std::u16string_view suffix);

/// Replaces every occurrence of `from` (not empty) by `to`, from left to right; what was put in isn't looked at again.
std::u16string Replace(std::u16string_view text, std::u16string_view from, std::u16string_view to);

/// The decimal number at the start of a text: white space, a sign, digits. Wraps modulo 2^32, so that "4294967295" is
/// -1. 0 where there is no digit.
std::int32_t ToNumber(std::u16string_view text);

/// UTF-8 of a text. A surrogate half that stands alone becomes U+FFFD; `replaced`, if given, is raised by one for each.
std::string ToUtf8(std::u16string_view text, std::size_t* replaced = nullptr);

/// Text of UTF-8. Each byte that is part of no character becomes U+FFFD.
std::u16string FromUtf8(std::string_view bytes);

/// Whether every surrogate half of the text is part of a pair.
bool IsWellFormed(std::u16string_view text);

}  // namespace orvale
