#pragma once

#include <filesystem>
#include <string>

namespace orvale {

/// The absolute path, in UTF-8, of the module (the library or the program) that this code was linked into, as the
/// loader has it; empty where the loader doesn't tell.
std::string ModulePath();

/// A path made absolute, without its "." parts. Its ".." parts stay: behind a link they lead elsewhere.
std::filesystem::path AbsolutePath(const std::filesystem::path& path);

/// The absolute path of the running program, in UTF-8; empty where the system doesn't tell.
std::string ProgramPath();

}  // namespace orvale
