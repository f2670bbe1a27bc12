#pragma once

#include <string>

namespace orvale::test {

/// Words of the shell that bound what a command takes of memory and of the processor. None under a sanitizer, which
/// takes more room and time than any limit allows.
inline std::string Limits([[maybe_unused]] int kilobytes, [[maybe_unused]] int seconds) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return "";
#else
    return "ulimit -v " + std::to_string(kilobytes) + "; ulimit -t " + std::to_string(seconds) + "; ";
#endif
}

}  // namespace orvale::test
