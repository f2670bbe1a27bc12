#include "platform/DebugOutput.h"

#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

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

}  // namespace

void WriteToErrors(std::string_view bytes) noexcept {
    const BrokenPipeHeldOff guard;
    while (!bytes.empty()) {
        const ssize_t written = ::write(STDERR_FILENO, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void WriteDebugOutput(std::u16string_view text) noexcept {
    try {
        WriteToErrors(ToUtf8(text));
    } catch (...) {  // no memory: the text is dropped
    }
}

}  // namespace orvale
