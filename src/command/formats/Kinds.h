#pragma once

// From a kind of data to the type of its records.

#include <stdexcept>
#include <type_traits>

#include "host/RecordFile.h"
#include "host/RecordValues.h"

namespace orvale {

/// Calls `visitor` with the type of a kind's records: `visitor(std::type_identity<CContactItem>())`.
template <class Visitor>
decltype(auto) VisitKind(Kind kind, Visitor&& visitor) {
    switch (kind) {
        case Kind::kContacts:
            return visitor(std::type_identity<CContactItem>());
        case Kind::kCalendar:
            return visitor(std::type_identity<CCalendarItem>());
        case Kind::kSms:
            return visitor(std::type_identity<CSMSItem>());
        case Kind::kEmail:
            return visitor(std::type_identity<CEmailItem>());
    }
    throw std::logic_error("no such kind");
}

}  // namespace orvale
