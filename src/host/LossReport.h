#pragma once

// What became of many records on their way into a file.

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "host/Differences.h"

namespace orvale {

/// What became of records on their way into a file: gathered record by record, told by kind of value with a count and
/// the first place. Memory grows with the kinds of differences, not with their number.
///
///     LossReport report("contact");
///     report.Compare(FactsOf(written), FactsOf(readBack), 1);  // and so on for each record
///     for (const std::string& line : report.Lines()) ...       // "lost: groups: 4, first in contact 1"
class LossReport {
 public:
    /// `recordWord` is what one record is called, such as "contact".
    explicit LossReport(std::string recordWord) : recordWord_(std::move(recordWord)) {}

    /// Holds a record against what came back of it. `number` counts the records from 1.
    void Compare(const std::vector<Fact>& before, const std::vector<Fact>& after, std::size_t number) {
        Compare(before, after, recordWord_ + " " + std::to_string(number));
    }

    /// The same for something else than a record, at a place in words.
    void Compare(const std::vector<Fact>& before, const std::vector<Fact>& after, const std::string& place);

    /// Adds something that was lost before there was a record, with its count and first place in words.
    void AddLoss(const std::string& what, std::size_t count, const std::string& firstPlace);

    /// Whether something was lost or came back as something else. What was only added, or stands in another order, is
    /// no loss.
    bool HasLoss() const;

    /// One line for each kind of difference: losses, changes, additions, order.
    std::vector<std::string> Lines() const;

 private:
    struct Tally {
        std::size_t count = 0;
        std::string firstPlace;
    };

    std::string recordWord_;
    std::map<std::pair<Fate, std::string>, Tally> tallies_;
};

}  // namespace orvale
