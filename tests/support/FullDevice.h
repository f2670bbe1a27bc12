#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

namespace orvale::test {

/// The device that takes nothing, for one test at a time: the formats' files are each opened for themselves alone.
class FullDevice {
 public:
    FullDevice() { EXPECT_EQ(flock(turn_, LOCK_EX), 0); }
    ~FullDevice() { close(turn_); }
    FullDevice(const FullDevice&) = delete;
    FullDevice& operator=(const FullDevice&) = delete;

    static constexpr const char16_t* kPath = u"/dev/full";

 private:
    const int turn_ = open("/dev/urandom", O_RDONLY | O_CLOEXEC);  // what the tests of all builds have
};

}  // namespace orvale::test
