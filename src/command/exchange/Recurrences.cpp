#include "command/exchange/Recurrences.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace orvale {
namespace {

constexpr std::int32_t kWorkdays = CAL_MONDAY | CAL_TUESDAY | CAL_WEDNESDAY | CAL_THURSDAY | CAL_FRIDAY;
constexpr std::int32_t kEveryDay = kWorkdays | CAL_SATURDAY | CAL_SUNDAY;
constexpr const char* kDays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};  // in the order of the mask's bits

// How a rule says on which days it recurs.
enum class On { kAnyDay, kWorkingDays, kWeekdays, kMonthDay, kNthWeekday };

// A combination of numbers by which a phone tells a recurrence, and the rule that says the same. The first row that
// fits is the one, in both directions.
struct Combination {
    std::int32_t recurtype;
    std::int32_t recurinstance;
    On on;
    icalrecurrencetype_frequency frequency;
    const char* frequencyName;
};

constexpr Combination kCombinations[] = {
    {RECURS_DAILY, 0, On::kAnyDay, ICAL_DAILY_RECURRENCE, "DAILY"},
    {RECURS_WEEKLY, 0, On::kWorkingDays, ICAL_WEEKLY_RECURRENCE, "WEEKLY"},  // the one with an interval of 0
    {RECURS_WEEKLY, 0, On::kWeekdays, ICAL_WEEKLY_RECURRENCE, "WEEKLY"},
    {RECURS_MONTHLY, 0, On::kMonthDay, ICAL_MONTHLY_RECURRENCE, "MONTHLY"},
    {RECURS_MONTHLY, 1, On::kNthWeekday, ICAL_MONTHLY_RECURRENCE, "MONTHLY"},
    {RECURS_YEARLY, 0, On::kMonthDay, ICAL_YEARLY_RECURRENCE, "YEARLY"},
    {RECURS_YEARLY, 1, On::kNthWeekday, ICAL_YEARLY_RECURRENCE, "YEARLY"},
};

// Which of its weekday in the month a day is.
int NthOf(const CalendarFields& date) {
    return (date.day - 1) / 7 + 1;
}

std::int32_t MaskOf(const CalendarFields& date) {
    return 1 << DayOfWeek(date);
}

bool Fits(const Combination& row, const CCalendarItem& item) {
    if (row.recurtype != item.recurtype || row.recurinstance != item.recurinstance) return false;
    return row.on != On::kWorkingDays || (item.recurweekmask == kWorkdays && item.recurinterval == 0);
}

std::string DayList(std::int32_t mask) {
    std::string list;
    for (int day = 0; day < 7; ++day)
        if ((mask >> day & 1) != 0) list += (list.empty() ? "" : ",") + std::string(kDays[day]);
    return list;
}

// The days of a combination as the parts of its rule; none where the numbers name no days.
std::optional<std::string> DayParts(const Combination& row, const CCalendarItem& item, const CalendarFields& start) {
    const auto month = [&] { return ";BYMONTH=" + std::to_string(item.recurmonth); };
    const bool yearly = row.recurtype == RECURS_YEARLY;
    if (yearly && (item.recurmonth < 1 || item.recurmonth > 12)) return std::nullopt;
    switch (row.on) {
        case On::kAnyDay:
            return "";
        case On::kWorkingDays:
        case On::kWeekdays:
            if (item.recurweekmask < 0 || item.recurweekmask > kEveryDay) return std::nullopt;
            return ";BYDAY=" + DayList(item.recurweekmask == 0 ? MaskOf(start) : item.recurweekmask);
        case On::kMonthDay:
            if (item.recurday < 1 || item.recurday > 31) return std::nullopt;
            return ";BYMONTHDAY=" + std::to_string(item.recurday) + (yearly ? month() : "");
        case On::kNthWeekday:
            // Which weekday of the month it is, the start alone tells.
            if (item.recurweekmask != MaskOf(start) || (yearly && item.recurmonth != start.month)) return std::nullopt;
            return ";BYDAY=" + std::to_string(NthOf(start)) + DayList(item.recurweekmask) + (yearly ? month() : "");
    }
    return std::nullopt;
}

// The members in which a recurrence is told, in the order of RecurrenceNumbers; behind them comes recurenddate.
constexpr std::array kNumbers{
    &CCalendarItem::recurtype,     &CCalendarItem::recurday,     &CCalendarItem::recurmonth,
    &CCalendarItem::recurinstance, &CCalendarItem::recurweekday, &CCalendarItem::recurweekmask,
    &CCalendarItem::recurinterval, &CCalendarItem::recurrepeat,  &CCalendarItem::recurhasenddate};

