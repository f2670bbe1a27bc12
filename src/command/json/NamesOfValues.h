#pragma once

#include <string>

#include "records/ValueTables.h"

namespace orvale {

/// The name of a number in one of the value tables, or an empty text.
template <const auto& kTable>
std::string NameIn(std::int32_t value) {
    const NamedValue* const row = FindValue(kTable, value);
    return row != nullptr ? std::string(row->name) : std::string();
}

}  // namespace orvale
