#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace orvale {

/// A JSON document as a stream of text, of which only one value at a time is in memory. What isn't as expected ends the
/// work with an error line that names the file and the line.
class JsonText {
 public:
    /// `shownName` is the file as the user named it.
    JsonText(const std::filesystem::path& path, std::string shownName);

    /// The next character behind white space, which stays; '\0' at the end of the file.
    char Peek();

    /// Takes the character that has to come next.
    void Expect(char wanted);

    /// Whether `wanted` comes next; it is taken then.
    bool TakeIf(char wanted);

    /// The text of the value that comes next, up to its end, not judged beyond its quotes and brackets.
    std::string TakeValue();

    /// The line of the last thing that was taken or looked at, from 1.
    std::size_t Line() const { return line_; }

    [[noreturn]] void Fail(std::string_view reason) const;
    const std::string& ShownName() const { return shownName_; }

 private:
    static constexpr int kNothing = -1;  // the end of the file

    int Look() { return start_ < buffer_.size() || Fill() ? static_cast<unsigned char>(buffer_[start_]) : kNothing; }
    char Take();
    bool Fill();
    void TakeString(std::string& text);

    std::string shownName_;
    std::ifstream in_;
    std::string buffer_;  // what was read ahead
    std::size_t start_ = 0;
    std::size_t line_ = 1;
};

}  // namespace orvale
