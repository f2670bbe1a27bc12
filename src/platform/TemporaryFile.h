#pragma once

#include <string>

namespace orvale {

/// An empty file of a name that nobody has, in the folder for such files ($TMPDIR, else /tmp), for its owner's eyes
/// alone. It goes with the object, whatever stands under its name by then. What the system refuses is thrown as
/// std::system_error.
class TemporaryFile {
 public:
    TemporaryFile();
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Path() const { return path_; }

    /// Appends all that standard input gives, to its end. An interrupt ends the waiting for it.
    void TakeStandardInput();

 private:
    std::string path_;
    int descriptor_ = -1;
};

}  // namespace orvale
