#include "support/SystemCalls.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

std::size_t count = 0;
std::size_t most = static_cast<std::size_t>(-1);

}  // namespace

// In place of the C library's, for all code that is linked into this program.
extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    ++count;
    const bool isInterrupted = most != static_cast<std::size_t>(-1) && count % 2 == 0;
    if (!isInterrupted) return syscall(SYS_write, descriptor, bytes, std::min(size, most));
    errno = EINTR;
    return -1;
}

namespace orvale::test {

WriteCalls::WriteCalls(std::size_t mostBytes) {
    count = 0;
    most = mostBytes;
}

WriteCalls::~WriteCalls() {
    most = static_cast<std::size_t>(-1);
}

std::size_t WriteCalls::Count() const {
    return count;
}

}  // namespace orvale::test
