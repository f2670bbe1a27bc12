#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "command/files/RecordInput.h"
#include "command/formats/RecordSource.h"

namespace orvale {

/// What the reader of an input can't make out of a text, found by going through it as the reader does, up to an offset,
/// its end, or a line that no reader gets past. A file that can't be read has no notes, and neither has one of a format
/// whose reader makes out all that it gets.
std::vector<Note> ScanText(const InputName& input, std::uint64_t end);

/// Whether the module's reader makes one entry of a vCalendar that holds one, and something of each of its lines.
bool VCalendarReaderTakesAll(const std::filesystem::path& path);

/// Tells the user what of a file of columns reaches no contact; of any other file nothing.
void TellColumnLosses(const InputName& input);

}  // namespace orvale
