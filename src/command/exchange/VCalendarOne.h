#pragma once

#include <string>
#include <vector>

#include "command/exchange/ContentLines.h"

namespace orvale {

/// A line of an entry of vCalendar 1.0 as the lines of iCalendar that say the same: texts out of their encoding, lists,
/// alarms and rules in their new forms. None where iCalendar has nothing to say it by.
std::vector<std::string> AsICalendar(const ContentLine& line);

}  // namespace orvale
