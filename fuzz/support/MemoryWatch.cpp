#include "support/MemoryWatch.h"

#include <string>
#include <utility>

#include "support/Target.h"

#if defined(__SANITIZE_ADDRESS__)
#define ORVALE_WATCHES_MEMORY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVALE_WATCHES_MEMORY 1
#endif
#endif

#ifdef ORVALE_WATCHES_MEMORY
// Of the sanitizer's run-time library, whose header for them doesn't come with every compiler.
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*onAllocation)(const volatile void*, std::size_t),
                                              void (*onRelease)(const volatile void*));
std::size_t __sanitizer_get_allocated_size(const volatile void* address);
}
#endif

namespace orvale::fuzz {
namespace {

thread_local bool watching = false;
thread_local std::size_t held = 0;
thread_local std::size_t most = 0;

#ifdef ORVALE_WATCHES_MEMORY
void OnAllocation(const volatile void*, std::size_t size) {
    if (!watching) return;
    held += size;
    if (held > most) most = held;
}

void OnRelease(const volatile void* address) {
    if (!watching || address == nullptr) return;
    const std::size_t size = __sanitizer_get_allocated_size(address);
    held = size < held ? held - size : 0;  // what was there before the watch is released too
}

bool Install() {
    return __sanitizer_install_malloc_and_free_hooks(&OnAllocation, &OnRelease) != 0;
}
#else
bool Install() {
    return true;
}
#endif

}  // namespace

MemoryWatch::MemoryWatch(std::size_t inputSize) : limit_(kBase + kMultiple * inputSize) {
    static const bool installed = Install();
    Must(installed, "allocations can be watched");
    held = most = 0;
    watching = true;
}

MemoryWatch::~MemoryWatch() {
    watching = false;
    if (most > limit_)
        Must(false, "memory stays below its limit of " + std::to_string(limit_) + ", was " + std::to_string(most));
}

MemoryWatch::Pause::Pause() : wasWatching_(std::exchange(watching, false)) {}

MemoryWatch::Pause::~Pause() {
    watching = wasWatching_;
}

}  // namespace orvale::fuzz
