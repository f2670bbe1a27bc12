#pragma once

// The text of a JSON document, from which values are taken one by one.

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "command/console/CommandError.h"
#include "platform/File.h"

namespace orvale {

/// A document that ends within a value or before its own end: cut off, rather than wrong.
class JsonEndsEarly : public CommandError {
    using CommandError::CommandError;
};

/// A JSON document as a stream of text, of which only one value at a time is in memory. What isn't as expected ends the
/// work with an error line that names the file and the line.
class JsonText {
 public:
    /// `shownName` is the file as the user named it. It is opened as the module opens its files: regular ones, held by
    /// nobody else.
    JsonText(const std::filesystem::path& path, std::string shownName);

    static constexpr int kNothing = -1;  ///< the end of the file

    /// The next byte behind white space, which stays; kNothing at the end of the file.
    int Peek();

    /// Takes the character that has to come next.
    void Expect(char wanted);

    /// Whether `wanted` comes next; it is taken then.
    bool TakeIf(char wanted);

    /// The text of the value that comes next, up to its end, not judged beyond its quotes and brackets; without the
    /// blanks at the start of a line. Good until the next call.
    std::string_view TakeValue();

    /// How many bytes were taken.
    std::uint64_t Offset() const { return file_.GetPosition(); }

    /// The line of the last thing that was taken or looked at, from 1.
    std::size_t Line() const { return line_; }

    [[noreturn]] void Fail(std::string_view reason) const;
    const std::string& ShownName() const { return shownName_; }

 private:
    [[noreturn]] void FailAtEnd() const;
    int Look();
    char Take();
    bool WordEnds(char c);
    void TakeString(std::string& text);

    std::string shownName_;
    CFile file_;
    std::size_t line_ = 1;
    std::string text_;  // of the value that was taken last
};

}  // namespace orvale
