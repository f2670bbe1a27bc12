#pragma once

// `orvale diff`.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "command/console/CommandError.h"
#include "host/Formats.h"
#include "host/LoadedLibrary.h"

namespace orvale {

/// What `orvale diff` was asked for.
struct DiffOrder {
    std::array<std::string, 2> files;
    std::string format;                 ///< of both; empty to find it
    std::vector<std::string> profiles;  ///< files of --profile, for a file of columns
    bool json = false;
};

/// One thing that two records differ in.
struct Change {
    std::string what;
    std::optional<std::u16string> before;  ///< as a person reads it; none where the first record doesn't say it
    std::optional<std::u16string> after;
};

/// A record that stands in one file alone, or in both with differences.
struct RecordDifference {
    std::array<std::optional<std::size_t>, 2> numbers;  ///< in each file, from 1
    std::u16string title;
    std::vector<Change> changes;  ///< none for a record of one file alone
};

/// All that two files differ in.
struct FileDifferences {
    std::array<std::string, 2> files;
    Kind kind;
    std::vector<Change> profile;
    std::vector<RecordDifference> records;
    std::size_t same = 0;   ///< records that are the same in both
    std::size_t moved = 0;  ///< those of them that stand in another order
};

/// Holds the records of two files of one kind against each other, whatever their formats, and prints what they differ
/// in. Equal records find each other wherever they stand; of the others, those of one title, then those of one place.
/// The result is kFailed where anything differs.
ExitCode Diff(const LoadedLibrary& library, const DiffOrder& order);

}  // namespace orvale
