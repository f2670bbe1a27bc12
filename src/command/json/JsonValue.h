#pragma once

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace orvale {

/// For reading: a key is looked up, its place in the object doesn't count.
using Json = nlohmann::json;

/// A value that headers hand around without the library's own, which takes long to compile.
using JsonPointer = std::shared_ptr<const Json>;

/// Parses one value. A key told twice in an object is an error that names its path, which `place` opens (such as
/// "records[3]"). Fails with an error line for `file`; a text that isn't JSON is told with its line, counted from
/// `firstLine`.
JsonPointer ParseJson(std::string_view text, std::string_view file, std::string_view place, std::size_t firstLine);

}  // namespace orvale
