#pragma once

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace orvale::test {

/// The device that takes nothing, for one test at a time: the formats' files are each opened for themselves alone.
class FullDevice {
 public:
    FullDevice() { flock(turn_, LOCK_EX); }
    ~FullDevice() { close(turn_); }
    FullDevice(const FullDevice&) = delete;
    FullDevice& operator=(const FullDevice&) = delete;

    static constexpr const char* kPath = "/dev/full";

 private:
    const int turn_ = open("/proc/self/exe", O_RDONLY | O_CLOEXEC);  // what all tests have
};

}  // namespace orvale::test
