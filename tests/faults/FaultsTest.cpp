#include <gtest/gtest.h>
#include <stdlib.h>

#include <cerrno>
#include <cstdio>

#include "faults/Roads.h"

namespace orvale::test {
namespace {

// Where the environment says so, every number is walked, on the roads whose names hold the variable's text; else as
// many as a test of every day has time for.
bool WalksAll() {
    return getenv("ORVALE_FAULTS") != nullptr;
}
bool IsAsked(const Road& road) {
    return !WalksAll() || road.Name().find(getenv("ORVALE_FAULTS")) != std::string::npos;
}

// Formats of libraries that end the process where memory runs out, or go without what they can't load.
bool IsOfAnotherLibrary(const Road& road) {
    return road.Name().find(" ics") != std::string::npos || road.Name().find(" mbox") != std::string::npos;
}

// Each road with a fault at one of its calls after the other, until there is no such call. In a test of every day only
// every `stride`-th call, another one on each road.
void Walk(Fault fault, std::size_t stride) {
    if (!CanMake(fault.kind)) GTEST_SKIP() << "no such faults here";
    if (WalksAll()) stride = 1;
    std::size_t runs = 0;
    std::size_t phase = 0;
    for (const auto& road : AllRoads()) {
        ++phase;
        if (!IsAsked(*road)) continue;
        if (IsOfAnotherLibrary(*road) && !fault.forEver && fault.kind != Fault::kKilled) continue;
        if (IsOfAnotherLibrary(*road) && fault.kind == Fault::kAllocation) continue;
        ASSERT_EQ(road->Clean().exitCode, 0) << road->Name() << ": " << road->Clean().errors;
        std::map<std::string, std::size_t> wrong;
        bool met = true;
        for (fault.at = 1 + phase % stride; met; fault.at += stride) {
            const FaultRun run = road->Run(fault);
            ++runs;
            met = run.met;
            const std::string judged = road->Judge(fault, run);
            if (judged.empty() || ++wrong[judged] > 3) continue;
            ADD_FAILURE() << road->Name() << ": " << judged << ", fault at " << fault.at << ", call " << run.call
                          << "\nexit code " << run.exitCode << ", told: " << run.errors
                          << "\nwithout it: " << road->Clean().errors;
        }
        for (const auto& [what, count] : wrong)
            ADD_FAILURE() << road->Name() << ": " << what << ": " << count << " times";
    }
    std::printf("%zu runs\n", runs);
}

TEST(FaultsTest, ASystemCallThatFailsOnce) {
    Walk({Fault::kSystemCall, 1, false, EIO}, 6);
}

TEST(FaultsTest, SystemCallsThatFailForEver) {
    Walk({Fault::kSystemCall, 1, true, ENOSPC}, 9);
}

TEST(FaultsTest, AnInterruptedSystemCall) {
    Walk({Fault::kInterrupted, 1, false, 0}, 5);
}

TEST(FaultsTest, AShortReadOrWrite) {
    Walk({Fault::kShort, 1, false, 0}, 3);
}

TEST(FaultsTest, Killed) {
    Walk({Fault::kKilled, 1, false, 0}, 7);
}

TEST(FaultsTest, AnAllocationThatFailsOnce) {
    Walk({Fault::kAllocation, 1, false, 0}, 97);
}

TEST(FaultsTest, AllocationsThatFailForEver) {
    Walk({Fault::kAllocation, 1, true, 0}, 131);
}

}  // namespace
}  // namespace orvale::test
