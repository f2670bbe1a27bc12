#pragma once

#include <filesystem>

namespace orvale {

/// A folder that comes into being only when it is whole: filled under a name of its own beside its target, and renamed
/// last. What wasn't committed goes with the object, with all that is in it. All operations but the destructor throw
/// std::filesystem::filesystem_error with the system's reason.
class PendingFolder {
 public:
    /// Makes the empty folder.
    explicit PendingFolder(const std::filesystem::path& target);
    ~PendingFolder();
    PendingFolder(const PendingFolder&) = delete;
    PendingFolder& operator=(const PendingFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    /// Gives the folder its name. Fails where something has it already.
    void Commit();

 private:
    std::filesystem::path target_;
    std::filesystem::path path_;  // empty once committed
};

}  // namespace orvale
