#pragma once

#include <filesystem>
#include <string>

#include "command/console/CommandError.h"

namespace orvale {

/// Shows where the log of a module goes, or sets it by one of the words off, file, debug and both.
ExitCode LogCommand(const std::filesystem::path& named, const std::string& word);

}  // namespace orvale
