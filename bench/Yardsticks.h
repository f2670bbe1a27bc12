#pragma once

#include <cstddef>
#include <string>

/// What the reading of a format is measured by: loops that do the least that any reader of such a file must do, with no
/// object, no check and no log around them.
namespace orvale::bench {

/// Reads the length-prefixed 16-bit texts of a native contact file through a buffer of 64 KiB, each field into one
/// object of the heap. Gives the number of fields.
std::size_t ReadPrefixedTexts(const std::string& path);

/// Splits a vCard file, read through a buffer of 64 KiB, into lines, looks each key up and widens each value into one
/// object of the heap. Gives the number of those.
std::size_t ReadKeyedLines(const std::string& path);

}  // namespace orvale::bench