// A list of a rule as it is written: it ends at a mark, or where it is full.
template <std::size_t kSize>
std::vector<int> ListOf(const short (&values)[kSize]) {
    return {values, std::find(values, values + kSize, static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX))};
}

// What a rule says of the days, taken out of its lists.
struct DaysOfRule {
    std::int32_t mask = 0;  // of weekdays
    int nth = 0;            // of the weekday in its month; 0 for each
    int weekdays = 0;
    std::vector<int> monthDays;
    std::vector<int> months;
};

const char* TakeDays(DaysOfRule& days, const icalrecurrencetype& rule) {
    if (rule.rscale != nullptr) return "recurrences by another calendar than the Gregorian";
    if (rule.freq < ICAL_DAILY_RECURRENCE || rule.freq > ICAL_YEARLY_RECURRENCE)
        return "recurrences more often than once a day";
    if (!ListOf(rule.by_hour).empty() || !ListOf(rule.by_minute).empty() || !ListOf(rule.by_second).empty())
        return "recurrences at other times than that of their start";
    if (!ListOf(rule.by_week_no).empty() || !ListOf(rule.by_year_day).empty())
        return "recurrences by the number of a week or of a day in the year";
    for (const int day : ListOf(rule.by_day)) {
        const int weekday = std::abs(day) % 8;
        const int nth = (std::abs(day) - weekday) / 8 * (day < 0 ? -1 : 1);
        if (weekday == 0) return "recurrences on a day that is none";
        if (days.weekdays++ != 0 && nth != days.nth) return "recurrences on several weekdays of a month";
        days.nth = nth;
        days.mask |= 1 << (weekday - 1);
    }
    const std::vector<int> places = ListOf(rule.by_set_pos);
    if (places.size() == 1 && days.weekdays == 1 && days.nth == 0 && rule.freq >= ICAL_MONTHLY_RECURRENCE)
        days.nth = places[0];  // the second of the month's Mondays is its second Monday
    else if (!places.empty())
        return "recurrences on one of several days";
    days.monthDays = ListOf(rule.by_month_day);
    days.months = ListOf(rule.by_month);
    if (days.months.size() > 1) return "recurrences in several months";
    if (days.monthDays.size() > 1) return "recurrences on several days of a month";
    if (!days.monthDays.empty() && days.weekdays != 0) return "recurrences on a day of the month that is a weekday";
    if (!days.monthDays.empty() && days.monthDays[0] < 1) return "recurrences counted from the end of the month";
    return nullptr;
}

const char* TakeDaily(CCalendarItem& item, const DaysOfRule& days, int interval) {
    if (!days.months.empty() || !days.monthDays.empty()) return "recurrences on days of some months alone";
    item.recurtype = RECURS_DAILY;
    if (days.weekdays == 0 || days.mask == kEveryDay) return nullptr;
    if (interval != 1 || days.nth != 0) return "recurrences on every so many days that are a weekday";
    item.recurtype = RECURS_WEEKLY;
    return nullptr;
}

const char* TakeMonthly(CCalendarItem& item, const DaysOfRule& days, const CalendarFields& start, int daysLater,
                        bool yearly) {
    if (!yearly && !days.months.empty()) return "recurrences on days of some months alone";
    item.recurtype = yearly ? RECURS_YEARLY : RECURS_MONTHLY;
    const int month = days.months.empty() ? start.month : days.months[0];
    if (yearly && days.months.empty() && days.weekdays != 0) return "recurrences on a weekday counted in the year";
    if (month < 1 || month > 12) return "recurrences in a month that is none";
    if (days.weekdays != 0) {
        const bool isLast = days.nth == -1 && NthOf(start) == 5;
        if (days.weekdays > 1) return "recurrences on several weekdays of a month";
        if (days.nth == 0) return "recurrences in every week of a month";
        if (days.nth < 0 && !isLast) return "recurrences counted from the end of the month";
        if (days.mask != MaskOf(start) || (days.nth != NthOf(start) && !isLast) || (yearly && month != start.month))
            return "recurrences on another weekday than that of their start";
        item.recurinstance = 1;
    } else {
        item.recurday = days.monthDays.empty() ? start.day : days.monthDays[0];
    }
    if (yearly) item.recurmonth = month;
    return daysLater == 0 ? nullptr : "recurrences on another day in their zone than here";
}

}  // namespace

