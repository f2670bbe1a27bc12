#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "command/exchange/IcalLibrary.h"
#include "records/CalendarItem.h"

/// A phone tells a recurrence by combinations of an entry's numbers, iCalendar by a rule. A rule is never expanded
/// here.
namespace orvale {

/// The rule of an entry's recurrence, "FREQ=DAILY;COUNT=3"; none where it doesn't recur, or where its numbers are no
/// combination that a phone tells a recurrence by.
std::optional<std::string> RuleOf(const CCalendarItem& item);

/// The numbers of an entry's recurrence in one text, for what a rule doesn't tell, and back; false for another text.
std::string RecurrenceNumbers(const CCalendarItem& item);
bool TakeRecurrenceNumbers(CCalendarItem& item, std::string_view text);

/// Gives an entry the recurrence of a rule, its limits left out. `start` is the entry's start in the zone that the rule
/// goes by, `daysLater` how many days later the same moment is for the entry. Null, or why a phone can't hold the rule,
/// in words behind which "which stand once" may come; the entry doesn't recur then.
const char* TakeRule(CCalendarItem& item, const icalrecurrencetype& rule, const CalendarFields& start, int daysLater);

/// Makes an entry one that doesn't recur.
void ClearRecurrence(CCalendarItem& item);

/// A date and time as iCalendar writes them, "20100726T060000".
std::string DateTimeText(const CalendarFields& fields);

}  // namespace orvale
