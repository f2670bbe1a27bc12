#include "host/Differences.h"

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

std::vector<Difference> DifferencesOf(const std::vector<Fact>& before, const std::vector<Fact>& after) {
    std::vector<Difference> differences;
    if (before == after) return differences;
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
    const auto change = [&](const Fact* a, const Fact* b) { differences.push_back({Fate::kChanged, a, b}); };
    SortAndPairUp(lost, added, byValue, change);
    SortAndPairUp(lost, added, byName, change);
    for (const Fact* const fact : lost)
        differences.push_back({Fate::kLost, fact, nullptr});
    std::sort(differences.begin(), differences.end(),
              [](const Difference& a, const Difference& b) { return a.before < b.before; });
    std::sort(added.begin(), added.end());
    for (const Fact* const fact : added)
        differences.push_back({Fate::kAdded, nullptr, fact});

    std::sort(kept.begin(), kept.end());
    const bool sameOrder =
        std::is_sorted(kept.begin(), kept.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
    if (!sameOrder) differences.push_back({Fate::kReordered, nullptr, nullptr});
    return differences;
}

std::string SubjectOf(const Difference& difference) {
    const auto& [fate, before, after] = difference;
    if (fate == Fate::kReordered) return "order of the values";
    if (before == nullptr) return after->what;
    return after == nullptr || before->what == after->what ? before->what : before->what + " became " + after->what;
}

}  // namespace orvale
