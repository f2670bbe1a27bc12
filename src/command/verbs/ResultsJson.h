#pragma once

// The results of verbs as JSON; that of show is the JSON document itself.

#include <string>
#include <vector>

#include "command/verbs/Diff.h"
#include "command/verbs/Info.h"

namespace orvale {

/// The list of `orvale formats --json`.
std::string FormatsJson();

/// The result of `orvale info --json`: one object, or a list. No object at all gives an empty text or an empty list.
std::string InfoJson(const std::vector<FileInfo>& infos, bool asList);

/// The result of `orvale diff --json`.
std::string DiffJson(const FileDifferences& differences);

}  // namespace orvale
