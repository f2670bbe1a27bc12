#include "command/EditDistance.h"

#include <algorithm>

namespace orvale {

std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = j;
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t change = diagonal + (a[i] != b[j]);
            diagonal = row[j + 1];
            row[j + 1] = std::min({change, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

std::string_view NearestWord(std::string_view word, const std::vector<std::string_view>& words) {
    constexpr std::size_t kLongest = 32;  // the cost is the product of the lengths
    constexpr std::size_t kMost = 3;
    if (word.size() > kLongest) return {};
    std::string_view nearest;
    std::size_t least = std::min(kMost, (word.size() + 1) / 2) + 1;
    for (const std::string_view each : words) {
        const std::size_t distance = EditDistance(word, each);
        if (distance >= least) continue;
        nearest = each;
        least = distance;
    }
    return nearest;
}

}  // namespace orvale
