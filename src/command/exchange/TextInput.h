#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/File.h"

namespace orvale {

/// The lines of a text file as a stream, ended by LF or CR LF. A line that is longer than the limit loses what is
/// beyond it.
class LineInput {
 public:
    /// Opens a file, as the module opens its files: held against others, unless it is only looked at. A byte order mark
    /// is passed over. Failures call the file by `shownName`.
    enum class Hold { kAlone, kShared };
    LineInput(const std::filesystem::path& path, const std::string& shownName, std::size_t longest,
              Hold hold = Hold::kAlone);

    struct Line {
        std::string text;         ///< without its end
        bool ended = false;       ///< whether a line end followed
        bool cut = false;         ///< whether it was longer than the limit
        std::size_t number = 0;   ///< from 1
        std::uint64_t start = 0;  ///< offset of its first byte
        std::uint64_t end = 0;    ///< offset behind it and its end
    };

    /// Takes the next line; false at the end of the file.
    bool Next(Line& line);

    /// The next byte, which stays, or -1 at the end.
    int Peek();

 private:
    CFile file_;
    std::size_t longest_;
    std::size_t number_ = 0;
};

}  // namespace orvale
