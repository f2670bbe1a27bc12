#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace orvale {

/// How many letters have to be changed, put in or taken out to make one word of another.
std::size_t EditDistance(std::string_view a, std::string_view b);

/// The word that was meant by one that isn't there, the first of several as near; empty if none is near. Half of the
/// letters at most may differ, and three at most.
std::string_view NearestWord(std::string_view word, const std::vector<std::string_view>& words);

}  // namespace orvale
