#include "command/console/EditDistance.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

namespace orvale {

namespace {

std::string LowerCase(std::string_view word) {
    std::string lower(word);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return lower;
}

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> above;
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::vector<std::size_t> before = std::exchange(above, row);  // the row above `above`
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            row[j + 1] = std::min({above[j] + (a[i] != b[j]), row[j] + 1, above[j + 1] + 1});
            const bool swapped = i != 0 && j != 0 && a[i] == b[j - 1] && a[i - 1] == b[j];
            if (swapped) row[j + 1] = std::min(row[j + 1], before[j - 1] + 1);
        }
    }
    return row.back();
}

std::string_view NearestWord(std::string_view word, const std::vector<std::string_view>& words) {
    constexpr std::size_t kLongest = 32;  // the cost is the product of the lengths
    constexpr std::size_t kMost = 3;
    constexpr std::size_t kShortestFront = 3;
    if (word.size() > kLongest) return {};
    const std::string lower = LowerCase(word);
    std::string_view nearest;
    std::size_t least = std::min(kMost, (word.size() + 2) / 3) + 1;
    for (const std::string_view each : words) {
        const std::size_t distance = EditDistance(lower, each);
        if (distance >= least) continue;
        nearest = each;
        least = distance;
    }
    if (!nearest.empty() || word.size() < kShortestFront) return nearest;
    const auto starts = std::find_if(words.begin(), words.end(), [&](auto each) { return each.starts_with(lower); });
    return starts != words.end() ? *starts : nearest;
}

}  // namespace orvale
