#include "platform/Folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace orvale {
namespace {

[[noreturn]] void Throw(const std::string& path) {
    throw std::system_error(errno, std::generic_category(), path);
}

struct CloseFolder {
    void operator()(DIR* open) const { closedir(open); }
};
using Directory = std::unique_ptr<DIR, CloseFolder>;

Directory OpenFolder(int in, const std::string& name, const std::string& path) {
    const int descriptor = openat(in, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0) Throw(path);
    Directory open(fdopendir(descriptor));
    if (open == nullptr) {
        const int error = errno;
        close(descriptor);
        errno = error;
        Throw(path);
    }
    return open;
}

// The next name in a folder, but for itself and the one above it; none at its end.
std::optional<std::string> NextName(DIR* open, const std::string& path) {
    for (;;) {
        errno = 0;  // which tells a failure from the end
        const dirent* const entry = readdir(open);
        if (entry == nullptr) {
            if (errno != 0) Throw(path);
            return std::nullopt;
        }
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") return std::string(name);
    }
}

}  // namespace

std::string FolderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return std::string(path.substr(0, slash == std::string_view::npos ? 0 : slash + 1));
}

std::vector<std::string> NamesIn(const std::string& folder) {
    const Directory open(opendir(folder.c_str()));
    if (open == nullptr) Throw(folder);
    std::vector<std::string> names;
    while (std::optional<std::string> name = NextName(open.get(), folder))
        names.push_back(*std::move(name));
    return names;
}

// By descriptors, from folder to folder: no link that another puts in a folder's place meanwhile is followed.
void RemoveAll(const std::string& path) {
    struct Level {
        int in;  // the folder that it lies in
        std::string name;
        Directory open;
    };
    std::vector<Level> levels;
    const auto remove = [&](int in, const std::string& name) {
        if (unlinkat(in, name.c_str(), 0) == 0 || errno == ENOENT) return;
        if (errno != EISDIR) Throw(path);
        levels.push_back({in, name, OpenFolder(in, name, path)});
    };
    remove(AT_FDCWD, path);
    while (!levels.empty()) {
        if (const std::optional<std::string> name = NextName(levels.back().open.get(), path)) {
            remove(dirfd(levels.back().open.get()), *name);
            continue;
        }
        const Level done = std::move(levels.back());
        levels.pop_back();
        if (unlinkat(done.in, done.name.c_str(), AT_REMOVEDIR) != 0 && errno != ENOENT) Throw(path);
    }
}

}  // namespace orvale
