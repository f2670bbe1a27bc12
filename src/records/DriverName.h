#pragma once

#include <string>
#include <string_view>

#include "platform/Text.h"

namespace orvale {

/// The name of a phone's driver module as a profile's copy holds it: with ".dll" at its end, in whatever case.
inline std::u16string DriverName(std::u16string_view dllname) {
    std::u16string name(dllname);
    if (!EndsWithNoCase(name, u".dll")) name += u".dll";
    return name;
}

}  // namespace orvale
