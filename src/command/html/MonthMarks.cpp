#include "command/html/MonthMarks.h"

#include <algorithm>
#include <chrono>

#include "command/show/Titles.h"
#include "command/show/Wording.h"
#include "platform/Format.h"

namespace orvale {
namespace {

namespace chrono = std::chrono;

constexpr std::size_t kShown = 3;              // marks of a day
constexpr std::size_t kMostDrawn = 50000;      // marks of repetitions and of long entries, in all
constexpr std::size_t kMostLooks = 4'000'000;  // at days, whether an entry repeats on them

chrono::year_month_day DateOf(std::int64_t day) {
    return chrono::sys_days(chrono::days(day));
}

std::int64_t DayNumber(int year, int month, int day) {
    return chrono::sys_days(chrono::year(year) / month / day).time_since_epoch().count();
}

std::int64_t DayNumber(const CalendarFields& fields) {
    return DayNumber(fields.year, fields.month, fields.day);
}

int YearOf(std::int64_t day) {
    return static_cast<int>(DateOf(day).year());
}

int MonthOf(const chrono::year_month_day& date) {
    return static_cast<int>(static_cast<unsigned>(date.month()));
}

int DayOf(const chrono::year_month_day& date) {
    return static_cast<int>(static_cast<unsigned>(date.day()));
}

// From 0 for Sunday, as the masks count.
int WeekdayOf(std::int64_t day) {
    return static_cast<int>(chrono::weekday(chrono::sys_days(chrono::days(day))).c_encoding());
}

// The number of a day's week; weeks begin on Monday, and day 0 is a Thursday.
std::int64_t WeekOf(std::int64_t day) {
    return (day + 3 - (WeekdayOf(day) + 6) % 7) / 7;
}

}  // namespace

bool IsAllDay(const CCalendarItem& item) {
    const auto start = FieldsOf(item.dtstart);
    if (!start || start->hour != 0 || start->minute != 0 || start->second != 0) return false;
    const auto end = FieldsOf(item.dtend);
    return !end || (end->hour == 0 && end->minute == 0 && end->second == 0) || (end->hour == 23 && end->minute == 59);
}

std::size_t CategoryColour(const CCalendarItem& item) {
    const bool known = item.HasCategory() && FindValue(kCalendarCategories, item.category) != nullptr;
    return known ? static_cast<std::size_t>(item.category) : 0;
}

void MonthMarks::Put(const CCalendarItem& item) {
    const std::size_t number = count_++;
    const auto start = FieldsOf(item.dtstart);
    if (!start) return;
    Entry entry{};
    entry.start = *start;
    entry.firstDay = entry.lastDay = DayNumber(*start);
    if (const auto end = FieldsOf(item.dtend)) {
        const bool atMidnight = end->hour == 0 && end->minute == 0 && end->second == 0;
        constexpr std::int64_t kLongest = 366;  // days that are drawn
        entry.lastDay = std::clamp(DayNumber(*end) - (atMidnight ? 1 : 0), entry.firstDay, entry.firstDay + kLongest);
    }
    const bool known = item.recurtype >= RECURS_DAILY && item.recurtype <= RECURS_YEARLY;
    entry.type = known ? item.recurtype : RECURS_NONE;
    entry.interval = std::max(item.recurinterval, 1);
    entry.weekMask = item.recurweekmask != 0 ? item.recurweekmask : 1 << WeekdayOf(entry.firstDay);
    entry.dayOfMonth = item.recurday != 0 ? item.recurday : start->day;
    entry.month = item.recurmonth != 0 ? item.recurmonth : start->month;
    entry.onWeekday = item.recurinstance != 0;
    entry.times = item.recurrepeat > 0 ? item.recurrepeat : INT64_MAX;
    const auto until = item.recurhasenddate != 0 ? FieldsOf(item.recurenddate) : std::nullopt;
    entry.until = until ? DayNumber(*until) : INT64_MAX;
    entry.isAllDay = IsAllDay(item);
    entry.colour = CategoryColour(item);
    entry.classes = item.itemType == PHONE_TODO_TYPE ? (item.complete != 0 ? " todo done" : " todo") : "";
    const CCalendarField* const title = TitleField(item);
    constexpr std::size_t kMostTitle = 40;
    entry.title = title != nullptr ? Snippet(title->Data, kMostTitle) : u"No description";
    entry.number = number;
    entries_.push_back(std::move(entry));
}

// The years are those in which something begins. What comes back each year may have begun long before any of it: a
// birthday draws no year of its own, unless there is nothing else.
void MonthMarks::Spread() {
    const auto gather = [&](bool yearlyToo) {
        for (const Entry& entry : entries_)
            if (yearlyToo || entry.type != RECURS_YEARLY) years_.push_back(entry.start.year);
    };
    gather(false);
    if (years_.empty()) gather(true);
    std::sort(years_.begin(), years_.end());
    years_.erase(std::unique(years_.begin(), years_.end()), years_.end());
    for (std::size_t place = 0; place < entries_.size(); ++place)
        Draw(entries_[place].firstDay, place, false);
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        const Entry& entry = entries_[place];
        for (std::int64_t day = entry.firstDay + 1; day <= entry.lastDay && Draw(day, place, false); ++day) {
        }
        if (entry.type != RECURS_NONE) SpreadRepeats(place);
    }
}

