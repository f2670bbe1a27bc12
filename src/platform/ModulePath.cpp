#include "platform/ModulePath.h"

#include <dlfcn.h>

#include <filesystem>

namespace orvale {

std::string ModulePath() {
    Dl_info info{};
    static const char inThisModule = 0;
    if (dladdr(&inThisModule, &info) == 0 || info.dli_fname == nullptr) return {};
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(info.dli_fname, error);
    return error ? std::string() : path.lexically_normal().string();
}

std::string ProgramPath() {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : path.string();
}

}  // namespace orvale
