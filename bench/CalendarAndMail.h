#pragma once

#include <cstddef>
#include <vector>

#include "records/GeneralSyncData.h"

/// Records such as people keep, for one number the same each time. A record to be made is a new one.
namespace orvale::bench {

void MakeItem(std::size_t number, CCalendarItem& item);
void MakeMessage(std::size_t number, CSMSItem& message);
void MakeEmail(std::size_t number, CEmailItem& email);

/// The first of them.
std::vector<CCalendarItem> MakeItems(std::size_t count);
std::vector<CSMSItem> MakeMessages(std::size_t count);
std::vector<CEmailItem> MakeEmails(std::size_t count);

}  // namespace orvale::bench
