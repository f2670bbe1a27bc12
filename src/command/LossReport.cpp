#include "command/LossReport.h"

#include <algorithm>

namespace orvale {
namespace {

using Pointers = std::vector<const Fact*>;

Pointers SortedPointers(const std::vector<Fact>& facts) {
    Pointers pointers;
    pointers.reserve(facts.size());
    for (const Fact& fact : facts)
        pointers.push_back(&fact);
    std::stable_sort(pointers.begin(), pointers.end(), [](const Fact* a, const Fact* b) { return *a < *b; });
    return pointers;
}

// Parts two lists, sorted by `less`, into what pairs up and what doesn't; both leftovers stay sorted.
template <class Less, class OnPair>
void PairUp(Pointers& a, Pointers& b, Less less, OnPair onPair) {
    Pointers onlyA;
    Pointers onlyB;
    auto i = a.begin();
    auto j = b.begin();
    while (i != a.end() && j != b.end()) {
        if (less(**i, **j))
            onlyA.push_back(*i++);
        else if (less(**j, **i))
            onlyB.push_back(*j++);
        else
            onPair(*i++, *j++);
    }
    onlyA.insert(onlyA.end(), i, a.end());
    onlyB.insert(onlyB.end(), j, b.end());
    a = std::move(onlyA);
    b = std::move(onlyB);
}

template <class Less, class OnPair>
void SortAndPairUp(Pointers& a, Pointers& b, Less less, OnPair onPair) {
    const auto order = [&](const Fact* x, const Fact* y) { return less(*x, *y); };
    std::stable_sort(a.begin(), a.end(), order);
    std::stable_sort(b.begin(), b.end(), order);
    PairUp(a, b, less, onPair);
}

}  // namespace

void LossReport::Compare(const std::vector<Fact>& before, const std::vector<Fact>& after, const std::string& place) {
    if (before == after) return;
    Pointers lost = SortedPointers(before);
    Pointers added = SortedPointers(after);
    std::vector<std::pair<const Fact*, const Fact*>> kept;
    PairUp(lost, added, std::less<>(), [&](const Fact* a, const Fact* b) { kept.emplace_back(a, b); });

    // What is left pairs up by its value (it came back under another name), if it may have another name, then by its
    // name (with another value).
    const auto byValue = [](const Fact& a, const Fact& b) {
        return a.keyed != b.keyed ? a.keyed < b.keyed : a.keyed ? a.what < b.what : a.value < b.value;
    };
    const auto byName = [](const Fact& a, const Fact& b) { return a.what < b.what; };
    SortAndPairUp(lost, added, byValue, [&](const Fact* a, const Fact* b) {
        Count(Fate::kChanged, a->keyed ? a->what : a->what + " became " + b->what, place);
    });
    SortAndPairUp(lost, added, byName, [&](const Fact* a, const Fact*) { Count(Fate::kChanged, a->what, place); });
    for (const Fact* fact : lost)
        Count(Fate::kLost, fact->what, place);
    for (const Fact* fact : added)
        Count(Fate::kAdded, fact->what, place);

    std::sort(kept.begin(), kept.end());
    const bool sameOrder =
        std::is_sorted(kept.begin(), kept.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
    if (!sameOrder) Count(Fate::kReordered, "order of the values", place);
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

void LossReport::Count(Fate fate, const std::string& what, const std::string& place) {
    Tally& tally = tallies_[{fate, what}];
    if (tally.count++ == 0) tally.firstPlace = place;
}

}  // namespace orvale
