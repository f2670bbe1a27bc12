#pragma once

// What the readers of inputs leave out, whatever the format.

#include <cstdint>
#include <vector>

#include "command/files/InputName.h"

namespace orvale {

/// What the reader of an input can't make out of it, up to an offset. A file that can't be read now ends the work.
std::vector<Note> ScanInput(const InputName& input, std::uint64_t end);

/// Tells the user what of a file of columns reaches no contact; of any other file nothing.
void TellColumnLosses(const InputName& input);

}  // namespace orvale
