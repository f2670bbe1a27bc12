#pragma once

#include <cstdint>
#include <string_view>

/// The keys of a vCard's lines. A key is compared whole, parameters and all, so their order counts.
namespace orvale {

/// One key and the contact field type id under which its value stands, or a negative id for a key with a rule of its
/// own.
struct VCardPropertyRow {
    std::u16string_view key;
    std::int32_t id;
};

inline constexpr std::int32_t kVCardName = -2;            ///< five parts: family, given, middle, prefix, suffix
inline constexpr std::int32_t kVCardWorkPhone = -100;     ///< the first 100, later ones 101
inline constexpr std::int32_t kVCardEmail = -1001;        ///< 1001 and on, counting up
inline constexpr std::int32_t kVCardWorkAddress = -2001;  ///< each address: whole, and in parts
inline constexpr std::int32_t kVCardHomeAddress = -2000;
inline constexpr std::int32_t kVCardPostalAddress = -2049;
inline constexpr std::int32_t kVCardPostalLabel = -1;       ///< a field id of its own
inline constexpr std::int32_t PROPERTY_UNKNOWN = -1048576;  ///< a key that no row holds
inline constexpr std::int32_t PROPERTY_IGNORED = -1048577;  ///< a key whose line is taken and dropped

/// The id of a key, without regard to case: that of the first row that matches, or PROPERTY_UNKNOWN.
std::int32_t GetPropertyId(std::u16string_view key);

/// The key of an id: that of the first row that matches, or "NONE".
std::u16string_view GetPropertyKey(std::int32_t id);

/// The key under which the value of an id is quoted-printable; empty where the id has no such row.
std::u16string_view GetQuotedPrintableKey(std::int32_t id);

}  // namespace orvale
