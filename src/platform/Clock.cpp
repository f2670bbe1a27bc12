#include "platform/Clock.h"

#include <atomic>

namespace orvale {
namespace {

constexpr std::time_t kRunning = -1;
std::atomic<std::time_t> stoppedAt{kRunning};

}  // namespace

std::time_t Now() {
    const std::time_t stopped = stoppedAt.load(std::memory_order_relaxed);
    return stopped != kRunning ? stopped : std::time(nullptr);
}

StoppedClock::StoppedClock(std::time_t moment) {
    stoppedAt = moment;
}
StoppedClock::~StoppedClock() {
    stoppedAt = kRunning;
}

}  // namespace orvale
