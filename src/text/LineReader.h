#pragma once

#include <cstddef>
#include <string>

#include "platform/File.h"

namespace orvale {

/// What became of a line.
enum class LineResult {
    kLine,     ///< a line came, with its CR LF unless the file ended without one
    kEnd,      ///< the file was at its end
    kTooLong,  ///< the limit was reached before the line's end; so many bytes are gone from the file
};

/// Reads the bytes of a line that ends in CR LF or with the file, at most `limit` of them with their line end. A CR or
/// a LF alone ends no line. The bytes are put in place of what `line` held, also where the line is too long.
LineResult ReadLine(CFile& file, std::size_t limit, std::string& line);

}  // namespace orvale
