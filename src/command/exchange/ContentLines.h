#pragma once

#include <string>
#include <string_view>

#include "command/exchange/TextInput.h"

namespace orvale {

/// The parts of a line "NAME;PARAMETER=VALUE:value". The views share the line's storage.
struct ContentLine {
    std::string name;             ///< in capitals
    std::string_view parameters;  ///< with the semicolon before the first; may be empty
    std::string_view value;
};

/// Takes a line apart at the first colon that isn't in quotes; one without a colon has an empty name.
ContentLine SplitContentLine(std::string_view text);

/// The lines of an iCalendar or vCalendar file with their folds undone.
class ContentLines {
 public:
    ContentLines(const std::filesystem::path& path, const std::string& shownName,
                 LineInput::Hold hold = LineInput::Hold::kAlone)
        : input_(path, shownName, kLongest, hold) {}

    /// Takes the next line that isn't empty; false at the end of the file. Its `cut` tells that it is longer than any
    /// line that has something to say. Zero bytes and stray carriage returns are left out.
    bool Next(LineInput::Line& line);

    /// From here on lines are those of vCalendar 1.0: quoted-printable goes on behind a "=", and a fold keeps its
    /// blank.
    void SetOld(bool isOld) { isOld_ = isOld; }

    static constexpr std::size_t kLongest = 256 * 1024;

 private:
    void Append(LineInput::Line& line, std::size_t dropped);

    LineInput input_;
    bool isOld_ = false;
};

}  // namespace orvale
