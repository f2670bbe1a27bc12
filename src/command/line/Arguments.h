#pragma once

// What a person typed, word by word; what the verbs make of it stands with them.

#include <optional>
#include <string>
#include <vector>

#include "command/console/Screen.h"
#include "command/line/Verbs.h"

namespace orvale {

/// The command line, taken apart. An option that the verb doesn't take is as it is here.
struct Arguments {
    Verb verb = Verb::kFormats;
    std::vector<std::string> files;  ///< all that isn't an option

    std::string format;                 ///< --format or --from; empty to find it
    std::string to;                     ///< empty to go by the output's extension
    std::vector<std::string> profiles;  ///< files
    std::optional<int> codePage;
    std::string module;  ///< empty for the one in use

    bool json = false;
    bool csv = false;
    bool safeCsv = false;
    bool profileOnly = false;
    bool noProfile = false;
    bool withPasswords = false;
    ColorMode color = ColorMode::kAuto;

    std::string output;  ///< of a page; empty to open it
    std::string vcardVersion;
    bool force = false;
    bool unique = false;
    bool partial = false;
    bool strict = false;
    bool verify = true;
};

/// Takes the command line apart. "VERB --help" is "help VERB". Ends the work with a usage error for what can't be acted
/// on.
Arguments ParseArguments(int count, const char* const* words);

}  // namespace orvale
