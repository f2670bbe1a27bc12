#pragma once

#include <cstddef>
#include <string>

#include "command/exchange/CalendarZones.h"
#include "command/exchange/NoteTally.h"
#include "records/CalendarItem.h"

/// An entry of a phone's calendar as a component of iCalendar. What iCalendar has no place for stands in properties of
/// our own, X-ORVALE-...; they count only as long as nobody changes what they add to.
namespace orvale {

/// Fills a new entry from the text of a VEVENT or VTODO; what has no place in it goes to the notes, with the
/// component's first line. False if it can't be read at all.
bool ReadEntry(CCalendarItem& item, const std::string& component, std::size_t line, CalendarZones& zones,
               NoteTally& notes);

/// What of the entries written so far the user should know.
struct IcsWriterNotes {
    std::size_t replaced = 0;       ///< halves of characters
    std::size_t rulelessCount = 0;  ///< recurrences that iCalendar has no rule for
};

/// The component of an entry, its lines ended by CR LF.
std::string WriteEntry(const CCalendarItem& item, const std::string& uid, const std::string& stamp,
                       IcsWriterNotes& notes);

/// Whether ReadEntry looks at lines of this name, in capitals.
bool IsPropertyOfEntry(std::string_view name);

}  // namespace orvale
