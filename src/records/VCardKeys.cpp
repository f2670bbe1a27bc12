#include "records/VCardKeys.h"

#include <array>
#include <iterator>

#include "platform/Text.h"
#include "records/ContactFieldTypes.h"

namespace orvale {
namespace {

// The order is part of the table: both look-ups take the first row that matches.
constexpr VCardPropertyRow kVCardProperties[] = {
    {u"N", kVCardName},
    {u"FN", CF_FULL_NAME},
    {u"NICKNAME", CF_NICKNAME},
    {u"TEL;WORK;VOICE", kVCardWorkPhone},
    {u"TEL;WORK;FAX", CF_TEL_WORK_FAX},
    {u"TEL;HOME;VOICE", CF_TEL_HOME_VOICE},
    {u"TEL;HOME", CF_TEL_HOME},
    {u"TEL;HOME;FAX", CF_TEL_HOME_FAX},
    {u"TEL;CELL;VOICE", CF_TEL_CELL_VOICE},
    {u"TEL;CAR;VOICE", CF_TEL_CAR},
    {u"TEL;VOICE", CF_TEL_VOICE},
    {u"TEL;PAGER;VOICE", CF_TEL_PAGER_VOICE},
    {u"TEL;ISDN", CF_TEL_ISDN},
    {u"TEL;PREF", CF_TEL_PREF},
    {u"EMAIL;TLX", CF_TELEX},
    {u"EMAIL;PREF;INTERNET", CF_EMAIL_PREF},
    {u"EMAIL;INTERNET", kVCardEmail},
    {u"NOTE", CF_NOTE},
    {u"NOTE;ENCODING=QUOTED-PRINTABLE", CF_NOTE},
    {u"URL;WORK", CF_URL_1},
    {u"URL;WORK", CF_URL_2},  // this row and the next are reached by their ids alone, when writing
    {u"URL;WORK", CF_URL_3},
    {u"ADR;WORK", kVCardWorkAddress},
    {u"ADR;WORK;ENCODING=QUOTED-PRINTABLE", kVCardWorkAddress},
    {u"LABEL;WORK", CF_LABEL_WORK},
    {u"LABEL;WORK;ENCODING=QUOTED-PRINTABLE", CF_LABEL_WORK},
    {u"ADR;HOME", kVCardHomeAddress},
    {u"ADR;HOME;ENCODING=QUOTED-PRINTABLE", kVCardHomeAddress},
    {u"LABEL;HOME", CF_LABEL_HOME},
    {u"LABEL;HOME;ENCODING=QUOTED-PRINTABLE", CF_LABEL_HOME},
    {u"ADR;POSTAL", kVCardPostalAddress},
    {u"ADR;POSTAL;ENCODING=QUOTED-PRINTABLE", kVCardPostalAddress},
    {u"LABEL;POSTAL", kVCardPostalLabel},
    {u"LABEL;POSTAL;ENCODING=QUOTED-PRINTABLE", kVCardPostalLabel},
    {u"X-WAB-GENDER", CF_GENDER},
    {u"ROLE", CF_ROLE},
    {u"BDAY", CF_BIRTHDAY},
    {u"REV", PROPERTY_IGNORED},
    {u"TEL;CELL", CF_TEL_CELL},
    {u"TEL;OTHER", CF_TEL_OTHER},
    {u"TEL;PAGER", CF_TEL_PAGER},
    {u"TEL;FAX", CF_TEL_FAX},
    {u"TEL;CALLBACK;VOICE", CF_TEL_CALLBACK},
    {u"TEL;COMPANY;VOICE", CF_TEL_COMPANY},
    {u"TEL;ASSISTANT;VOICE", CF_TEL_ASSISTANT},
    {u"TEL;RADIO;VOICE", CF_TEL_RADIO},
    {u"TEL;TTYTDD;VOICE", CF_TEL_TTYTDD},
    {u"ADR;GENERAL", CF_ADR_GENERAL},
    {u"ADR;GENERAL;ENCODING=QUOTED-PRINTABLE", CF_ADR_GENERAL},
    {u"ORG", CF_ORG},
    {u"TITLE", CF_TITLE},
};

constexpr std::size_t kRows = std::size(kVCardProperties);
constexpr std::size_t kChains = 64;

// The rows whose keys have the same hash form a chain, in the table's order: every line of a card asks for one.
struct KeyIndex {
    std::array<std::size_t, kChains> first{};  // a row, or kRows
    std::array<std::size_t, kRows> next{};     // the row behind each
};

// Of what the keys part at, without regard to case: their length and their fifth unit, which stands behind "TEL;" and
// "ADR;". The factors are such that few keys of the table meet.
constexpr std::size_t ChainOf(std::u16string_view key) {
    const char16_t unit = ToLower(key.size() > 4 ? key[4] : key.front());
    return (key.size() * 5 + unit * 27U) % kChains;
}

constexpr KeyIndex MakeIndex() {
    KeyIndex index;
    index.first.fill(kRows);
    for (std::size_t row = kRows; row-- > 0;) {
        std::size_t& first = index.first[ChainOf(kVCardProperties[row].key)];
        index.next[row] = first;
        first = row;
    }
    return index;
}

constexpr KeyIndex kKeyIndex = MakeIndex();

}  // namespace

std::int32_t GetPropertyId(std::u16string_view key) {
    if (key.empty()) return PROPERTY_UNKNOWN;
    for (std::size_t row = kKeyIndex.first[ChainOf(key)]; row != kRows; row = kKeyIndex.next[row])
        if (EqualsNoCase(kVCardProperties[row].key, key)) return kVCardProperties[row].id;
    return PROPERTY_UNKNOWN;
}

std::u16string_view GetPropertyKey(std::int32_t id) {
    for (const VCardPropertyRow& row : kVCardProperties)
        if (row.id == id) return row.key;
    return u"NONE";
}

std::u16string_view GetQuotedPrintableKey(std::int32_t id) {
    for (const VCardPropertyRow& row : kVCardProperties)
        if (row.id == id && row.key.ends_with(u";ENCODING=QUOTED-PRINTABLE")) return row.key;
    return {};
}

}  // namespace orvale
