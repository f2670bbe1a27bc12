#pragma once

// `orvale view`.

#include <string>
#include <vector>

#include "command/console/CommandError.h"
#include "host/LoadedLibrary.h"

namespace orvale {

/// What `orvale view` was asked for.
struct ViewOrder {
    std::vector<std::string> files;
    std::string format;                 ///< empty to find each file's own
    std::vector<std::string> profiles;  ///< files of --profile, for files of columns
    std::string output;                 ///< where the page is to be; empty to open a temporary one in the browser
    bool force = false;
};

/// Makes one page of the records of all files, whatever their kinds, and opens it. Of a damaged file, what came whole.
ExitCode View(const LoadedLibrary& library, const ViewOrder& order);

}  // namespace orvale
