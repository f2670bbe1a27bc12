#pragma once

#include <optional>
#include <string>
#include <vector>

#include "command/files/JoinedInputs.h"
#include "command/formats/Profile.h"

namespace orvale {

/// A copy of the profile that a file object has, for the shapes that suites carry; else none. Its dllname is as the
/// file has it.
SharedProfile CopyOfProfile(CFileInterface& file, ProfileShape shape);

/// The columns by which an input of columns is read: those that the user gave for it, else built-in ones, a plain
/// English caption for every type id of the table, and "Type N" for each of those in the file.
SharedProfile ColumnsOf(const InputName& input);

/// The profiles that the user gave, each on the side of the work that takes its shape.
struct GivenProfiles {
    SharedProfile input;   ///< of columns, where an input is read by them
    SharedProfile output;  ///< of the output's shape
};

/// Reads the files of --profile for records of a kind. One that neither side takes is told and passed over.
GivenProfiles ReadGivenProfiles(const std::vector<std::string>& files, Kind kind, bool inputTakesColumns,
                                const FormatRow* output);

/// The profile of an output for which neither the user nor an input tells one: for CSV a column for every type that the
/// inputs use, for a phonebook suite a device for every storage with the types and groups of its contacts; else none.
SharedProfile BuiltInProfile(const LoadedLibrary& library, const std::vector<InputName>& inputs,
                             const FormatRow& output);

}  // namespace orvale
