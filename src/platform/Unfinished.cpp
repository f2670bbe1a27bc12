#include "platform/Unfinished.h"

#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <filesystem>
#include <random>

namespace orvale {
namespace {

namespace fs = std::filesystem;

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

void RemoveLeftovers(std::string_view path) noexcept {
    try {
        const std::string folder = FolderOf(path);
        for (const auto& entry : fs::directory_iterator(folder.empty() ? "." : folder)) {
            const std::string name = entry.path().filename().string();
            std::error_code ignored;
            if (name.starts_with(kBegin) && name.ends_with(kEnd) && IsLeftover(entry.path().native()))
                fs::remove_all(entry.path(), ignored);
        }
    } catch (...) {
    }
}

}  // namespace orvale
