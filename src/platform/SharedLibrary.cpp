#include "platform/SharedLibrary.h"

#include <dlfcn.h>

#include <stdexcept>

namespace orvale {
namespace {

[[noreturn]] void ThrowLoaderError() {
    const char* const words = dlerror();
    throw std::runtime_error(words != nullptr ? words : "the loader gives no reason");
}

}  // namespace

SharedLibrary::SharedLibrary(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) ThrowLoaderError();
}

SharedLibrary::~SharedLibrary() {
    dlclose(handle_);
}

void* SharedLibrary::Symbol(const char* name) const {
    void* const symbol = dlsym(handle_, name);
    if (symbol == nullptr) ThrowLoaderError();
    return symbol;
}

}  // namespace orvale
