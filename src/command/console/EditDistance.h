#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace orvale {

/// How many letters have to be changed, put in or taken out, or pairs of neighbours swapped, to make one word of
/// another.
std::size_t EditDistance(std::string_view a, std::string_view b);

/// The word that was meant by one that isn't there, the first of several as near, whatever the case; empty if none is
/// near. A third of the letters at most may differ, and three at most; a word may also be the front of the one meant.
std::string_view NearestWord(std::string_view word, const std::vector<std::string_view>& words);

}  // namespace orvale
