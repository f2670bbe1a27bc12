#pragma once

#include <string>
#include <string_view>

namespace orvale {

/// The words of an HTML text: without its tags, scripts and styles, each block on a line of its own, its lines ended by
/// LF. Takes any bytes.
std::string PlainWords(std::string_view html);

}  // namespace orvale
