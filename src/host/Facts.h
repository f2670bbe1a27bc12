#pragma once

#include <string>
#include <vector>

#include "records/GeneralSyncData.h"

namespace orvale {

/// One thing that a record says: what a person calls it, and its value. A thing at its default isn't said.
struct Fact {
    std::string what;
    std::u16string value;
    bool keyed = false;         ///< a record has one value under this name, which becomes no other
    std::u16string shown = {};  ///< the value as a person reads it, where that is another text

    auto operator<=>(const Fact&) const = default;  // NOLINT(modernize-use-nullptr): the check's own error
};

/// All that a record says that some format stores, in its order.
std::vector<Fact> FactsOf(const CContactItem& contact);
std::vector<Fact> FactsOf(const CCalendarItem& item);
std::vector<Fact> FactsOf(const CSMSItem& sms);
std::vector<Fact> FactsOf(const CEmailItem& email);

/// A time of day as a person reads it, "06:00", with its seconds where it has some.
std::u16string ClockText(const CalendarFields& fields);

/// A date as a person reads it, "2010-07-26 06:00"; the number itself where it is no date.
std::u16string DateText(const DateValue& date);

}  // namespace orvale
