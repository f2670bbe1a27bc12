#include "platform/Folder.h"

#include <dirent.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>

namespace orvale {
namespace {

[[noreturn]] void Throw(const std::string& path) {
    throw std::system_error(errno, std::generic_category(), path);
}

}  // namespace

std::string FolderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return std::string(path.substr(0, slash == std::string_view::npos ? 0 : slash + 1));
}

std::vector<std::string> NamesIn(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), &closedir);
    if (open == nullptr) Throw(folder);
    std::vector<std::string> names;
    errno = 0;  // which tells a failure from the end
    while (const dirent* const entry = readdir(open.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
        errno = 0;
    }
    if (errno != 0) Throw(folder);
    return names;
}

void RemoveAll(const std::string& path) {
    std::vector<std::string> left{path};  // a folder stands before what is in it
    while (!left.empty()) {
        const std::string last = left.back();
        if (std::remove(last.c_str()) == 0 || errno == ENOENT) {
            left.pop_back();
            continue;
        }
        if (errno != ENOTEMPTY && errno != EEXIST) Throw(last);
        const std::vector<std::string> names = NamesIn(last);
        if (names.empty()) Throw(last);
        for (const std::string& name : names)
            left.push_back(std::string(last).append("/").append(name));
    }
}

}  // namespace orvale
