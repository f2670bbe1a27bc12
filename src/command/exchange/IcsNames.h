#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "command/exchange/IcalLibrary.h"
#include "records/CalendarItem.h"

/// How the values of an entry are called in iCalendar, for reading and writing.
namespace orvale::ics {

/// A text of an entry that has a property.
struct TextRow {
    std::int32_t type;
    icalproperty_kind kind;
    const char* name;
    bool once;  ///< a component has one at most
};

inline constexpr TextRow kTexts[] = {
    {CAL_FIELD_DESCRIPTION, ICAL_SUMMARY_PROPERTY, "SUMMARY", true},
    {CAL_FIELD_BODY, ICAL_DESCRIPTION_PROPERTY, "DESCRIPTION", true},
    {CAL_FIELD_LOCATION, ICAL_LOCATION_PROPERTY, "LOCATION", true},
    {CAL_FIELD_URL, ICAL_URL_PROPERTY, "URL", true},
    {CAL_FIELD_PHONENO, ICAL_CONTACT_PROPERTY, "CONTACT", false},
};

/// A number of an entry. It has a property of our own where no other one tells it, or not exactly.
struct NumberRow {
    std::string_view name;
    std::int32_t CCalendarItem::*member;
};

inline constexpr NumberRow kNumbers[] = {
    {"X-ORVALE-ITEM-TYPE", &CCalendarItem::itemType},   {"X-ORVALE-OPERATION", &CCalendarItem::operation},
    {"X-ORVALE-RING-ID", &CCalendarItem::ringid},       {"X-ORVALE-VIBRATION", &CCalendarItem::vibration},
    {"X-ORVALE-SECRET", &CCalendarItem::secret},        {"X-ORVALE-DURATION", &CCalendarItem::duration},
    {"X-ORVALE-REMINDER", &CCalendarItem::remindermin}, {"X-ORVALE-PRIORITY", &CCalendarItem::priority},
    {"X-ORVALE-COMPLETE", &CCalendarItem::complete},    {"X-ORVALE-RESERVE-1", &CCalendarItem::reserve1},
    {"X-ORVALE-RESERVE-2", &CCalendarItem::reserve2},   {"X-ORVALE-CATEGORY", &CCalendarItem::category},
};

// The other properties of our own, and our parameters.
inline constexpr std::string_view kField = "X-ORVALE-FIELD";  ///< a text without a property; TYPE tells which
inline constexpr std::string_view kRing = "X-ORVALE-RING";
inline constexpr std::string_view kRecurrence = "X-ORVALE-RECURRENCE";  ///< see RecurrenceNumbers
inline constexpr std::string_view kEnd = "X-ORVALE-END";                ///< an end that doesn't come after the start
inline constexpr const char* kTypeParameter = "X-ORVALE-TYPE";
inline constexpr const char* kNumberParameter = "X-ORVALE-NUMBER";  ///< the number that a text has
inline constexpr const char* kExactParameter = "X-ORVALE-EXACT";    ///< a text as it is, its UTF-8 with percent signs
inline constexpr const char* kExactNothing = "-";                   ///< its value for no text at all
inline constexpr const char* kDateParameter = "X-ORVALE-DATE";      ///< a date as it is, its number

/// What comes back of a text without kExactParameter: lines that end in CR LF, neither blanks at its ends nor control
/// characters, and a hyphen for nothing.
std::u16string PlainForm(std::u16string_view text);

/// iCalendar counts priorities from 1, the highest, to 9; 0 is none.
constexpr int PriorityOf(std::int32_t phone) {
    return phone == CAL_TASK_PRIORITY_HIGH ? 1 : phone == CAL_TASK_PRIORITY_LOW ? 9 : 5;
}
constexpr std::int32_t PriorityOfPhone(int priority) {
    if (priority >= 1 && priority <= 4) return CAL_TASK_PRIORITY_HIGH;
    return priority >= 6 ? CAL_TASK_PRIORITY_LOW : CAL_TASK_PRIORITY_NORMAL;
}

/// The name of a category, "PHONE CALL"; empty for a number without one.
std::string CategoryName(std::int32_t category);

}  // namespace orvale::ics
