#include <cstddef>
#include <cstdint>

#include "support/Target.h"

// What the engine calls, in a program of one target.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const orvale::fuzz::Target& target = *orvale::fuzz::Target::Find("");
    target.Ask({reinterpret_cast<const char*>(data), size});
    return 0;
}
