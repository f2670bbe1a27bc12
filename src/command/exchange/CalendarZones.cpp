#include "command/exchange/CalendarZones.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace orvale {
namespace {

constexpr std::size_t kMostZones = 500;  // of a file: there are not so many on earth

template <std::size_t kSize>
std::size_t LengthOf(const short (&values)[kSize]) {
    return static_cast<std::size_t>(std::find(values, values + kSize, static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX)) -
                                    values);
}

// libical works out every change of a zone's time up to a year far ahead. A change once a year, as each zone on earth
// has it, costs little; a rule that says more often is none of a zone.
bool IsYearly(const icalrecurrencetype& rule) {
    return rule.freq == ICAL_YEARLY_RECURRENCE && LengthOf(rule.by_month) <= 1 && LengthOf(rule.by_day) <= 1 &&
           LengthOf(rule.by_month_day) <= 8 && LengthOf(rule.by_hour) <= 1 && LengthOf(rule.by_minute) <= 1 &&
           LengthOf(rule.by_second) <= 1 && LengthOf(rule.by_year_day) == 0 && LengthOf(rule.by_week_no) == 0 &&
           LengthOf(rule.by_set_pos) <= 1 && rule.rscale == nullptr;
}

bool IsHarmless(icalcomponent* zone) {
    constexpr std::size_t kMostRules = 64;
    std::size_t rules = 0;
    // What a rule belongs to stands one level below the zone. Both lists are taken from the front while they are
    // counted, so no other walk of them may be under way.
    const IcalLibrary& ical = Ical();
    for (icalcomponent* part = ical.icalcomponent_get_first_component(zone, ICAL_ANY_COMPONENT); part != nullptr;
         part = ical.icalcomponent_get_next_component(zone, ICAL_ANY_COMPONENT)) {
        for (icalproperty* rule = ical.icalcomponent_get_first_property(part, ICAL_RRULE_PROPERTY); rule != nullptr;
             rule = ical.icalcomponent_get_next_property(part, ICAL_RRULE_PROPERTY)) {
            const icalvalue* const value = ical.icalproperty_get_value(rule);
            if (value == nullptr || ical.icalvalue_isa(value) != ICAL_RECUR_VALUE) return false;
            if (++rules > kMostRules || !IsYearly(ical.icalvalue_get_recur(value))) return false;
        }
    }
    return true;
}

// Moments as seconds since 1970, by which they can be reckoned with.
std::int64_t SecondsOf(const icaltimetype& time) {
    using namespace std::chrono;
    const auto month = static_cast<unsigned>(time.month);
    const auto day = static_cast<unsigned>(time.day);
    const sys_seconds midnight =
        sys_days(year_month_day(year(time.year), std::chrono::month(month), std::chrono::day(day)));
    return midnight.time_since_epoch().count() + time.hour * 3600 + time.minute * 60 + time.second;
}

icaltimetype TimeOf(std::int64_t seconds, const icaltimezone* zone) {
    using namespace std::chrono;
    const sys_seconds moment{std::chrono::seconds(seconds)};
    const sys_days midnight = floor<days>(moment);
    const year_month_day date(midnight);
    const hh_mm_ss clock(moment - midnight);
    icaltimetype time{};
    time.year = static_cast<int>(date.year());
    time.month = static_cast<int>(static_cast<unsigned>(date.month()));
    time.day = static_cast<int>(static_cast<unsigned>(date.day()));
    time.hour = static_cast<int>(clock.hours().count());
    time.minute = static_cast<int>(clock.minutes().count());
    time.second = static_cast<int>(clock.seconds().count());
    time.zone = zone;
    return time;
}

}  // namespace

CalendarFields FieldsOf(const icaltimetype& time) {
    return {time.year, time.month, time.day, time.hour, time.minute, time.second};
}

void CalendarZones::Add(const std::string& definition) {
    const IcalLibrary& ical = Ical();
    if (defined_.size() >= kMostZones) return;
    IcalComponent component(ical.icalcomponent_new_from_string(definition.c_str()));
    if (!component || !IsHarmless(component.get())) return;
    icalproperty* const id = ical.icalcomponent_get_first_property(component.get(), ICAL_TZID_PROPERTY);
    const char* const name = id != nullptr ? ical.icalvalue_get_text(ical.icalproperty_get_value(id)) : nullptr;
    if (name == nullptr || defined_.contains(name)) return;
    const std::string key = name;
    IcalZone zone(ical.icaltimezone_new());
    if (ical.icaltimezone_set_component(zone.get(), component.get()) == 0) return;
    (void)component.release();  // it is the zone's now
    defined_.emplace(key, std::move(zone));
}

icaltimezone* CalendarZones::Find(const std::string& name) {
    if (const auto found = defined_.find(name); found != defined_.end()) return found->second.get();
    if (lookAhead) {
        std::exchange(lookAhead, nullptr)();
        if (const auto found = defined_.find(name); found != defined_.end()) return found->second.get();
    }
    if (const auto found = ofSystem_.find(name); found != ofSystem_.end()) return found->second;
    // Some programs put their own name before the usual one: "/example.com/Europe/Berlin".
    icaltimezone* zone = nullptr;
    std::string_view rest = name;
    while (zone == nullptr && !rest.empty() && rest.size() < 256) {
        zone = Ical().icaltimezone_get_builtin_timezone(std::string(rest).c_str());
        const std::size_t slash = rest.find('/');
        if (!name.starts_with('/') || slash == std::string_view::npos) break;
        rest.remove_prefix(slash + 1);
    }
    if (ofSystem_.size() < kMostZones) ofSystem_.emplace(name, zone);
    return zone;
}

std::optional<CalendarFields> CalendarZones::ToLocal(const std::string& name, const icaltimetype& time) {
    const IcalLibrary& ical = Ical();
    icaltimezone* const zone = Find(name);
    if (zone == nullptr) return std::nullopt;
    icaltimezone* const utc = ical.icaltimezone_get_utc_timezone();
    const auto thereOf = [&](std::int64_t moment) {
        return SecondsOf(ical.icaltime_convert_to_zone(TimeOf(moment, utc), zone));
    };
    icaltimetype there = time;
    there.zone = zone;
    const std::int64_t wanted = SecondsOf(there);
    std::int64_t moment = SecondsOf(ical.icaltime_convert_to_zone(there, utc));
    // A time that comes twice, because a clock goes back, is the first one, and one that a clock skips is meant by the
    // offset before (RFC 5545, 3.3.5). The library takes the second one, and the offset behind.
    constexpr std::int64_t kDay = 24 * 60 * 60;
    const std::int64_t byOffsetBefore = wanted - (thereOf(moment - kDay) - (moment - kDay));
    if (thereOf(byOffsetBefore) == wanted || thereOf(moment) != wanted) moment = byOffsetBefore;
    return UtcToLocal(FieldsOf(TimeOf(moment, utc)));
}

}  // namespace orvale
