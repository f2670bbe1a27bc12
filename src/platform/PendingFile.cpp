#include "platform/PendingFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <string>

namespace orvale {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Throw(const char* what, const fs::path& path) {
    throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

// A name that no other process and no other object of this one uses; what a killed run left is in nobody's way.
fs::path MakeEmptyFileIn(const fs::path& folder) {
    static std::atomic<unsigned> counter{0};
    constexpr int kTries = 1000;
    for (int i = 0; i < kTries; ++i) {
        const fs::path path =
            folder / (".orvale-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".tmp");
        const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            close(descriptor);
            return path;
        }
        if (errno != EEXIST) break;
    }
    Throw("can't write in the folder", folder);
}

void Sync(const fs::path& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) Throw("sync", path);
    const int result = fsync(descriptor);
    const int error = errno;
    close(descriptor);
    errno = error;
    if (result != 0 && errno != EINVAL) Throw("sync", path);  // EINVAL: a file system that doesn't sync
}

fs::path FollowLink(const fs::path& target) {
    const fs::path whole = fs::absolute(target);
    return fs::is_symlink(fs::symlink_status(whole)) ? fs::weakly_canonical(whole) : whole;
}

}  // namespace

PendingFile::PendingFile(const fs::path& target)
    : target_(FollowLink(target)), path_(MakeEmptyFileIn(target_.parent_path())) {}

PendingFile::~PendingFile() {
    if (!path_.empty()) unlink(path_.c_str());
}

void PendingFile::Commit() {
    std::error_code missing;
    const fs::file_status old = fs::status(target_, missing);
    if (!missing && fs::exists(old)) fs::permissions(path_, old.permissions());
    Sync(path_);
    fs::rename(path_, target_);
    path_.clear();
    Sync(target_.parent_path());
}

}  // namespace orvale
