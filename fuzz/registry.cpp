#include "platform/Registry.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <system_error>

#include "platform/Text.h"
#include "records/LogSwitch.h"
#include "support/MemoryWatch.h"
#include "support/Scratch.h"
#include "support/Target.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

std::size_t LongestLineToFeed(std::string_view text) {
    std::size_t longest = 0;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        longest = std::max(longest, length);
        text.remove_prefix(length);
    }
    return longest;
}

}  // namespace

// A number that is written is read; the values beside it, and all else in the file, stay as they were. A file of
// another encoding is left alone.
ORVALE_FUZZ_TARGET("registry") {
    constexpr std::u16string_view kKey = kLogRegistryKey;
    constexpr std::u16string_view kName = u"LogSwitch";
    constexpr std::u16string_view kOther = u"other";
    const Scratch file("user.reg", input);
    setenv("ORVALE_REGISTRY", file.Path().c_str(), 1);
    const std::optional<std::uint32_t> before = [&] {
        const MemoryWatch watch(input.size());
        return ReadRegistryNumber(kKey, kName);
    }();
    const std::optional<std::uint32_t> other = ReadRegistryNumber(kKey, kOther);

    const std::uint32_t wanted = ~before.value_or(0);
    try {
        WriteRegistryNumber(kKey, kName, wanted);
    } catch (const std::system_error&) {
        Must(ToUtf8(FromUtf8(input)) != input, "a file of UTF-8 can be written");
        Must(file.Get() == input, "a file that can't be written stays");
        return;
    }
    Must(ReadRegistryNumber(kKey, kName) == wanted, "a number that was written is read");
    Must(ReadRegistryNumber(kKey, kOther) == other, "the value beside it stays");
    const std::string once = file.Get();
    Must(once.size() + LongestLineToFeed(input) >= input.size(), "a file loses no more than the value's line");
    WriteRegistryNumber(kKey, kName, wanted);
    Must(file.Get() == once, "the same number once more changes nothing");
}
