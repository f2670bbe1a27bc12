#include "host/LossReport.h"

#include <algorithm>

namespace orvale {

void LossReport::Compare(const std::vector<Fact>& before, const std::vector<Fact>& after, const std::string& place) {
    for (const Difference& difference : DifferencesOf(before, after)) {
        Tally& tally = tallies_[{difference.fate, SubjectOf(difference)}];
        if (tally.count++ == 0) tally.firstPlace = place;
    }
}

void LossReport::AddLoss(const std::string& what, std::size_t count, const std::string& firstPlace) {
    Tally& tally = tallies_[{Fate::kLost, what}];
    if (tally.count == 0) tally.firstPlace = firstPlace;
    tally.count += count;
}

bool LossReport::HasLoss() const {
    return std::any_of(tallies_.begin(), tallies_.end(), [](const auto& entry) {
        return entry.first.first == Fate::kLost || entry.first.first == Fate::kChanged;
    });
}

std::vector<std::string> LossReport::Lines() const {
    constexpr const char* kWords[] = {"lost", "changed", "added", "moved"};
    constexpr std::size_t kMostKinds =
        40;  // of each fate: a file with thousands of type numbers must not flood the user
    std::map<Fate, std::size_t> kinds;
    std::vector<std::string> lines;
    for (const auto& [key, tally] : tallies_) {
        if (++kinds[key.first] > kMostKinds) continue;
        lines.push_back(std::string(kWords[static_cast<int>(key.first)]) + ": " + key.second + ": " +
                        std::to_string(tally.count) + ", first in " + tally.firstPlace);
    }
    for (const auto& [fate, count] : kinds) {
        if (count <= kMostKinds) continue;
        lines.push_back(std::string(kWords[static_cast<int>(fate)]) + ": " + std::to_string(count - kMostKinds) +
                        " more kinds of values");
    }
    return lines;
}

}  // namespace orvale
