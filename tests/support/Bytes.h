#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The items of a native file, put together byte by byte and apart from the code that is tested.
namespace orvale::test {

inline std::string Int32(std::int64_t number) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<char>(number >> shift & 0xFF));
    return bytes;
}

inline std::string Units(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text)
        bytes.append({static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)});
    return bytes;
}

inline std::string String(std::u16string_view text) {
    return Int32(static_cast<std::int64_t>(text.size())) + Units(text);
}

}  // namespace orvale::test
