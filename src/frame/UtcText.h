#pragma once

#include <string>
#include <string_view>

#include "platform/DateValue.h"

namespace orvale {

/// A local date as UTC text, "20100726T060015Z"; empty for no date. Where the zone can't place the date, its local
/// fields stand before the "Z".
std::u16string DateToUtcText(const DateValue& date);

/// The local date of a UTC text; the empty text gives no date. False if the text has fewer than 16 units, in which case
/// the date is the present time, or if its numbers are no moment. What stands behind the 16 units isn't looked at.
bool UtcTextToDate(std::u16string_view text, DateValue& date);

/// A date as the log shows it, in the user's locale: empty for a null date, "Invalid DateTime" for one without parts.
std::u16string DateToLocaleText(const DateValue& date);

}  // namespace orvale
