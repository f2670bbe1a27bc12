#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace orvale {

/// For reading: a key is looked up, its place in the object doesn't count.
using Json = nlohmann::json;

/// Parses one value. A key told twice in an object is an error that names its path, which `place` opens (such as
/// "records[3]"). Fails with an error line for `file`; a text that isn't JSON is told with its line, counted from
/// `firstLine`.
Json ParseJson(std::string_view text, std::string_view file, std::string_view place, std::size_t firstLine);

}  // namespace orvale
