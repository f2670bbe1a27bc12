#pragma once

#include <cstddef>

namespace orvale::test {

/// Counts the calls of the system's `write` while it lives. Given a number, a call takes no more bytes than that, and
/// every second one is interrupted by a signal.
class WriteCalls {
 public:
    explicit WriteCalls(std::size_t most = static_cast<std::size_t>(-1));
    ~WriteCalls();
    WriteCalls(const WriteCalls&) = delete;
    WriteCalls& operator=(const WriteCalls&) = delete;

    std::size_t Count() const;
};

}  // namespace orvale::test
