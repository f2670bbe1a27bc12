#pragma once

// The months of the calendar: which days an entry falls on.

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "command/html/PageText.h"
#include "records/CalendarItem.h"

namespace orvale {

/// What stands in the days of the months: each entry on its own days, and on those on which it repeats, in the years
/// that have entries of their own.
class MonthMarks {
 public:
    /// Takes an entry; its number is how many were taken before.
    void Put(const CCalendarItem& item);

    /// Spreads the entries over the days, once all are there.
    void Spread();

    /// Whether all repetitions were drawn: there is a limit to them, since a small file can ask for any number.
    bool IsWhole() const { return whole_; }

    /// Whether a year is drawn.
    bool HasYear(int year) const { return std::binary_search(years_.begin(), years_.end(), year); }

    /// The drawn months in their order, each as year times twelve and the month from 0, with how many marks it has.
    const std::map<std::int64_t, std::size_t>& Months() const { return months_; }

    /// A month as a table.
    Markup Month(std::int64_t month) const;

 private:
    struct Entry {
        CalendarFields start;
        std::int64_t firstDay;
        std::int64_t lastDay;
        int type;  // RECURS_; none where the phone's way of repeating isn't known
        std::int32_t interval;
        std::int32_t weekMask;
        int dayOfMonth;
        int month;
        bool onWeekday;
        std::int64_t times;  // how often at most
        std::int64_t until;  // the last day that it may fall on
        bool isAllDay;
        std::size_t colour;
        std::string classes;
        std::u16string title;
        std::size_t number;
    };
    // What a day shows: the first few of its entries, and how many more there are.
    struct Mark {
        int minute;
        std::size_t entry;
        bool isRepeat;
    };
    struct Day {
        std::vector<Mark> marks;
        std::size_t more = 0;
    };

    bool OccursOn(const Entry& entry, std::int64_t day) const;
    void SpreadRepeats(std::size_t place);
    bool Draw(std::int64_t day, std::size_t place, bool isRepeat);
    Markup DayHtml(std::int64_t day, int dayOfMonth) const;

    std::vector<Entry> entries_;
    std::size_t count_ = 0;
    std::map<std::int64_t, Day> days_;
    std::map<std::int64_t, std::size_t> months_;
    std::vector<int> years_;
    std::size_t drawn_ = 0;
    std::size_t looks_ = 0;
    bool whole_ = true;
};

/// Whether an entry has a day but no time of it.
bool IsAllDay(const CCalendarItem& item);

/// The colour of an entry: its category.
std::size_t CategoryColour(const CCalendarItem& item);

}  // namespace orvale
