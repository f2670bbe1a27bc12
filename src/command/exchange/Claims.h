#pragma once

#include <filesystem>
#include <string_view>

#include "command/formats/FormatTable.h"

/// How the files of formats that need a library are known, whether the library is there or not: OwnFormat::claims.
namespace orvale {

/// A calendar that the module's reader of vCalendar doesn't take at all, or not all of.
bool ClaimsIcs(const std::filesystem::path& path, std::string_view head, const FormatRow* found);

/// A mailbox begins with a line "From ", and a line of a message's head behind it.
bool ClaimsMbox(const std::filesystem::path& path, std::string_view head, const FormatRow* found);

}  // namespace orvale
