#include "platform/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <system_error>

#include "platform/Folder.h"
#include "platform/StandardStreams.h"
#include "platform/Unfinished.h"

namespace orvale {
namespace {

constexpr std::size_t kGather = 64 * 1024;
constexpr int kMostLinks = 40;   // as many as the system follows
constexpr int kMostNames = 100;  // tries of a name that nobody has

[[noreturn]] void Throw(int number, const char* what) {
    throw std::system_error(number, std::generic_category(), what);
}

void Check(bool good, const char* what) {
    if (!good) Throw(errno, what);
}

// The file at the end of a chain of links, which need not be there.
std::string FollowLinks(std::string path) {
    std::array<char, PATH_MAX> buffer;
    for (int links = 0; links < kMostLinks; ++links) {
        const ssize_t size = readlink(path.c_str(), buffer.data(), buffer.size());
        if (size < 0) return path;
        const std::string_view link(buffer.data(), static_cast<std::size_t>(size));
        path = link.starts_with('/') ? std::string(link) : FolderOf(path).append(link);
    }
    Throw(ELOOP, "follow links");
}

// By its name, since another file may stand there by now than the one that was made. A file system that knows no
// syncing is taken as synced.
void SyncFile(const std::string& path) {
    int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0 && errno == EACCES)
        descriptor = BesideStandardStreams(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    Check(descriptor >= 0, "sync");
    const int result = fsync(descriptor);
    const int number = errno;
    close(descriptor);
    if (result != 0 && number != EINVAL && number != ENOTSUP) Throw(number, "sync");
}

// The rename is done by now: a folder that can't be synced costs at most the new file, never the old one too.
void SyncFolder(const std::string& path) noexcept {
    const int descriptor = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

// Renames where nothing stands at the target. Not every file system can do that in one step.
int RenameToFreeName(const char* from, const char* to) {
    const int result = renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
    if (result == 0 || (errno != EINVAL && errno != ENOSYS)) return result;
    if (access(to, F_OK) != 0) return rename(from, to);
    errno = EEXIST;
    return -1;
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path) {
    if (path.empty()) Throw(EINVAL, "open");
    target_ = FollowLinks(path);
    struct stat status {};
    if (stat(target_.c_str(), &status) != 0) {
        Check(errno == ENOENT, "open");
        CreateBeside();
        return;
    }
    if (S_ISDIR(status.st_mode)) Throw(EISDIR, "open");
    Check(faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) == 0, "open");
    if (S_ISREG(status.st_mode)) {
        CreateBeside();
        // The owner first: changing it takes bits off the mode. Who may not give a file away keeps it.
        const int given = fchown(descriptor_, status.st_uid, status.st_gid);
        static_cast<void>(given);
        if (fchmod(descriptor_, status.st_mode & 07777) != 0) {
            const int number = errno;
            Close();
            Throw(number, "mode");
        }
    } else if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode)) {
        descriptor_ = BesideStandardStreams(open(target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
        Check(descriptor_ >= 0, "open");
        fcntl(descriptor_, F_SETFL, 0);
    } else {
        Throw(EINVAL, "open");  // a pipe or a socket
    }
}

AtomicFile::~AtomicFile() {
    Close();
}

void AtomicFile::CreateBeside() {
    RemoveLeftovers(target_);
    for (int i = 0; i < kMostNames; ++i) {
        std::string name = UnfinishedName(target_);
        descriptor_ = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor_ >= 0) {
            temporary_ = std::move(name);
            descriptor_ = BesideStandardStreams(descriptor_);
            if (descriptor_ >= 0) return;
            const int number = errno;
            Close();
            Throw(number, "create");
        }
        if (errno != EEXIST) break;
    }
    Throw(errno, "create");
}

void AtomicFile::Write(std::string_view bytes) {
    gathered_.append(bytes);
    if (gathered_.size() >= kGather) HandOver();
}

void AtomicFile::HandOver() {
    std::string_view rest = gathered_;
    while (!rest.empty()) {
        const ssize_t put = write(descriptor_, rest.data(), rest.size());
        if (put < 0 && errno == EINTR) continue;
        Check(put >= 0, "write");
        if (put == 0) Throw(EIO, "write");
        rest.remove_prefix(static_cast<std::size_t>(put));
    }
    gathered_.clear();
}

void AtomicFile::Commit(Existing existing) {
    if (descriptor_ < 0) Throw(EBADF, "commit");
    HandOver();
    if (!temporary_.empty()) {
        const std::string folder = FolderOf(target_) + ".";  // behind the rename nothing may fail any more
        SyncFile(temporary_);
        const char* const from = temporary_.c_str();
        const char* const to = target_.c_str();
        Check((existing == Existing::kKept ? RenameToFreeName(from, to) : rename(from, to)) == 0, "rename");
        temporary_.clear();
        SyncFolder(folder);
    }
    Close();
}

void AtomicFile::Close() noexcept {
    if (!temporary_.empty()) unlink(temporary_.c_str());
    temporary_.clear();
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
}

std::optional<FileIdentity> IdentityOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino, S_ISREG(status.st_mode)};
}

}  // namespace orvale
