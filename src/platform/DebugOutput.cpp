#include "platform/DebugOutput.h"

#include <pthread.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

#include "platform/Text.h"

namespace orvale {

namespace {

// While it lives, a write into a pipe that nobody reads is a failure of the write and doesn't end the host.
class BrokenPipeHeldOff {
 public:
    BrokenPipeHeldOff() {
        sigemptyset(&pipe_);
        sigaddset(&pipe_, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
    }
    ~BrokenPipeHeldOff() {
        constexpr timespec kNoWait{0, 0};
        if (!wasPending_) sigtimedwait(&pipe_, nullptr, &kNoWait);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    BrokenPipeHeldOff(const BrokenPipeHeldOff&) = delete;
    BrokenPipeHeldOff& operator=(const BrokenPipeHeldOff&) = delete;

 private:
    sigset_t pipe_;
    sigset_t before_;
    bool wasPending_;
};

void WriteAll(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t written = ::write(STDERR_FILENO, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace

void WriteToErrors(std::initializer_list<std::string_view> parts) noexcept {
    const BrokenPipeHeldOff guard;
    std::array<char, 4096> gathered;
    std::size_t size = 0;
    for (std::string_view part : parts) {
        while (!part.empty()) {
            if (size == gathered.size()) WriteAll({gathered.data(), std::exchange(size, 0)});
            const std::size_t taken = part.copy(gathered.data() + size, gathered.size() - size);
            size += taken;
            part.remove_prefix(taken);
        }
    }
    WriteAll({gathered.data(), size});
}

void WriteDebugOutput(std::u16string_view text) noexcept {
    try {
        WriteToErrors({ToUtf8(text)});
    } catch (...) {  // no memory: the text is dropped
    }
}

}  // namespace orvale
