#pragma once

#include "command/formats/FormatTable.h"

namespace orvale {

/// The page as a format that is only written.
extern const OwnFormat kHtmlFormat;

}  // namespace orvale
