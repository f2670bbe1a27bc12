#pragma once

#include <ctime>

namespace orvale {

/// The present moment, in seconds since 1970 UTC: the one clock that everything here looks at.
std::time_t Now();

/// Stops the clock at a moment while the object lives: for tests whose result holds the time.
class StoppedClock {
 public:
    explicit StoppedClock(std::time_t moment);
    ~StoppedClock();
    StoppedClock(const StoppedClock&) = delete;
    StoppedClock& operator=(const StoppedClock&) = delete;
};

}  // namespace orvale
