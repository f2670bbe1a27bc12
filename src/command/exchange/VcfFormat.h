#pragma once

#include "command/formats/FormatTable.h"

namespace orvale {

/// vCards of all versions and habits, read and written by the command itself.
extern const OwnFormat kVcfFormat;

/// Whether the module's reader takes every line of a vCard for what it says: none is passed over, dropped or joined to
/// another value. A last card that only lacks its end is as good as whole here. Stops at the first line that isn't
/// taken.
bool VCardReaderTakesAll(const std::filesystem::path& path);

}  // namespace orvale
