#include "platform/Unfinished.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <filesystem>
#include <memory>
#include <random>

namespace orvale {
namespace {

constexpr std::string_view kBegin = ".orvale-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::time_t kDay = 24 * 60 * 60;

std::string FolderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? "" : std::string(path.substr(0, slash + 1));
}

bool IsLeftover(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)) &&
           status.st_uid == geteuid() && status.st_mtime < std::time(nullptr) - kDay;
}

}  // namespace

std::string UnfinishedName(std::string_view path) {
    std::random_device random;
    return FolderOf(path).append(kBegin).append(std::to_string(random())).append(kEnd);
}

// Not by the library's own way through a folder, which ends the process where it finds no memory.
void RemoveLeftovers(std::string_view path) noexcept {
    try {
        const std::string folder = FolderOf(path);
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()), &closedir);
        if (entries == nullptr) return;
        while (const dirent* const entry = readdir(entries.get())) {
            const std::string_view name = entry->d_name;
            if (!name.starts_with(kBegin) || !name.ends_with(kEnd)) continue;
            const std::string leftover = folder + entry->d_name;
            std::error_code ignored;
            if (IsLeftover(leftover)) std::filesystem::remove_all(leftover, ignored);
        }
    } catch (...) {
    }
}

}  // namespace orvale
