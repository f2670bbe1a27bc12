// The calendar in a listing.
#include <algorithm>
#include <optional>
#include <sstream>
#include <tuple>

#include "command/show/RecordPrinter.h"
#include "command/show/Titles.h"
#include "command/show/Wording.h"
#include "host/Facts.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// Whether the end stands beside the start: on the same day, and short enough to fit. Any other end has a row of its
// own.
bool EndsOnTheDay(const CCalendarItem& item) {
    const auto start = FieldsOf(item.dtstart);
    const auto end = FieldsOf(item.dtend);
    return start && end && SameDay(*start, *end) && start->second == 0 && end->second == 0;
}

// "06:00-07:30", or "06:00".
std::u16string TimeText(const CCalendarItem& item) {
    const auto start = FieldsOf(item.dtstart);
    if (!start) return {};
    std::u16string text = ClockText(*start);
    const auto end = FieldsOf(item.dtend);
    if (EndsOnTheDay(item) && *end != *start) text += u"-" + ClockText(*end);
    return text;
}

void PrintRows(Screen& screen, const CCalendarItem& item, const CCalendarField* shown) {
    const auto number = [&](const char* label, std::int32_t value) {
        if (value != 0) screen.Row(label, Format(u"%d", value));
    };
    for (const auto& field : item.fields) {
        if (!field || (field.get() == shown && field->secondNumber == 0)) continue;
        screen.Row(CalendarFieldCaption(field->Type), field.get() == shown ? u"" : field->Data);
        if (field->secondNumber != 0) screen.Row("", Format(u"(%d)", field->secondNumber));
    }
    if (!item.dtend.IsNone() && !EndsOnTheDay(item)) screen.Row("ends", DateText(item.dtend));
    if (item.recurtype != RECURS_NONE) screen.Row("repeats", RecurrenceText(item));
    if (item.remindermin != 0) screen.Row("alarm", AlarmText(item));
    if (item.priority != CAL_TASK_PRIORITY_NORMAL)
        screen.Row("priority", FromUtf8(ValueCaption(kTaskPriorities, item.priority)));
    if (item.category != CATE_MISCELLANEOUS)
        screen.Row("category", FromUtf8(ValueCaption(kCalendarCategories, item.category)));
    if (item.secret != 0) screen.Row("secret", u"yes");
    if (!item.ring.empty() || item.ringid != 0) screen.Row("ring tone", Format(u"%s (%d)", item.ring, item.ringid));
    if (item.vibration != 0) screen.Row("vibration", u"yes");
    number("duration", item.duration);
    number("first reserved number", item.reserve1);
    number("second reserved number", item.reserve2);
    if (item.operation != 0) screen.Row("note", u"a date of this entry could not be read");
}

}  // namespace

void RecordPrinter<CCalendarItem>::Print(const CCalendarItem& item) {
    std::ostringstream block;
    Screen screen(block, screen_.HasColor());
    screen.Put("  ");
    screen.Put(Screen::Fit(TimeText(item), 13), Screen::Style::kLabel);
    if (item.itemType == PHONE_TODO_TYPE) screen.Put(item.complete != 0 ? "[x] " : "[ ] ");
    screen.PutBlock(TitleOf(item), 15, Screen::Style::kTitle);
    if (item.itemType != PHONE_TODO_TYPE && item.complete != 0) screen.Row("completed", u"yes");
    PrintRows(screen, item, TitleField(item));

    const auto fields = FieldsOf(item.dtstart);
    const bool noDate = item.dtstart.Value() == 0.0;  // also where a reader found none in the text
    std::string heading = "No date";
    if (fields)
        heading = ToUtf8(DayText(*fields));
    else if (!noDate)
        heading = "Out of range: " + ToUtf8(DateText(item.dtstart));
    entries_.push_back(
        {fields.value_or(CalendarFields{}), fields.has_value(), std::move(heading), std::move(block).str()});
}

void RecordPrinter<CCalendarItem>::Finish() {
    std::stable_sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
        const auto order = [](const CalendarFields& f) {
            return std::tie(f.year, f.month, f.day, f.hour, f.minute, f.second);
        };
        return a.dated != b.dated ? a.dated : a.dated && order(a.start) < order(b.start);
    });
    const std::string* last = nullptr;
    for (const Entry& entry : entries_) {
        if (last == nullptr || *last != entry.heading) {
            if (last != nullptr) screen_.EndLine();
            screen_.Put(entry.heading, Screen::Style::kTitle);
            screen_.EndLine();
        }
        screen_.Put(entry.block);
        last = &entry.heading;
    }
}

}  // namespace orvale
