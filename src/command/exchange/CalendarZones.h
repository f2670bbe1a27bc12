#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "command/exchange/IcalLibrary.h"
#include "platform/DateValue.h"

namespace orvale {

/// The time zones that a calendar names: those that it defines, then those of the system by their usual names.
class CalendarZones {
 public:
    /// Called once, when a name is met that no definition so far has: it may add those that follow.
    std::function<void()> lookAhead;

    /// Takes the text of a VTIMEZONE. One without a name, or whose rules could keep the machine busy, is passed over.
    void Add(const std::string& definition);

    /// Local time of the process for a moment that is told in a zone; none where no such zone is known, or the moment
    /// has no place in it.
    std::optional<CalendarFields> ToLocal(const std::string& name, const icaltimetype& time);

    bool Knows(const std::string& name) { return Find(name) != nullptr; }

 private:
    icaltimezone* Find(const std::string& name);

    std::map<std::string, IcalZone> defined_;
    std::map<std::string, icaltimezone*> ofSystem_;  // null for a name that it doesn't know
};

/// The parts of a time of libical.
CalendarFields FieldsOf(const icaltimetype& time);

}  // namespace orvale
