#include "platform/Launch.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace orvale {
namespace {

constexpr int kMissingProgram = 127;  // as a shell tells it

[[noreturn]] void Become(const char* program, const char* path) {
    setsid();  // what ends this command's terminal or is typed there doesn't end the browser
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nowhere, standard);
    execlp(program, program, path, static_cast<char*>(nullptr));
    _exit(errno == ENOENT ? kMissingProgram : 126);
}

}  // namespace

Launch OpenOnDesktop(const std::string& path) {
    const pid_t child = fork();
    if (child < 0) return Launch::kFailed;
    if (child == 0) Become("xdg-open", path.c_str());
    // Some desktops' opener ends at once, others' with the browser: one that is at work after a while has found it.
    constexpr auto kStep = std::chrono::milliseconds(20);
    for (int steps = 0; steps < 150; ++steps) {
        int status = 0;
        const pid_t ended = waitpid(child, &status, WNOHANG);
        if (ended == 0 || (ended < 0 && errno == EINTR)) {
            std::this_thread::sleep_for(kStep);
            continue;
        }
        if (ended < 0 || !WIFEXITED(status)) return Launch::kFailed;
        if (WEXITSTATUS(status) == kMissingProgram) return Launch::kMissing;
        return WEXITSTATUS(status) == 0 ? Launch::kDone : Launch::kFailed;
    }
    return Launch::kDone;
}

}  // namespace orvale
