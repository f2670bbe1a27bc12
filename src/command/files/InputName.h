#pragma once

// The inputs that a person names: files, folders, standard input, each with its format.

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "command/formats/FormatTable.h"
#include "platform/TemporaryFile.h"

namespace orvale {

/// By this name standard input and standard output are meant.
constexpr std::string_view kStandardStream = "-";

/// A file to be read: what the user named, and the format that was named with it or found.
struct InputName {
    std::string name;  ///< what lines about it call it
    std::string path;
    const FormatRow* format;
    bool formatNamed;
    SharedProfile columns = nullptr;                       ///< of a file of columns; none for the built-in captions
    std::shared_ptr<const TemporaryFile> spool = nullptr;  ///< that holds what standard input gave
};

/// What lines call an input that was named so: itself, or "standard input".
std::string ShownName(const std::string& name);

/// Ends the work with a usage error where standard input is named more than once.
void RequireOneStandardInput(std::span<const std::string> names);

/// The inputs that names stand for, each with the format of `formatName` if that isn't empty, else with the one that is
/// found. A folder stands for the vCalendar files in it, in the order of their names, numbers in them by their value.
/// "-" is standard input, read to its end. Ends the work where a file isn't there or nothing tells its format.
std::vector<InputName> ResolveInputs(const std::vector<std::string>& names, const std::string& formatName);

}  // namespace orvale
