#include "platform/Unfinished.h"

#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <exception>
#include <random>
#include <system_error>

#include "platform/Folder.h"

namespace orvale {
namespace {

constexpr std::string_view kBegin = ".orvale-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::time_t kDay = 24 * 60 * 60;

bool IsLeftover(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)) &&
           status.st_uid == geteuid() && status.st_mtime < std::time(nullptr) - kDay;
}

void RemoveIfLeftover(const std::string& path) {
    try {
        if (IsLeftover(path)) RemoveAll(path);
    } catch (const std::system_error&) {  // it stays, and doesn't keep the others
    }
}

}  // namespace

std::string UnfinishedName(std::string_view path) {
    std::random_device random;
    return FolderOf(path).append(kBegin).append(std::to_string(random())).append(kEnd);
}

void RemoveLeftovers(std::string_view path) noexcept {
    try {
        const std::string folder = FolderOf(path);
        for (const std::string& name : NamesIn(folder.empty() ? "." : folder))
            if (name.starts_with(kBegin) && name.ends_with(kEnd)) RemoveIfLeftover(folder + name);
    } catch (const std::exception&) {  // a folder that can't be looked through, or no memory
    }
}

}  // namespace orvale