std::string DateTimeText(const CalendarFields& f) {
    char text[32];
    std::snprintf(text, sizeof text, "%04d%02d%02dT%02d%02d%02d", f.year, f.month, f.day, f.hour, f.minute, f.second);
    return text;
}

std::optional<std::string> RuleOf(const CCalendarItem& item) {
    const std::optional<CalendarFields> start = item.dtstart.IsNone() ? std::nullopt : item.dtstart.Fields();
    if (!start) return std::nullopt;  // a rule counts from a start
    for (const Combination& row : kCombinations) {
        if (!Fits(row, item)) continue;
        constexpr std::int32_t kLongest = 9999;
        const std::optional<std::string> days = DayParts(row, item, *start);
        if (!days || item.recurinterval < 0 || item.recurinterval > kLongest) return std::nullopt;
        std::string rule = std::string("FREQ=") + row.frequencyName;
        const std::optional<CalendarFields> end =
            item.recurhasenddate != 0 && !item.recurenddate.IsNone() ? item.recurenddate.Fields() : std::nullopt;
        if (end)
            rule += ";UNTIL=" + DateTimeText(*end);
        else if (item.recurrepeat > 0)
            rule += ";COUNT=" + std::to_string(item.recurrepeat);
        if (item.recurinterval > 1) rule += ";INTERVAL=" + std::to_string(item.recurinterval);
        return rule + *days;
    }
    return std::nullopt;
}

std::string RecurrenceNumbers(const CCalendarItem& item) {
    std::string text;
    for (const auto member : kNumbers)
        text += std::to_string(item.*member) + " ";
    char date[32];
    std::snprintf(date, sizeof date, "%.17g", item.recurenddate.Value());
    return text + date;
}

bool TakeRecurrenceNumbers(CCalendarItem& item, std::string_view text) {
    const char* place = text.data();
    const char* const end = place + text.size();
    for (const auto member : kNumbers) {
        const auto [behind, error] = std::from_chars(place, end, item.*member);
        if (error != std::errc() || behind == end || *behind != ' ') return false;
        place = behind + 1;
    }
    double date = 0;
    const auto [behind, error] = std::from_chars(place, end, date);
    item.recurenddate = DateValue(date);
    return error == std::errc() && behind == end;
}

void ClearRecurrence(CCalendarItem& item) {
    const CCalendarItem fresh;
    for (const auto member : kNumbers)
        item.*member = fresh.*member;
    item.recurenddate = fresh.recurenddate;
}

const char* TakeRule(CCalendarItem& item, const icalrecurrencetype& rule, const CalendarFields& start, int daysLater) {
    ClearRecurrence(item);
    DaysOfRule days;
    const char* reason = TakeDays(days, rule);
    const int interval = std::max<int>(rule.interval, 1);
    item.recurinterval = interval;
    if (reason == nullptr && rule.freq == ICAL_DAILY_RECURRENCE) reason = TakeDaily(item, days, interval);
    if (reason == nullptr && rule.freq >= ICAL_MONTHLY_RECURRENCE)
        reason = TakeMonthly(item, days, start, daysLater, rule.freq == ICAL_YEARLY_RECURRENCE);
    if (reason == nullptr && rule.freq == ICAL_WEEKLY_RECURRENCE) {
        item.recurtype = RECURS_WEEKLY;
        if (!days.months.empty() || !days.monthDays.empty()) reason = "recurrences on days of some months alone";
        if (days.nth != 0) reason = "recurrences on a day that is none";
        if (interval > 1 && days.weekdays > 1 && rule.week_start != ICAL_MONDAY_WEEKDAY)
            reason = "recurrences over several weeks that don't begin with Monday";
    }
    if (reason != nullptr) {
        ClearRecurrence(item);
        return reason;
    }
    if (item.recurtype == RECURS_WEEKLY || item.recurinstance != 0) {
        std::int32_t mask = days.weekdays != 0 ? days.mask : MaskOf(start);
        for (int shift = (daysLater % 7 + 7) % 7; shift > 0; --shift)
            mask = (mask << 1 | mask >> 6) & kEveryDay;
        item.recurweekmask = mask;
    }
    // Every workday is told by an interval of 0, once a week by one of 1.
    if (item.recurtype == RECURS_WEEKLY && item.recurweekmask == kWorkdays && interval == 1) item.recurinterval = 0;
    item.recurrepeat = rule.count;
    return nullptr;
}

}  // namespace orvale
