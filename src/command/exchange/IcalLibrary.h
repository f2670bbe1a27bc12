#pragma once

#include <libical/ical.h>

#include <memory>

#include "platform/SharedLibrary.h"

namespace orvale {

// Each function of libical that is used here.
#define ORVALE_ICAL_FUNCTIONS(X)              \
    X(icalcomponent_add_component)            \
    X(icalcomponent_add_property)             \
    X(icalcomponent_as_ical_string_r)         \
    X(icalcomponent_free)                     \
    X(icalcomponent_get_first_component)      \
    X(icalcomponent_get_first_property)       \
    X(icalcomponent_get_next_component)       \
    X(icalcomponent_get_next_property)        \
    X(icalcomponent_new)                      \
    X(icalcomponent_new_from_string)          \
    X(icaldurationtype_as_int)                \
    X(icalerror_set_errors_are_fatal)         \
    X(icalmemory_free_buffer)                 \
    X(icalparameter_get_related)              \
    X(icalparameter_get_tzid)                 \
    X(icalparameter_new_x)                    \
    X(icalparameter_set_xname)                \
    X(icalproperty_add_parameter)             \
    X(icalproperty_free)                      \
    X(icalproperty_get_first_parameter)       \
    X(icalproperty_get_parameter_as_string_r) \
    X(icalproperty_get_value)                 \
    X(icalproperty_get_value_as_string_r)     \
    X(icalproperty_get_x_name)                \
    X(icalproperty_isa)                       \
    X(icalproperty_new)                       \
    X(icalproperty_set_value_from_string)     \
    X(icalproperty_set_value)                 \
    X(icalproperty_set_x_name)                \
    X(icaltime_convert_to_zone)               \
    X(icaltime_is_utc)                        \
    X(icaltimezone_free)                      \
    X(icaltimezone_get_builtin_timezone)      \
    X(icaltimezone_get_utc_timezone)          \
    X(icaltimezone_new)                       \
    X(icaltimezone_set_component)             \
    X(icalvalue_get_date)                     \
    X(icalvalue_get_datetime)                 \
    X(icalvalue_get_duration)                 \
    X(icalvalue_get_integer)                  \
    X(icalvalue_get_recur)                    \
    X(icalvalue_get_text)                     \
    X(icalvalue_get_trigger)                  \
    X(icalvalue_get_uri)                      \
    X(icalvalue_get_x)                        \
    X(icalvalue_isa)                          \
    X(icalvalue_new_text)                     \
    X(icalvalue_new_x)

/// libical, loaded at the first use: it brings libraries along that take longer to load than the command takes for all
/// else.
struct IcalLibrary {
    explicit IcalLibrary(const SharedLibrary& loaded) : library(loaded) {}

    const SharedLibrary& library;

#define ORVALE_MEMBER(name) decltype(&::name) name = nullptr;
    ORVALE_ICAL_FUNCTIONS(ORVALE_MEMBER)
#undef ORVALE_MEMBER
};

/// The library. Ends the work with an error line where it isn't installed.
const IcalLibrary& Ical();

struct IcalDeleter {
    void operator()(icalcomponent* component) const { Ical().icalcomponent_free(component); }
    void operator()(icalproperty* property) const { Ical().icalproperty_free(property); }
    void operator()(icaltimezone* zone) const { Ical().icaltimezone_free(zone, 1); }
    void operator()(char* text) const { Ical().icalmemory_free_buffer(text); }
};
using IcalComponent = std::unique_ptr<icalcomponent, IcalDeleter>;
using IcalProperty = std::unique_ptr<icalproperty, IcalDeleter>;
using IcalZone = std::unique_ptr<icaltimezone, IcalDeleter>;
using IcalText = std::unique_ptr<char, IcalDeleter>;

}  // namespace orvale
