#include "command/show/Wording.h"

#include <cstdlib>

#include "host/Facts.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr const char16_t* kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                       u"July",    u"August",   u"September", u"October", u"November", u"December"};

constexpr std::int32_t kWorkdays = CAL_MONDAY | CAL_TUESDAY | CAL_WEDNESDAY | CAL_THURSDAY | CAL_FRIDAY;

std::u16string Every(std::int32_t interval, std::u16string_view unit) {
    return interval <= 1 ? Format(u"every %s", unit) : Format(u"every %d %ss", interval, unit);
}

std::u16string WeekdaysText(std::int32_t mask) {
    if (mask == kWorkdays) return u"workdays";
    return FromUtf8(FlagsCaption(kWeekdays, mask));
}

}  // namespace

std::u16string MonthName(int month) {
    return month >= 1 && month <= 12 ? std::u16string(kMonths[month - 1]) : Format(u"month %d", month);
}

std::u16string DayText(const CalendarFields& f) {
    const std::string_view weekday = kWeekdays[DayOfWeek(f)].caption;
    return Format(u"%s, %d %s %d", FromUtf8(weekday), f.day, MonthName(f.month), f.year);
}

std::optional<CalendarFields> FieldsOf(const DateValue& date) {
    return date.IsNone() ? std::nullopt : date.Fields();
}

bool SameDay(const CalendarFields& a, const CalendarFields& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

std::u16string RecurrenceText(const CCalendarItem& item) {
    std::u16string text;
    const bool onWeekday = item.recurinstance != 0;
    const std::u16string days = WeekdaysText(item.recurweekmask);
    switch (item.recurtype) {
        case RECURS_DAILY:
            text = Every(item.recurinterval, u"day");
            break;
        case RECURS_WEEKLY:
            text = Every(item.recurinterval, u"week");
            if (item.recurweekmask == kWorkdays && item.recurinterval == 0)
                text = u"every workday";
            else if (item.recurweekmask != 0)
                text += u" on " + days;
            break;
        case RECURS_MONTHLY:
            text = Every(item.recurinterval, u"month");
            if (!onWeekday)
                text += Format(u" on day %d", item.recurday);
            else if (item.recurweekmask != 0)
                text += u" on " + days;
            break;
        case RECURS_YEARLY:
            text = Every(item.recurinterval, u"year");
            if (!onWeekday)
                text += Format(u" on %d %s", item.recurday, MonthName(item.recurmonth));
            else
                text += (item.recurweekmask != 0 ? u" on " + days : u"") + u" in " + MonthName(item.recurmonth);
            break;
        default:
            text =
                FromUtf8(ValueCaption(kRecurrences, item.recurtype)) +
                Format(u" (day %d, month %d, instance %d, weekday %d, weekdays %d, interval %d)", item.recurday,
                       item.recurmonth, item.recurinstance, item.recurweekday, item.recurweekmask, item.recurinterval);
            break;
    }
    if (item.recurrepeat != 0) text += Format(item.recurrepeat == 1 ? u", %d time" : u", %d times", item.recurrepeat);
    if (item.recurhasenddate != 0 && !item.recurenddate.IsNone()) text += u", until " + DateText(item.recurenddate);
    return text;
}

std::u16string AlarmText(const CCalendarItem& item) {
    return Format(u"%d minutes %s", std::abs(static_cast<std::int64_t>(item.remindermin)),
                  item.remindermin > 0 ? u"before" : u"after");
}

std::u16string TextOf(const CContactItem& contact, std::int32_t type) {
    std::int32_t index = 0;
    const CContactField* const field = contact.FindField(type, index);
    return field != nullptr ? field->Data : std::u16string();
}

std::u16string Joined(const std::vector<std::u16string>& texts, std::u16string_view separator) {
    std::u16string all;
    for (const std::u16string& text : texts) {
        if (!all.empty()) all += separator;
        all += text;
    }
    return all;
}

}  // namespace orvale
