#pragma once

#include <cstddef>

#include "command/show/Screen.h"
#include "records/GeneralSyncData.h"

namespace orvale {

/// Prints records as a person reads them, one after the other.
template <class Record>
class RecordPrinter;

/// One block a contact: its name and its groups, then a row for each value.
template <>
class RecordPrinter<CContactItem> {
 public:
    explicit RecordPrinter(Screen& screen) : screen_(screen) {}
    void Print(const CContactItem& contact);

 private:
    Screen& screen_;
    std::size_t count_ = 0;
};

}  // namespace orvale
