#include "platform/PendingFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <utility>

#include "platform/Folder.h"
#include "platform/Unfinished.h"

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
    RemoveLeftovers(target_.native());
    constexpr int kMostNames = 100;
    for (int i = 0; i < kMostNames && path_.empty(); ++i) {
        fs::path path = UnfinishedName(target_.native());
        if (fs::create_directory(path)) path_ = std::move(path);  // a copy could fail, and leave the folder behind
    }
}

PendingFolder::~PendingFolder() {
    try {
        if (!path_.empty()) RemoveAll(path_.native());
    } catch (...) {  // what can't be taken away stays, under its name of something unfinished
    }
}

void PendingFolder::Commit() {
    const auto exists = std::make_error_code(std::errc::file_exists);
    if (fs::exists(fs::symlink_status(target_))) throw fs::filesystem_error("rename", target_, exists);
    const fs::path parent = target_.parent_path();  // behind the rename nothing may fail any more
    SyncFileSystemOf(path_);
    fs::rename(path_, target_);
    path_.clear();
    SyncFileSystemOf(parent);
}

}  // namespace orvale
