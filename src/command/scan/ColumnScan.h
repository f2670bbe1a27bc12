#pragma once

// What the module's reader leaves out of CSV files, and their captions as it takes them.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "command/formats/RecordSource.h"
#include "records/CSVProfile.h"

namespace orvale {

/// The captions of a file of columns, as its reader takes them; none where it takes none.
std::vector<std::u16string> CaptionsOf(const std::filesystem::path& path);

/// Why the reader takes no captions from a file of columns, in words; empty where it takes some.
std::string WhyNoCaptions(const std::filesystem::path& path);

/// What of a file of columns reaches no contact, or not as it stands there, when it is read by these columns: found by
/// going through its lines as the reader does, up to an offset, the file's end, or a line that the reader doesn't get
/// past. A column that nobody knows is told by its values; without any it is no loss.
std::vector<Note> ScanColumns(const std::filesystem::path& path, const CCSVProfile& columns, std::uint64_t end);

}  // namespace orvale
