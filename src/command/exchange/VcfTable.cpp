#include "command/exchange/VcfTable.h"

#include <algorithm>
#include <vector>

namespace orvale {
namespace {

using namespace vcf;
using enum VcfShape;

constexpr VcfType kTypes[] = {
    {"HOME", kHome, "HOME", "home"},
    {"WORK", kWork, "WORK", "work"},
    {"CELL", kCell, "CELL", "cell"},
    {"MOBILE", kCell, "", ""},
    {"FAX", kFax, "FAX", "fax"},
    {"PAGER", kPager, "PAGER", "pager"},
    {"VOICE", kVoice, "VOICE", "voice"},
    {"PREF", kPref, "PREF", ""},  // a parameter of its own in 4.0
    {"CAR", kCar, "CAR", "x-car"},
    {"ISDN", kIsdn, "ISDN", "x-isdn"},
    {"CALLBACK", kCallback, "X-CALLBACK", "x-callback"},
    {"COMPANY", kCompany, "X-COMPANY", "x-company"},
    {"ASSISTANT", kAssistant, "X-ASSISTANT", "x-assistant"},
    {"RADIO", kRadio, "X-RADIO", "x-radio"},
    {"TEXTPHONE", kTextPhone, "X-TEXTPHONE", "textphone"},
    {"TTYTDD", kTextPhone, "", ""},
    {"TTY-TDD", kTextPhone, "", ""},
    {"TELEX", kTelex, "X-TELEX", "x-telex"},
    {"TLX", kTelex, "", ""},
    {"OTHER", kOther, "X-OTHER", "x-other"},
    {"POSTAL", kPostal, "POSTAL", "x-postal"},
    {"GENERAL", kGeneral, "X-GENERAL", "x-general"},
    {"INTERNET", kInternet, "INTERNET", ""},
};

constexpr VcfRow Value(std::string_view property, std::uint32_t types, VcfShape shape, std::int32_t id,
                       std::int32_t count = 1, unsigned written = kBoth) {
    return {property, types, shape, kWhole, id, count, written, false};
}

constexpr VcfRow Part(std::string_view property, std::uint32_t types, int part, std::int32_t id) {
    return {property, types, kParts, part, id, 1, kBoth, false};
}

constexpr VcfRow ById(std::string_view property, std::uint32_t types, int part, std::int32_t id) {
    return {property, types, kParts, part, id, 1, kBoth, true};
}

// A property whose value is no field.
constexpr VcfRow Special(std::string_view property, VcfShape shape) {
    return {property, 0, shape, kWhole, 0, 0, kNever, false};
}

// Rows of a kind stand together, and so do kinds of a property. Within a property the first kind that a line's types
// allow is the one, so that what says more stands first; the last is for all that remains.
constexpr VcfRow kRows[] = {
    Part("N", 0, 0, CF_FAMILY_NAME),
    Part("N", 0, 1, CF_GIVEN_NAME),
    Part("N", 0, 2, CF_MIDDLE_NAME),
    Part("N", 0, 3, CF_NAME_PREFIX),
    Part("N", 0, 4, CF_NAME_SUFFIX),
    Value("FN", 0, kText, CF_FULL_NAME),
    Value("NICKNAME", 0, kText, CF_NICKNAME),

    Value("TEL", kHome | kFax, kPhone, CF_TEL_HOME_FAX),
    Value("TEL", kWork | kFax, kPhone, CF_TEL_WORK_FAX),
    Value("TEL", kFax, kPhone, CF_TEL_FAX),
    Value("TEL", kPager, kPhone, CF_TEL_PAGER_VOICE),
    Value("TEL", kPager, kPhone, CF_TEL_PAGER),
    Value("TEL", kCar, kPhone, CF_TEL_CAR),
    Value("TEL", kIsdn, kPhone, CF_TEL_ISDN),
    Value("TEL", kCallback, kPhone, CF_TEL_CALLBACK),
    Value("TEL", kCompany, kPhone, CF_TEL_COMPANY),
    Value("TEL", kAssistant, kPhone, CF_TEL_ASSISTANT),
    Value("TEL", kRadio, kPhone, CF_TEL_RADIO),
    Value("TEL", kTextPhone, kPhone, CF_TEL_TTYTDD),
    Value("TEL", kTelex, kPhone, CF_TELEX),
    Value("TEL", kCell, kPhone, CF_TEL_CELL_VOICE),
    Value("TEL", kCell, kPhone, CF_TEL_CELL),
    Value("TEL", kWork, kPhone, CF_TEL_WORK_VOICE),
    Value("TEL", kWork, kPhone, CF_TEL_WORK_VOICE_2),
    Value("TEL", kHome, kPhone, CF_TEL_HOME_VOICE),
    Value("TEL", kHome, kPhone, CF_TEL_HOME),
    Value("TEL", kPref, kPhone, CF_TEL_PREF),
    Value("TEL", kOther, kPhone, CF_TEL_OTHER),
    Value("TEL", kVoice, kPhone, CF_TEL_VOICE),
    Value("TEL", kVoice, kPhone, CF_TEL_OTHER, 1, kNever),  // a second number of no kind

    Value("EMAIL", kTelex, kText, CF_TELEX, 1, kNever),
    Value("EMAIL", kInternet, kEmail, CF_EMAIL_PREF, CF_URL_1 - CF_EMAIL_PREF),
    Value("URL", 0, kUri, CF_URL_1, CF_URL_3 - CF_URL_1 + 1),

    Part("ADR", kHome, kStreet, CF_ADR_HOME_STREET),
    Part("ADR", kHome, 3, CF_ADR_HOME_CITY),
    Part("ADR", kHome, kRegion, CF_ADR_HOME_REGION),
    Part("ADR", kHome, 5, CF_ADR_HOME_POSTCODE),
    Part("ADR", kHome, 6, CF_ADR_HOME_COUNTRY),
    ById("ADR", kHome, kRegion, CF_ADR_HOME_REGION_2),
    ById("ADR", kHome, kWhole, CF_ADR_HOME),
    Part("ADR", kWork, kExtended, CF_ADR_WORK_EXTENDED),
    Part("ADR", kWork, kStreet, CF_ADR_WORK_STREET),
    Part("ADR", kWork, 3, CF_ADR_WORK_CITY),
    Part("ADR", kWork, kRegion, CF_ADR_WORK_REGION),
    Part("ADR", kWork, 5, CF_ADR_WORK_POSTCODE),
    Part("ADR", kWork, 6, CF_ADR_WORK_COUNTRY),
    ById("ADR", kWork, kRegion, CF_ADR_WORK_REGION_2),
    ById("ADR", kWork, kWhole, CF_ADR_WORK),
    ById("ADR", kGeneral, kWhole, CF_ADR_GENERAL),
    Part("ADR", kPostal, kStreet, CF_ADR_POSTAL_STREET),
    Part("ADR", kPostal, 3, CF_ADR_POSTAL_CITY),
    Part("ADR", kPostal, kRegion, CF_ADR_POSTAL_REGION),
    Part("ADR", kPostal, 5, CF_ADR_POSTAL_POSTCODE),
    Part("ADR", kPostal, 6, CF_ADR_POSTAL_COUNTRY),
    ById("ADR", kPostal, kRegion, CF_ADR_POSTAL_REGION_2),
    ById("ADR", kPostal, kWhole, CF_ADR_POSTAL),

    // In 4.0 a parameter of ADR.
    Value("LABEL", kHome, kText, CF_LABEL_HOME),
    Value("LABEL", kWork, kText, CF_LABEL_WORK),
    Value("LABEL", kPostal, kText, kVCardPostalLabel),
    Value("LABEL", 0, kText, CF_LABEL_WORK, 1, kNever),

    Part("ORG", 0, 0, CF_ORG),
    Part("ORG", 0, 1, CF_ORG_UNIT),
    ById("ORG", 0, kWhole, CF_ORG),  // with its semicolons
    ById("ORG", 0, 0, CF_ORG_NAME),
    Value("TITLE", 0, kText, CF_TITLE),
    Value("ROLE", 0, kText, CF_ROLE),
    Value("BDAY", 0, kDate, CF_BIRTHDAY),
    Value("GENDER", 0, kGender, CF_GENDER, 1, k40),
    Value("X-GENDER", 0, kText, CF_GENDER, 1, k30),
    Value("X-WAB-GENDER", 0, kText, CF_GENDER, 1, kNever),
    Value("NOTE", 0, kText, CF_NOTE),

    Special("CATEGORIES", kCategories),
    Special(vcf::kField, VcfShape::kField),
    Special(vcf::kExtra, VcfShape::kExtra),
    Special(vcf::kGroup, VcfShape::kGroup),
    Special(vcf::kStorage, VcfShape::kStorage),
    Special("VERSION", kSilent),
    Special("REV", kSilent),
    Special("PRODID", kSilent),
};

// The rows of each property, by the length of its name: every line of a card asks for one.
using RowsByLength = std::array<std::vector<VcfKind>, 20>;

const RowsByLength& Properties() {
    static const RowsByLength properties = [] {
        RowsByLength table;
        for (const auto* first = std::begin(kRows); first != std::end(kRows);) {
            const auto* const last = std::find_if(first, std::end(kRows),
                                                  [&](const VcfRow& row) { return row.property != first->property; });
            table.at(first->property.size()).emplace_back(first, last);
            first = last;
        }
        return table;
    }();
    return properties;
}

bool Holds(const VcfRow& row, std::int32_t id) {
    return id >= row.id && id - row.id < row.count;
}

// Rows of one id, such as those of two names for a property, have one slot.
constexpr auto kSlots = [] {
    std::array<std::uint8_t, std::size(kRows)> slots{};
    for (std::size_t i = 0; i < slots.size(); ++i) {
        std::size_t first = 0;
        while (kRows[first].id != kRows[i].id)
            ++first;
        slots[i] = static_cast<std::uint8_t>(first);
    }
    return slots;
}();

std::size_t SlotOf(const VcfRow& row) {
    return kSlots[static_cast<std::size_t>(&row - kRows)];
}

}  // namespace

std::span<const VcfType> VcfTypes() {
    return kTypes;
}

std::uint32_t VcfTypeBit(std::string_view name) {
    if (name.size() > 2 && (name[0] == 'X' || name[0] == 'x') && name[1] == '-') name.remove_prefix(2);
    for (const VcfType& type : kTypes)
        if (VcfSameName(type.name, name)) return type.bit;
    return 0;
}

std::span<const VcfRow> VcfRowsOf(std::string_view property) {
    const RowsByLength& properties = Properties();
    if (property.size() >= properties.size()) return {};
    for (const VcfKind& rows : properties[property.size()])
        if (VcfSameName(rows.front().property, property)) return rows;
    return {};
}

VcfKind VcfKindOf(std::span<const VcfRow> rows, std::uint32_t types) {
    const auto fits = [&](const VcfRow& row) { return (row.types & types) == row.types; };
    auto first = std::find_if(rows.begin(), rows.end(), fits);
    if (first == rows.end()) {
        const std::uint32_t last = rows.back().types;
        first = std::find_if(rows.begin(), rows.end(), [&](const VcfRow& row) { return row.types == last; });
    }
    const std::uint32_t own = first->types;
    return {first, std::find_if(first, rows.end(), [&](const VcfRow& row) { return row.types != own; })};
}

const VcfRow* VcfRowOfId(std::int32_t id, VcfVersion version) {
    static_assert(std::size(kRows) <= VcfIds::kMostRows);
    for (const VcfRow& row : kRows)
        if (Holds(row, id) && (row.written & static_cast<unsigned>(version)) != 0) return &row;
    return nullptr;
}

std::int32_t VcfIds::Next(VcfKind kind) const {
    for (const VcfRow& row : kind)
        if (const std::int32_t gone = next_[SlotOf(row)]; gone < row.count) return row.id + gone;
    return kind.back().id + kind.back().count - 1;
}

std::int32_t VcfIds::TakeNext(VcfKind kind) {
    for (const VcfRow& row : kind)
        if (next_[SlotOf(row)] < row.count) return TakeFrom(row, row.id + next_[SlotOf(row)]);
    return Next(kind);
}

void VcfIds::Take(std::int32_t id) {
    for (const VcfRow& row : kRows) {
        if (!Holds(row, id)) continue;
        TakeFrom(row, id);
        break;  // rows of one id share their slot
    }
}

std::int32_t VcfIds::TakeFrom(const VcfRow& row, std::int32_t id) {
    std::int32_t& next = next_[SlotOf(row)];
    const std::int32_t offset = id - row.id;
    if (offset > next) ahead_.insert(id);
    if (offset != next) return id;
    do
        ++next;
    while (!ahead_.empty() && ahead_.erase(row.id + next) != 0);
    return id;
}

}  // namespace orvale
