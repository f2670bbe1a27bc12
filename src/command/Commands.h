#pragma once

#include "command/console/CommandError.h"
#include "command/line/Arguments.h"

namespace orvale {

/// Hands the command line that was taken apart to its verb. Results go to standard output, all else to standard error.
ExitCode RunCommand(const Arguments& typed);

/// The whole command: from the words of the command line to the exit code. Never throws.
int Main(int count, const char* const* words);

}  // namespace orvale
