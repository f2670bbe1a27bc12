#pragma once

#include <stdexcept>
#include <type_traits>

#include "command/json/ContactJson.h"
#include "host/RecordFile.h"

namespace orvale {

/// Calls `visitor` with the type of a kind's records: `visitor(std::type_identity<CContactItem>())`.
template <class Visitor>
decltype(auto) VisitKind(Kind kind, Visitor&& visitor) {
    switch (kind) {
        case Kind::kContacts:
            return visitor(std::type_identity<CContactItem>());
        default:
            throw std::logic_error("records of this kind aren't known yet");
    }
}

}  // namespace orvale
