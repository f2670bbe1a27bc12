#pragma once

// What the readers of inputs leave out, whatever the format.

#include <vector>

#include "command/files/InputName.h"
#include "command/files/JoinedInputs.h"

namespace orvale {

/// What of inputs that were read to their ends is in no record, as far as each is whole, with the file in its place. A
/// file that can't be read now ends the work.
std::vector<Note> NotInRecords(const std::vector<InputName>& names, const JoinedInputs& inputs);

/// Tells the user what of a file of columns reaches no contact; of any other file nothing.
void TellColumnLosses(const InputName& input);

}  // namespace orvale
