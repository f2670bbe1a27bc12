#pragma once

#include <stdexcept>
#include <string>

#include "command/console/CommandError.h"
#include "platform/SharedLibrary.h"

namespace orvale {

/// A library that only one format needs, loaded when that format is met and kept to the end of the process. Ends the
/// work with an error line where it isn't there.
inline const SharedLibrary& LoadLibraryOf(const char* format, const char* soname) {
    try {
        return *new SharedLibrary(soname);  // never unloaded: it has state of its own
    } catch (const std::runtime_error& error) {
        FailFile(soname, "", std::string("the format ") + format + " needs this library: " + error.what());
    }
}

}  // namespace orvale
