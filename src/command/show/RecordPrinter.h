#pragma once

// The listing of `orvale show`.

#include <cstddef>
#include <string>
#include <vector>

#include "command/console/Screen.h"
#include "records/GeneralSyncData.h"

namespace orvale {

/// Prints records as a person reads them: Print for each, then Finish.
template <class Record>
class RecordPrinter;

/// One block a contact: its name and its groups, then a row for each value.
template <>
class RecordPrinter<CContactItem> {
 public:
    explicit RecordPrinter(Screen& screen) : screen_(screen) {}
    void Print(const CContactItem& contact);
    void Finish() {}

 private:
    Screen& screen_;
    std::size_t count_ = 0;
};

/// An agenda: the entries by their start, under a heading for each day. Those without a start come last.
template <>
class RecordPrinter<CCalendarItem> {
 public:
    explicit RecordPrinter(Screen& screen) : screen_(screen) {}
    void Print(const CCalendarItem& item);
    void Finish();

 private:
    struct Entry {
        CalendarFields start;
        bool dated;
        std::string heading;
        std::string block;
    };

    Screen& screen_;
    std::vector<Entry> entries_;
};

/// A dated list: a line with box, status and the other party, then the text.
template <>
class RecordPrinter<CSMSItem> {
 public:
    explicit RecordPrinter(Screen& screen) : screen_(screen) {}
    void Print(const CSMSItem& sms);
    void Finish() {}

 private:
    Screen& screen_;
    std::size_t count_ = 0;
};

/// One block an email: the usual head lines, then the text.
template <>
class RecordPrinter<CEmailItem> {
 public:
    explicit RecordPrinter(Screen& screen) : screen_(screen) {}
    void Print(const CEmailItem& email);
    void Finish() {}

 private:
    Screen& screen_;
    std::size_t count_ = 0;
};

}  // namespace orvale
