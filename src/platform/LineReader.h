#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/File.h"

namespace orvale {

/// What became of a line.
enum class LineResult {
    kLine,     ///< a line came, with its CR LF unless the file ended without one
    kEnd,      ///< the file was at its end
    kTooLong,  ///< the limit was reached before the line's end; so many bytes are gone from the file
};

/// Reads the bytes of a line that ends in CR LF or with the file, at most `limit` of them with their line end. A CR or
/// a LF alone ends no line. `line` is good until the next operation on the file: it shows the file's buffer, or `store`
/// where the line lies in no one piece there.
LineResult ReadLine(CFile& file, std::size_t limit, std::string& store, std::string_view& line);

}  // namespace orvale
