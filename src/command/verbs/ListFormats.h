#pragma once

#include "command/console/CommandError.h"

namespace orvale {

/// `orvale formats`: prints the formats, each with its kind, its extension and whether it is read and written.
ExitCode ListFormats(bool json);

}  // namespace orvale
