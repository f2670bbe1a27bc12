#include "platform/TemporaryFile.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/Interrupt.h"

namespace orvale {
namespace {

[[noreturn]] void Throw(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

// What stands at standard input, once there is something: a read alone would be begun again behind an interrupt.
std::size_t ReadStandardInput(char* bytes, std::size_t most) {
    for (;;) {
        ThrowIfInterrupted();
        pollfd waiting{STDIN_FILENO, POLLIN, 0};
        if (poll(&waiting, 1, -1) < 0) {
            if (errno == EINTR) continue;
            Throw("poll");
        }
        const ssize_t got = read(STDIN_FILENO, bytes, most);
        if (got >= 0) return static_cast<std::size_t>(got);
        if (errno != EINTR && errno != EAGAIN) Throw("read");
    }
}

}  // namespace

TemporaryFile::TemporaryFile(std::string_view ending)
    : path_((std::filesystem::temp_directory_path() / "orvale-XXXXXX").string().append(ending)) {
    descriptor_ = mkostemps(path_.data(), static_cast<int>(ending.size()), O_CLOEXEC);
    if (descriptor_ < 0) Throw("create");
}

TemporaryFile::~TemporaryFile() {
    close(descriptor_);
    if (!kept_) unlink(path_.c_str());
}

void TemporaryFile::TakeStandardInput() {
    std::array<char, 64 * 1024> bytes;
    while (const std::size_t size = ReadStandardInput(bytes.data(), bytes.size())) {
        for (std::size_t done = 0; done < size;) {
            const ssize_t put = write(descriptor_, bytes.data() + done, size - done);
            if (put < 0 && errno == EINTR) continue;
            if (put <= 0) Throw("write");
            done += static_cast<std::size_t>(put);
        }
    }
}

}  // namespace orvale
