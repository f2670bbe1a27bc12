#pragma once

#include <string>
#include <string_view>

/// What of 16-bit text XML can hold (XML 1.0, fifth edition).
namespace orvale {

/// The text without control units other than tab, line feed and carriage return, without 0xFFFE and 0xFFFF, and without
/// surrogate halves: with a pair goes the character that it makes.
std::u16string CleanText(std::u16string_view text);

/// Whether an attribute can hold the text as it is.
bool FitsXml(std::u16string_view text);

/// Whether a comment can hold the text as it is.
bool FitsComment(std::u16string_view text);

/// Whether the text is a name. One with a character beyond the basic plane isn't: no element of such a name is made.
bool IsName(std::u16string_view text);

}  // namespace orvale
