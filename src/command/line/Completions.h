#pragma once

#include <string>

namespace orvale {

/// What completes the command's lines in a shell: verbs, their options, names of formats and files, by the tables of
/// verbs, options and formats.
std::string BashCompletion();
std::string ZshCompletion();
std::string FishCompletion();

}  // namespace orvale
