#include "platform/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

namespace orvale {

void HoldClosedStreams() noexcept {
    // In their order, for a file gets the lowest number that is free. Open for the other direction, each stays useless.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

int BesideStandardStreams(int descriptor) noexcept {
    if (descriptor < 0 || descriptor > STDERR_FILENO) return descriptor;
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int number = errno;
    close(descriptor);
    errno = number;
    return moved;
}

}  // namespace orvale
