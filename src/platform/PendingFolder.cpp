#include "platform/PendingFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <random>
#include <string>

namespace orvale {
namespace {

namespace fs = std::filesystem;

// All that was written reaches the disk at once: syncing file by file costs milliseconds for each of them.
void SyncFileSystemOf(const fs::path& folder) noexcept {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    syncfs(descriptor);
    close(descriptor);
}

}  // namespace

PendingFolder::PendingFolder(const fs::path& target)
    : target_(fs::absolute(target.has_filename() ? target : target.parent_path())) {
    std::random_device random;
    constexpr int kMostNames = 100;
    for (int i = 0; i < kMostNames && path_.empty(); ++i) {
        const fs::path path = target_.parent_path() / (".orvale-" + std::to_string(random()) + ".tmp");
        if (fs::create_directory(path)) path_ = path;
    }
}

PendingFolder::~PendingFolder() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
}

void PendingFolder::Commit() {
    const auto exists = std::make_error_code(std::errc::file_exists);
    if (fs::exists(fs::symlink_status(target_))) throw fs::filesystem_error("rename", target_, exists);
    SyncFileSystemOf(path_);
    fs::rename(path_, target_);
    path_.clear();
    SyncFileSystemOf(target_.parent_path());
}

}  // namespace orvale
