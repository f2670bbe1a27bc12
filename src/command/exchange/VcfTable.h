#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <span>
#include <string_view>

#include "records/ContactFieldTypes.h"
#include "records/VCardKeys.h"

/// What the properties of a vCard are to a contact: one table for both directions and all versions.
namespace orvale {

enum class VcfVersion : unsigned { k21 = 1, k30 = 2, k40 = 4 };

/// How a value becomes a field.
enum class VcfShape {
    kText,        ///< as it stands
    kUri,         ///< not escaped but for backslashes and line ends
    kEmail,       ///< a scheme is none of it, unless its id is told
    kPhone,       ///< the same
    kDate,        ///< a day, unless its id is told: then as it stands
    kGender,      ///< letter and text of 4.0
    kParts,       ///< by its parts
    kCategories,  ///< the contact's groups
    kField,       ///< ours: a field that no other property holds
    kExtra,       ///< ours: what a field has beside its value
    kGroup,       ///< ours: a group of another field than the name
    kStorage,     ///< ours: the contact's memory
    kSilent,      ///< says nothing of the contact
};

/// The bits of a line's types.
namespace vcf {
enum Type : std::uint32_t {
    kHome = 1 << 0,
    kWork = 1 << 1,
    kCell = 1 << 2,
    kFax = 1 << 3,
    kPager = 1 << 4,
    kVoice = 1 << 5,
    kPref = 1 << 6,
    kCar = 1 << 7,
    kIsdn = 1 << 8,
    kCallback = 1 << 9,
    kCompany = 1 << 10,
    kAssistant = 1 << 11,
    kRadio = 1 << 12,
    kTextPhone = 1 << 13,
    kTelex = 1 << 14,
    kOther = 1 << 15,
    kPostal = 1 << 16,
    kGeneral = 1 << 17,
    kInternet = 1 << 18,
};

inline constexpr int kWhole = -1;  ///< a value that isn't taken apart

// The parts of an address.
inline constexpr int kExtended = 1;
inline constexpr int kStreet = 2;
inline constexpr int kRegion = 4;
inline constexpr int kAddressParts = 7;

// Our own properties and parameter. Programs of others pass such over.
inline constexpr std::string_view kField = "X-ORVALE-FIELD";
inline constexpr std::string_view kExtra = "X-ORVALE-EXTRA";
inline constexpr std::string_view kGroup = "X-ORVALE-GROUP";
inline constexpr std::string_view kStorage = "X-ORVALE-STORAGE";

/// The type id that a value has in place of the one that its property tells; 0 for a value that is none.
inline constexpr std::string_view kIdParameter = "X-ORVALE-ID";

// Who uses a row.
inline constexpr unsigned kNever = 0;
inline constexpr unsigned k30 = static_cast<unsigned>(VcfVersion::k30);
inline constexpr unsigned k40 = static_cast<unsigned>(VcfVersion::k40);
inline constexpr unsigned kBoth = k30 | k40;
}  // namespace vcf

/// A type as a line names it, and as it is written; empty where a version has no word for it. The first row of a bit is
/// the one that is written. "X-" before a name makes no difference to a reader.
struct VcfType {
    std::string_view name;
    std::uint32_t bit;
    std::string_view in30;
    std::string_view in40;
};

std::span<const VcfType> VcfTypes();

/// The bit of a type, whatever its case; 0 for one that tells nothing.
std::uint32_t VcfTypeBit(std::string_view name);

/// One value of a property.
struct VcfRow {
    std::string_view property;
    std::uint32_t types;  ///< that a line has to have, and gets
    VcfShape shape;
    int part;            ///< of a value in parts; or kWhole
    std::int32_t id;     ///< of the field
    std::int32_t count;  ///< how many ids from there on belong to the row
    unsigned written;    ///< by which versions; a reader takes all
    bool onlyById;       ///< reached only where the line itself tells the id
};

/// The rows of a property that stand for one kind of it, such as mobile numbers; each value goes to the next free id.
using VcfKind = std::span<const VcfRow>;

/// All rows of a property, whatever the case of its name; empty for one that a contact has no place for.
std::span<const VcfRow> VcfRowsOf(std::string_view property);

/// The kind that a line's types tell: the first of whose types the line lacks none, else the last.
VcfKind VcfKindOf(std::span<const VcfRow> rows, std::uint32_t types);

/// The row under which a version writes a field; null if it has none.
const VcfRow* VcfRowOfId(std::int32_t id, VcfVersion version);

/// All rows of a row's kind.
inline VcfKind VcfKindOf(const VcfRow& row) {
    return VcfKindOf(VcfRowsOf(row.property), row.types);
}

/// Whether two names of properties, parameters or types are the same. Only ASCII has a case here.
inline bool VcfSameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && upper(a[i]) != upper(b[i])) return false;
    return true;
}

/// Which ids of a card are taken: reader and writer go by the same rule, so that the writer knows where it has to tell
/// an id.
class VcfIds {
 public:
    static constexpr std::size_t kMostRows = 96;  // of the table

    /// The id that the next value of a kind gets: its first free one, or its last.
    std::int32_t Next(VcfKind kind) const;

    /// The same, and takes it.
    std::int32_t TakeNext(VcfKind kind);

    /// Takes an id that a line told.
    void Take(std::int32_t id);

    void Clear() {
        next_.fill(0);
        ahead_.clear();
    }

 private:
    std::int32_t TakeFrom(const VcfRow& row, std::int32_t id);

    std::array<std::int32_t, kMostRows> next_{};  // how many ids of each row are gone, from its first on
    std::set<std::int32_t> ahead_;                // taken beyond these
};

}  // namespace orvale
