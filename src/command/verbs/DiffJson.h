#pragma once

#include <string>

#include "command/verbs/Diff.h"

namespace orvale {

/// The result of `orvale diff --json`.
std::string DiffJson(const FileDifferences& differences);

}  // namespace orvale
