#pragma once

#include <cstddef>
#include <vector>

#include "records/GeneralSyncData.h"

/// Records such as people keep, the same each time.
namespace orvale::bench {

std::vector<CCalendarItem> MakeItems(std::size_t count);
std::vector<CSMSItem> MakeMessages(std::size_t count);
std::vector<CEmailItem> MakeEmails(std::size_t count);

}  // namespace orvale::bench
