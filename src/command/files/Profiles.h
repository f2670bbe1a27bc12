#pragma once

// The profiles of a piece of work: those that the user gives, and those made where nobody gives one.

#include <optional>
#include <string>
#include <vector>

#include "command/files/JoinedInputs.h"
#include "command/formats/Profile.h"

namespace orvale {

/// Reads the files of --profile for records of a kind. One with columns goes to the inputs, where some are read by
/// them; one of the output's shape is given back. What neither side takes is told and passed over. Without an output
/// (null) there is the inputs' side alone.
SharedProfile TakeGivenProfiles(const std::vector<std::string>& files, Kind kind, std::vector<InputName>& inputs,
                                const FormatRow* output);

/// The profile of an output for which neither the user nor an input tells one: for CSV a column for every type that the
/// inputs use, for a phonebook suite a device for every storage with the types and groups of its contacts; else none.
SharedProfile BuiltInProfile(const LoadedLibrary& library, const std::vector<InputName>& inputs,
                             const FormatRow& output);

}  // namespace orvale
