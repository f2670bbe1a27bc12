#include "platform/ModulePath.h"

#include <dlfcn.h>

#include <filesystem>

namespace orvale {

std::string ModulePath() {
    Dl_info info{};
    static const char inThisModule = 0;
    if (dladdr(&inThisModule, &info) == 0 || info.dli_fname == nullptr) return {};
    return AbsolutePath(info.dli_fname).string();
}

std::filesystem::path AbsolutePath(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    std::filesystem::path result;
    for (const std::filesystem::path& part : error ? path : whole)
        if (part != ".") result /= part;
    return result;
}

std::string ProgramPath() {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : path.string();
}

}  // namespace orvale
