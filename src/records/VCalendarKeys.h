#pragma once

#include <cstdint>
#include <string_view>

#include "records/VCardKeys.h"
#include "records/ValueTables.h"

/// The keys of a vCalendar's lines. A key is compared whole, parameters and all: "SUMMARY" alone is an unknown one.
namespace orvale {

// Ids of the properties that are no field of an item; those that are have the field's type for an id.
inline constexpr std::int32_t kVCalendarStart = 3013;
inline constexpr std::int32_t kVCalendarEnd = 3014;
inline constexpr std::int32_t kVCalendarPriority = 3015;
inline constexpr std::int32_t kVCalendarBegin = 3100;         ///< of whatever: it makes the item an event
inline constexpr std::int32_t kVCalendarTransparency = 3101;  ///< this and the next two: the line is dropped
inline constexpr std::int32_t kVCalendarUid = 3102;
inline constexpr std::int32_t kVCalendarClose = 3103;

/// One key, and whether its value is in quoted-printable: those are the fields of an item.
struct VCalendarPropertyRow {
    std::u16string_view key;
    std::int32_t id;
    bool quotedPrintable;
};

inline constexpr VCalendarPropertyRow kVCalendarProperties[] = {
    {u"DTSTART", kVCalendarStart, false},
    {u"DTEND", kVCalendarEnd, false},
    {u"LOCATION;ENCODING=QUOTED-PRINTABLE", CAL_FIELD_LOCATION, true},
    {u"DESCRIPTION;ENCODING=QUOTED-PRINTABLE", CAL_FIELD_BODY, true},
    {u"SUMMARY;ENCODING=QUOTED-PRINTABLE", CAL_FIELD_DESCRIPTION, true},
    {u"PRIORITY", kVCalendarPriority, false},
    {u"BEGIN", kVCalendarBegin, false},
    {u"TRANSP", kVCalendarTransparency, false},
    {u"UID", kVCalendarUid, false},
    {u"END", kVCalendarClose, false},
};

/// The id of a key, without regard to case, or PROPERTY_UNKNOWN.
std::int32_t GetVCalendarPropertyId(std::u16string_view key);

/// The row of an id, or null.
const VCalendarPropertyRow* FindVCalendarProperty(std::int32_t id);

/// Whether an id is the type of a field that has a key.
bool IsVCalendarField(std::int32_t id);

}  // namespace orvale
