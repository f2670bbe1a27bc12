#include "support/Target.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "platform/Clock.h"

namespace orvale::fuzz {
namespace {

const Target* targets = nullptr;

// What a run depends on beside its input. The zone is one of half an hour, without summer time, so that a mix-up of
// local time and UTC shows and no hour comes twice.
void Settle() {
    constexpr std::time_t kMoment = 1280124015;  // 26 July 2010, 06:00:15 UTC
    static const StoppedClock clock(kMoment);
    static const bool settled = [] {
        setenv("TZ", "ORV-5:30", 1);
        setenv("LC_ALL", "C.UTF-8", 1);
        setenv("ORVALE_CODEPAGE", "65001", 0);
        tzset();
        return true;
    }();
    static_cast<void>(settled);
}

}  // namespace

Target::Target(std::string_view name, Question question) : name_(name), question_(question), next_(targets) {
    targets = this;
}

void Target::Ask(std::string_view input) const {
    Settle();
    question_(input);
}

const Target* Target::Find(std::string_view name) {
    const Target* found = targets;
    while (found != nullptr && !name.empty() && found->name_ != name)
        found = found->next_;
    return found;
}

void Must(bool holds, std::string_view what) {
    if (holds) return;
    std::fprintf(stderr, "What has to hold doesn't: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}

}  // namespace orvale::fuzz
