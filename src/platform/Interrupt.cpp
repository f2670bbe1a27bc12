#include "platform/Interrupt.h"

#include <csignal>
#include <initializer_list>

namespace orvale {
namespace {

volatile std::sig_atomic_t caught = 0;

void Keep(int signal) {
    caught = signal;
}

}  // namespace

void CatchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        // One that is ignored, as behind nohup, stays so.
        if (std::signal(signal, &Keep) == SIG_IGN) std::signal(signal, SIG_IGN);
    }
}

void ThrowIfInterrupted() {
    if (caught != 0) throw Interrupted();
}

int EndByInterrupt() {
    const int signal = caught;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    return 128 + signal;
}

}  // namespace orvale
