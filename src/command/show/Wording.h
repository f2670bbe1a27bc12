#pragma once

#include <optional>
#include <string>

#include "records/GeneralSyncData.h"

namespace orvale {

/// How a person is told what a record says: what the listing and the page have in common.

/// "March"; "month 13" for what is no month.
std::u16string MonthName(int month);

/// "Monday, 17 March 2008".
std::u16string DayText(const CalendarFields& fields);

/// The parts of a date; none for no date.
std::optional<CalendarFields> FieldsOf(const DateValue& date);

bool SameDay(const CalendarFields& a, const CalendarFields& b);

/// How an entry repeats, in words; what the phone's own combinations don't explain is told as the numbers that it is.
std::u16string RecurrenceText(const CCalendarItem& item);

/// "30 minutes before"; for an alarm that is set.
std::u16string AlarmText(const CCalendarItem& item);

/// The text of the first field of a type; empty if there is none.
std::u16string TextOf(const CContactItem& contact, std::int32_t type);

/// The texts with a separator between.
std::u16string Joined(const std::vector<std::u16string>& texts, std::u16string_view separator = u", ");

}  // namespace orvale
