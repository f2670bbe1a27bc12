#pragma once

// The profiles in the JSON document, and what a profile says.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "command/formats/Profile.h"
#include "command/json/JsonArchive.h"
#include "host/Facts.h"
#include "host/Formats.h"

namespace orvale {

/// The profile of a JSON value, for records of a kind: one with columns where the object says so and the kind is
/// contacts, else that of the kind's suite. Null gives none. All failures name the path, which `place` opens.
SharedProfile ReadProfile(const Json& value, Kind kind, std::string_view file, std::string place);

/// Writes a profile, or "null" for none, behind `out`, whose last line is indented by `indent`.
void WriteProfile(std::string& out, std::size_t indent, const SharedProfile& profile, JsonNotes& notes);

/// The profile of a file: a JSON document, or the bare object. `kind` is the kind of the work.
SharedProfile ReadProfileFile(const std::string& file, Kind kind);

/// What a profile says, each value under its path in the document. A password says only whether there is one, unless
/// it is asked for.
std::vector<Fact> FactsOf(const SharedProfile& profile, bool withPasswords);

}  // namespace orvale
