#pragma once

#include <cstddef>

namespace orvale::fuzz {

/// Holds what is allocated while the object lives against the size of the input: under the address sanitizer, which
/// lets allocations be watched, more than kBase + kMultiple * size bytes at one time end the process. A number that
/// a file tells and nobody checks shows here long before it takes the machine's memory. Elsewhere it does nothing.
class MemoryWatch {
 public:
    /// Buffers of a stream and what a format sets up however short its file is.
    static constexpr std::size_t kBase = 256 * 1024;

    /// The dearest bytes are those of a record's shortest entries: 168 for each was met, of an empty field in JSON.
    static constexpr std::size_t kMultiple = 256;

    explicit MemoryWatch(std::size_t inputSize);
    ~MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

    /// While one of these lives nothing is counted: for what isn't the reading's own.
    class Pause {
     public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

     private:
        bool wasWatching_;
    };

 private:
    std::size_t limit_;
};

}  // namespace orvale::fuzz
