#pragma once

// What the module's readers can't make out of vCard, vCalendar and SSY files.

#include <cstdint>
#include <filesystem>
#include <vector>

#include "command/formats/FormatTable.h"
#include "command/formats/RecordSource.h"

namespace orvale {

/// What the reader of a format can't make out of a text, found by going through it as the reader does, up to an offset,
/// its end, or a line that no reader gets past. None for a format whose reader makes out all that it gets.
std::vector<Note> ScanText(const FormatRow& format, const std::filesystem::path& path, std::uint64_t end);

/// Whether the module's reader makes one entry of a vCalendar that holds one, and something of each of its lines.
bool VCalendarReaderTakesAll(const std::filesystem::path& path);

}  // namespace orvale
