#pragma once

// `orvale convert`.

#include <string>
#include <vector>

#include "command/console/CommandError.h"
#include "command/formats/RecordSink.h"
#include "host/LoadedLibrary.h"

namespace orvale {

/// What `orvale convert` was asked for.
struct ConvertOrder {
    std::vector<std::string> inputs;
    std::string output;
    std::string from;                   ///< the format of the inputs; empty to find it
    std::string to;                     ///< the format of the output; empty to go by its extension
    std::vector<std::string> profiles;  ///< files of --profile
    OutputOptions options;
    bool force = false;
    bool partial = false;
    bool strict = false;
    bool unique = false;
    bool verify = true;
};

/// Converts the inputs, in their order, into one output. The new file is written beside its place, read back and held
/// against the inputs, and takes its place last: whatever fails leaves what was there. What didn't survive is told.
ExitCode Convert(const LoadedLibrary& library, const ConvertOrder& order);

}  // namespace orvale
