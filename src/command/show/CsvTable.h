#pragma once

// The table of `orvale show --csv`.

#include <cstddef>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "records/GeneralSyncData.h"

namespace orvale {

/// Records as a flat table for spreadsheets: a row of column names, then a row for each record; comma-separated, in
/// UTF-8, lines ended by CR LF (RFC 4180). The columns of a record's list of values are those that the records use, so
/// each record is shown twice: to Look, and after PutHead to Put.
class CsvTable {
 public:
    /// `isSafe` puts an apostrophe before a cell that a spreadsheet would take for a formula.
    CsvTable(std::ostream& out, bool isSafe) : out_(out), isSafe_(isSafe) {}

    template <class Record>
    void Look(const Record& record);
    template <class Record>
    void PutHead();
    template <class Record>
    void Put(const Record& record);

    static constexpr std::size_t kMostOfAType = 20;  ///< columns; what is beyond stands in the last of them
    static constexpr std::size_t kMostTypes = 500;   ///< what is beyond stands in a column of its own

 private:
    void PutRow(const std::vector<std::u16string>& cells);

    std::ostream& out_;
    bool isSafe_;
    std::map<std::int32_t, std::size_t> columns_;  // how many each type of value has
    bool hasOthers_ = false;
    bool hasGroups_ = false;
    bool hasExtras_ = false;
};

}  // namespace orvale