// Day by day, since the phones' ways of repeating are easier told of a day than counted.
void MonthMarks::SpreadRepeats(std::size_t place) {
    const Entry& entry = entries_[place];
    std::int64_t times = 1;  // the start is the first
    const std::int64_t end = std::min(entry.until, DayNumber(years_.back(), 12, 31));
    for (std::int64_t day = entry.firstDay + 1; day <= end && times < entry.times; ++day) {
        if (++looks_ > kMostLooks) {
            whole_ = false;
            return;
        }
        const auto year = std::lower_bound(years_.begin(), years_.end(), YearOf(day));
        if (*year != YearOf(day) && entry.times == INT64_MAX) day = DayNumber(*year, 1, 1);
        if (!OccursOn(entry, day)) continue;
        ++times;
        if (*year == YearOf(day) && !Draw(day, place, true)) return;
    }
}

bool MonthMarks::OccursOn(const Entry& entry, std::int64_t day) const {
    const chrono::year_month_day date = DateOf(day);
    const bool inMask = (entry.weekMask >> WeekdayOf(day) & 1) != 0;
    const bool sameWeekOfMonth = (DayOf(date) - 1) / 7 == (entry.start.day - 1) / 7;
    const std::int64_t years = YearOf(day) - entry.start.year;
    const std::int64_t months = years * 12 + MonthOf(date) - entry.start.month;
    switch (entry.type) {
        case RECURS_DAILY:
            return (day - entry.firstDay) % entry.interval == 0;
        case RECURS_WEEKLY:
            return inMask && (WeekOf(day) - WeekOf(entry.firstDay)) % entry.interval == 0;
        case RECURS_MONTHLY:
            return months % entry.interval == 0 &&
                   (entry.onWeekday ? inMask && sameWeekOfMonth : DayOf(date) == entry.dayOfMonth);
        case RECURS_YEARLY:
            return years % entry.interval == 0 && MonthOf(date) == entry.month &&
                   (entry.onWeekday ? inMask && sameWeekOfMonth : DayOf(date) == entry.dayOfMonth);
        default:
            return false;
    }
}

// False where no more may be drawn.
bool MonthMarks::Draw(std::int64_t day, std::size_t place, bool isRepeat) {
    const Entry& entry = entries_[place];
    if (day != entry.firstDay && ++drawn_ > kMostDrawn) {
        whole_ = false;
        return false;
    }
    const chrono::year_month_day date = DateOf(day);
    if (!HasYear(static_cast<int>(date.year()))) return true;
    ++months_[static_cast<int>(date.year()) * 12LL + MonthOf(date) - 1];
    const int minute = entry.isAllDay ? -1 : entry.start.hour * 60 + entry.start.minute;
    Day& marks = days_[day];
    const auto behind =
        std::find_if(marks.marks.begin(), marks.marks.end(), [&](const Mark& mark) { return mark.minute > minute; });
    marks.marks.insert(behind, {minute, place, isRepeat});
    if (marks.marks.size() <= kShown) return true;
    ++marks.more;
    // The one that is left out leads to the day's others, and is kept as the last.
    if (marks.marks.size() > kShown + 1) marks.marks.pop_back();
    return true;
}

Markup MonthMarks::DayHtml(std::int64_t day, int dayOfMonth) const {
    const Pieces& pieces = Pieces::OfPage();
    Markup marks;
    if (const auto found = days_.find(day); found != days_.end()) {
        const Day& each = found->second;
        for (std::size_t i = 0; i < std::min(each.marks.size(), kShown); ++i) {
            const Mark& mark = each.marks[i];
            const Entry& entry = entries_[mark.entry];
            const bool hasTime = !entry.isAllDay && (mark.isRepeat || day == entry.firstDay);
            pieces.Add(marks, "mark",
                       {{"colour", entry.colour},
                        {"classes", entry.classes + (mark.isRepeat ? " again" : "")},
                        {"number", entry.number},
                        {"time", hasTime ? Format(u"%02d:%02d", entry.start.hour, entry.start.minute) : u""},
                        {"title", entry.title},
                        {"repeat", mark.isRepeat ? pieces.Make("mark-repeat") : Markup()}});
        }
        if (each.more != 0)
            pieces.Add(marks, "marks-more",
                       {{"number", entries_[each.marks.back().entry].number}, {"count", each.more}});
    }
    return pieces.Make("day", {{"day", std::to_string(dayOfMonth)}, {"marks", marks}});
}

Markup MonthMarks::Month(std::int64_t month) const {
    const Pieces& pieces = Pieces::OfPage();
    const auto year = static_cast<int>(month / 12);
    const auto inYear = static_cast<int>(month % 12 + 1);
    const std::int64_t first = DayNumber(year, inYear, 1);
    const std::int64_t end = inYear == 12 ? DayNumber(year + 1, 1, 1) : DayNumber(year, inYear + 1, 1);
    Markup weeks;
    for (std::int64_t monday = first - (WeekdayOf(first) + 6) % 7; monday < end; monday += 7) {
        Markup days;
        for (std::int64_t day = monday; day < monday + 7; ++day) {
            if (day < first || day >= end)
                pieces.Add(days, "gap");
            else
                days += DayHtml(day, static_cast<int>(day - first) + 1);
        }
        pieces.Add(weeks, "week", {{"days", days}});
    }
    return pieces.Make("month", {{"key", std::to_string(year) + "-" + std::to_string(inYear)},
                                 {"name", MonthName(inYear)},
                                 {"year", std::to_string(year)},
                                 {"weeks", weeks}});
}

}  // namespace orvale
