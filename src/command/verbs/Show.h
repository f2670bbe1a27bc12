#pragma once

// `orvale show`.

#include <string>
#include <vector>

#include "command/console/CommandError.h"
#include "command/console/Screen.h"
#include "host/LoadedLibrary.h"

namespace orvale {

/// What `orvale show` was asked for.
struct ShowOrder {
    std::string file;
    std::string format;  ///< empty to find it
    bool json = false;
    bool csv = false;
    bool safeCsv = false;  ///< of a table, cells that a spreadsheet would take for formulas are marked
    ColorMode color = ColorMode::kAuto;
    std::vector<std::string> profiles = {};  ///< files of --profile
    bool profileOnly = false;
    bool noProfile = false;
    bool withPasswords = false;
};

/// Prints the records of a file, as a person reads them or as the JSON document. Of a damaged file, what came whole.
ExitCode Show(const LoadedLibrary& library, const ShowOrder& order);

}  // namespace orvale
