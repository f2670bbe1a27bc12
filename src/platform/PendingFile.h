#pragma once

#include <filesystem>

namespace orvale {

/// A file that takes the place of another only when it is whole. It is written under a name of its own in the folder of
/// its target; Commit syncs it and renames it over the target, so that a crash at any moment leaves the old file or the
/// new one. What wasn't committed goes with the object. All operations but the destructor throw
/// std::filesystem::filesystem_error with the system's reason.
class PendingFile {
 public:
    /// Makes the empty file. A target that is a link stays one: the file that it leads to is replaced.
    explicit PendingFile(const std::filesystem::path& target);
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    /// Where to write; the file is there and empty.
    const std::filesystem::path& Path() const { return path_; }

    /// Puts the file in the target's place, with the target's permissions if there was one.
    void Commit();

 private:
    std::filesystem::path target_;
    std::filesystem::path path_;  // empty once committed
};

}  // namespace orvale
