#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The columns of a CSV file, as the host gives them: entry i of the one list belongs to entry i of the other.
class CCSVProfile {
 public:
    std::vector<std::uint32_t> typeIds;  ///< contact field type ids; one may stand more than once
    std::vector<std::u16string> captions;
};
