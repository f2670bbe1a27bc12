#pragma once

#include <string>
#include <string_view>

namespace orvale {

/// An empty file of a name that nobody has, in the folder for such files ($TMPDIR, else /tmp), for its owner's eyes
/// alone. It goes with the object, whatever stands under its name by then. What the system refuses is thrown as
/// std::system_error.
class TemporaryFile {
 public:
    /// `ending` is that of the name, such as ".html".
    explicit TemporaryFile(std::string_view ending = "");
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Path() const { return path_; }

    /// From now on the file doesn't go with the object.
    void Keep() { kept_ = true; }

    /// Appends all that standard input gives, to its end. An interrupt ends the waiting for it.
    void TakeStandardInput();

 private:
    std::string path_;
    int descriptor_ = -1;
    bool kept_ = false;
};

}  // namespace orvale
