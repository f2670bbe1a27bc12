#pragma once

#include <cstddef>
#include <string>

#include "command/exchange/NoteTally.h"
#include "platform/DateValue.h"
#include "records/EmailItem.h"

/// An email of a phone as a message of the internet, its lines ended by LF. What such a message has no place for stands
/// in head lines of our own, X-Orvale-...
namespace orvale {

/// Fills a new email from a message and the moment at which its mailbox received it; what has no place in it goes to
/// the notes, with the message's first line.
void ReadMessage(CEmailItem& email, const std::string& message, const DateValue& received, std::size_t line,
                 NoteTally& notes);

/// The message of an email, which the mailbox says to have received at that moment. `identifier` is for an email whose
/// own can't stand in a message; `replaced` is raised by one for each half of a character.
std::string WriteMessage(const CEmailItem& email, const DateValue& received, const std::string& identifier,
                         std::size_t& replaced);

/// Seconds since 1970 in UTC as a date of the process's zone, and back; none where there is no such date.
DateValue DateOfSeconds(std::int64_t seconds);
std::optional<CalendarFields> UtcOf(const DateValue& date);

}  // namespace orvale
