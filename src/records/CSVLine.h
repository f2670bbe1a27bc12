#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// How a line of comma-separated text is cut, as the reader of CSV files does it.
namespace orvale {

/// Bytes; a line with its line end leaves one free for its terminator.
constexpr std::size_t kCSVLineBuffer = 2048;

/// In units.
constexpr std::size_t kLongestCSVCaption = 1024;

/// Takes the next caption of the first line, which comes trimmed: quotes have no meaning there.
std::u16string_view TakeCSVCaption(std::u16string_view& rest);

/// Takes the next value in its file form. A quoted one goes on over commas until its quotes pair up. If they never do,
/// it ends at its first comma after all, and the comma at the end of the line, if there is one, was part of what it
/// took; `neverCloses`, if given, is then set. That happens at most once in a line: behind it all pieces have even
/// quotes. A view of the line, or of `joined`.
std::u16string_view TakeCSVValue(std::u16string_view& rest, std::u16string& joined, bool* neverCloses = nullptr);

/// What a value in its file form says. A view of it, or of `undoubled`.
std::u16string_view UnquoteCSV(std::u16string_view value, std::u16string& undoubled);

}  // namespace orvale
