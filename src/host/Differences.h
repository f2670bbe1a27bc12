#pragma once

#include <vector>

#include "host/Facts.h"

namespace orvale {

/// What became of one thing that a record says.
enum class Fate {
    kLost,       ///< only the first record says it
    kChanged,    ///< the second says it with another value, or under another name
    kAdded,      ///< only the second says it
    kReordered,  ///< what both say comes in another order
};

/// One difference of two records. The facts are those that were compared; null where a side has none.
struct Difference {
    Fate fate;
    const Fact* before;
    const Fact* after;
};

/// All that two records differ in: what is lost or changed, in the order of `before`, then what is added, in the order
/// of `after`, then the order of the rest.
std::vector<Difference> DifferencesOf(const std::vector<Fact>& before, const std::vector<Fact>& after);

/// What a difference is about, in words: "mobile phone", or "fax became work fax".
std::string SubjectOf(const Difference& difference);

}  // namespace orvale
