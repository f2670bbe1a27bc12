#include "frame/LittleEndian.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>

#include "platform/File.h"
#include "platform/Text.h"

namespace orvale {

void AssignUnits(std::u16string& text, const char* bytes, std::size_t units) {
    text.resize(units);
    for (std::size_t i = 0; i < units; ++i) {
        text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                        static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
    }
    text.resize(std::min(units, FindUnit(text, u'\0')));
}

void WriteUnits(CFile& file, std::u16string_view text) {
    if constexpr (std::endian::native == std::endian::little) {
        // Whole in one write while the count fits its 32 bits; the rest of a text beyond all measure follows.
        constexpr std::size_t kMost = std::numeric_limits<std::uint32_t>::max() / sizeof(char16_t);
        for (; !text.empty(); text.remove_prefix(std::min(text.size(), kMost))) {
            const std::size_t units = std::min(text.size(), kMost);
            file.CFile::Write(text.data(), static_cast<std::uint32_t>(units * sizeof(char16_t)));
        }
    } else {
        for (const char16_t unit : text) {
            const std::array<char, 2> bytes = ToLittleEndian(static_cast<std::uint16_t>(unit));
            file.CFile::Write(bytes.data(), bytes.size());
        }
    }
}

}  // namespace orvale
