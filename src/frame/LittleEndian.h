#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

class CFile;

/// Numbers and 16-bit text as files hold them: the lowest byte first, whatever the machine's own order.
namespace orvale {

/// The bytes of an unsigned number.
template <class Number>
std::array<char, sizeof(Number)> ToLittleEndian(Number number) {
    std::array<char, sizeof(Number)> bytes;
    for (char& byte : bytes) {
        byte = static_cast<char>(number & 0xFF);
        number >>= 8;
    }
    return bytes;
}

/// The unsigned number that the first bytes of `bytes` hold; there must be as many as it takes.
template <class Number>
Number FromLittleEndian(const char* bytes) {
    Number number = 0;
    for (std::size_t i = sizeof(Number); i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[i]);
    return number;
}

/// Sets a text to so many units of two bytes, up to the first that is zero.
void AssignUnits(std::u16string& text, const char* bytes, std::size_t units);

/// Writes the units of a text at the file's position.
void WriteUnits(CFile& file, std::u16string_view text);

}  // namespace orvale
