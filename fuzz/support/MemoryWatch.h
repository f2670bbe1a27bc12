#pragma once

#include <cstddef>

namespace orvale::fuzz {

/// Holds what is allocated while the object lives against the size of the input: under the address sanitizer, which
/// lets allocations be watched, more than kBase + kMultiple * size bytes at one time end the process. A number that
/// a file tells and nobody checks shows here long before it takes the machine's memory. Elsewhere it does nothing.
class MemoryWatch {
 public:
    /// Buffers of a stream and what a format sets up however short its file is.
    static constexpr std::size_t kBase = 1024 * 1024;

    /// The dearest byte of a file is that of a record's shortest entry; see the page on reliability for what was met.
    static constexpr std::size_t kMultiple = 256;

    explicit MemoryWatch(std::size_t inputSize);
    ~MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

 private:
    std::size_t limit_;
};

}  // namespace orvale::fuzz
