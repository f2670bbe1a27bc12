#include "command/console/Progress.h"

#include "command/console/CommandError.h"
#include "platform/DebugOutput.h"
#include "platform/Terminal.h"

namespace orvale {
namespace {

using namespace std::chrono_literals;

constexpr auto kSoonDone = 500ms;
constexpr auto kBetweenLines = 100ms;
constexpr std::string_view kEraseLine = "\r\x1B[K";

bool lineStands = false;

}  // namespace

Progress::Progress(std::string_view doing, std::string_view file) : what_(std::string(doing) + " " + Quote(file)) {
    static const Clock::time_point begin = Clock::now();  // of the first work, since one follows the other
    due_ = IsTerminal(StandardStream::kError) ? begin + kSoonDone : Clock::time_point::max();
}

void Progress::Look(std::size_t count, std::size_t total) {
    const Clock::time_point now = Clock::now();
    if (now < due_) return;
    due_ = now + kBetweenLines;
    const std::string far =
        total == 0 ? std::to_string(count) + " records" : std::to_string(100 * count / total) + " %";
    WriteToErrors({kEraseLine, what_, ": ", far});
    lineStands = true;
}

void Progress::Clear() {
    if (lineStands) WriteToErrors({kEraseLine});
    lineStands = false;
}

}  // namespace orvale
