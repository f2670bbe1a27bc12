#pragma once

// The options of all verbs, as one table.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "command/line/Arguments.h"

namespace orvale {

/// An option, as the parser, the help, the manual and the completions have it.
struct OptionRow {
    std::string_view name;                                                   ///< with its dashes
    std::string_view letter = {};                                            ///< its short form, or empty
    Place value = {};                                                        ///< none for a flag
    bool repeats = false;                                                    ///< whether it may be given more than once
    unsigned verbs;                                                          ///< the set of verbs that take it
    std::string_view help;                                                   ///< one line, without a dot
    std::string_view more = {};                                              ///< sentences for the manual
    void (*take)(Arguments& arguments, const std::string& value) = nullptr;  ///< null for the one that asks for help
};

/// The command's one table of options, in the order of the help.
std::span<const OptionRow> AllOptions();

/// The rows of a verb.
std::vector<const OptionRow*> OptionsOf(Verb verb);

/// The name and what follows it, as "--format NAME".
std::string OptionHead(const OptionRow& row);

}  // namespace orvale
