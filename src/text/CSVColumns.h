#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/HashMap.h"
#include "records/CSVProfile.h"

namespace orvale {

/// The columns that a host's profile names, each with its caption and contact field type, and those that a writer adds
/// to them. Several columns may have one type.
class CSVColumns {
 public:
    CSVColumns() = default;
    /// A caption ends at its first zero. An entry of one of the profile's lists that has no partner in the other is no
    /// column.
    explicit CSVColumns(const CCSVProfile& profile);

    bool IsEmpty() const { return columns_.empty(); }
    std::size_t Count() const { return columns_.size(); }
    const std::u16string& Caption(std::size_t column) const { return columns_.at(column).caption; }

    /// The type of the first column with a caption, without regard to case; -1 if there is none.
    std::int32_t TypeOf(std::u16string_view caption) const;

    /// Begins a row, in which all columns are free.
    void StartRow();

    /// Takes the first free column of a type for a value of the row. Where all of the type's columns are taken, one
    /// more with the caption of its first is added behind the others, for this row and all later ones. None for a type
    /// without a column. The cost doesn't grow with the number of columns.
    std::optional<std::size_t> Take(std::int32_t type);

 private:
    struct Column {
        std::u16string caption;
        std::int32_t type;
    };
    struct ColumnsOfType {
        std::vector<std::size_t> places;  // in columns_, ascending, at least one
        std::size_t taken = 0;            // so many of the first are taken in the row
    };

    std::vector<Column> columns_;
    std::vector<ColumnsOfType> types_;
    HashMap<std::size_t> typePlaces_;  // a type's place in types_
};

}  // namespace orvale
