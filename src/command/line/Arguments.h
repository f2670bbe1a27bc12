#pragma once

#include <optional>
#include <string>
#include <vector>

#include "command/console/Screen.h"
#include "command/line/Verbs.h"
#include "command/verbs/Convert.h"
#include "command/verbs/Diff.h"
#include "command/verbs/Show.h"
#include "command/verbs/View.h"

namespace orvale {

/// The command line, taken apart.
struct Arguments {
    Verb verb = Verb::kFormats;
    std::vector<std::string> files;  ///< all that isn't an option
    std::string format;              ///< --format
    bool json = false;
    ColorMode color = ColorMode::kAuto;
    std::string module;  ///< --module
    std::optional<int> codePage;
    ShowOrder show;        ///< the options of show; the others are set by the command
    DiffOrder diff;        ///< the same of diff
    ViewOrder view;        ///< the options of view; its files are set by the command
    ConvertOrder convert;  ///< the options of convert; its files are set by the command
};

/// Takes the command line apart. "VERB --help" is "help VERB". Ends the work with a usage error for what can't be acted
/// on.
Arguments ParseArguments(int count, const char* const* words);

}  // namespace orvale
