#pragma once

#include <string>

namespace orvale {

/// The absolute path, in UTF-8, of the module (the library or the program) that this code was linked into, as the
/// loader has it; empty where the loader doesn't tell.
std::string ModulePath();

/// The absolute path of the running program, in UTF-8; empty where the system doesn't tell.
std::string ProgramPath();

}  // namespace orvale
