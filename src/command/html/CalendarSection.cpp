// The calendar on the page: an agenda by months.
#include <algorithm>
#include <numeric>

#include "command/html/Sections.h"
#include "command/show/Titles.h"
#include "command/show/Wording.h"
#include "host/Facts.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

std::u16string ShortClock(const CalendarFields& f) {
    return Format(u"%02d:%02d", f.hour, f.minute);
}

std::u16string LongDay(const CalendarFields& f) {
    return Format(u"%d %s %d", f.day, MonthName(f.month), f.year);
}

// When an entry begins and ends, as far as the day above it doesn't tell.
std::u16string WhenText(const CCalendarItem& item) {
    const auto start = FieldsOf(item.dtstart);
    const auto end = FieldsOf(item.dtend);
    const bool isTodo = item.itemType == PHONE_TODO_TYPE;
    if (!start) return item.dtend.IsNone() ? u"" : u"until " + DateText(item.dtend);
    std::u16string text = isTodo ? u"due " + LongDay(*start) : std::u16string();
    if (!IsAllDay(item))
        text += (text.empty() ? u"" : u", ") + ShortClock(*start);
    else if (!isTodo)
        text = u"All day";
    if (!end) return item.dtend.IsNone() ? text : text + u" – " + DateText(item.dtend);
    if (*end == *start) return text;
    if (!SameDay(*start, *end))
        text += u" – " + LongDay(*end) + (IsAllDay(item) ? u"" : u", " + ShortClock(*end));
    else if (!IsAllDay(item))
        text += u" – " + ShortClock(*end);
    return text;
}

// An entry's card being put together.
class EntryMaker {
 public:
    EntryMaker(const CCalendarItem& item, std::size_t number)
        : item_(item), number_(number), title_(TitleField(item)) {}

    Markup Make() {
        for (const auto& field : item_.fields)
            if (field) AddField(*field);
        if (item_.recurtype != RECURS_NONE) Line("repeat", "Repeats", TextMarkup(pieces_, RecurrenceText(item_)));
        if (item_.remindermin != 0) Line("bell", "Alarm", TextMarkup(pieces_, AlarmText(item_)));
        AddChips();
        AddQuietRows();
        const std::u16string when = WhenText(item_);
        const bool isTodo = item_.itemType == PHONE_TODO_TYPE;
        const Markup chips = chips_.empty() ? chips_ : pieces_.Make("chips", {{"label", "Marks"}, {"chips", chips_}});
        return pieces_.Make(
            "entry",
            {{"colour", CategoryColour(item_)},
             {"classes", isTodo ? (item_.complete != 0 ? " todo done" : " todo") : ""},
             {"number", number_},
             {"tick", isTodo ? pieces_.Make("tick", {{"state", item_.complete != 0 ? "Done" : "Open"}}) : Markup()},
             {"title", title_ != nullptr ? std::u16string_view(title_->Data) : u"No description"},
             {"time", when.empty() ? Markup() : pieces_.Make("entry-time", {{"text", when}})},
             {"lines", lines_},
             {"body", body_},
             {"chips", chips},
             {"rows", rows_.Html()}});
    }

 private:
    void Line(std::string_view icon, std::string_view what, const Markup& text) {
        pieces_.Add(lines_, "entry-line",
                    {{"icon", pieces_.Make("icon", {{"name", icon}})}, {"what", what}, {"text", text}});
    }

    void AddField(const CCalendarField& field) {
        const std::string caption = Capitalised(CalendarFieldCaption(field.Type));
        if (field.secondNumber != 0) rows_.AddQuiet(caption + ", number", field.secondNumber);
        if (field.Data.empty()) rows_.AddQuiet(caption, u"(empty)");
        if (&field == title_ || field.Data.empty()) return;
        switch (field.Type) {
            case CAL_FIELD_LOCATION:
                return Line("place", caption, TextMarkup(pieces_, field.Data));
            case CAL_FIELD_URL:
                return Line("web", caption, WebLink(pieces_, field.Data));
            case CAL_FIELD_PHONENO:
                return Line("tel", caption, PhoneLink(pieces_, field.Data));
            case CAL_FIELD_BODY:
            case CAL_FIELD_DESCRIPTION:
                return pieces_.Add(body_, "entry-body", {{"text", field.Data}});
            default:
                return Line("note", caption, TextMarkup(pieces_, field.Data));
        }
    }

    void Chip(const std::string& words) { pieces_.Add(chips_, "chip", {{"text", words}}); }

    void AddChips() {
        if (item_.HasCategory() && item_.category != CATE_MISCELLANEOUS)
            Chip(Capitalised(ValueCaption(kCalendarCategories, item_.category)));
        if (item_.priority != CAL_TASK_PRIORITY_NORMAL)
            Chip(Capitalised(ValueCaption(kTaskPriorities, item_.priority)) + " priority");
        if (item_.secret != 0) Chip("Secret");
        if (item_.itemType != PHONE_TODO_TYPE && item_.complete != 0) Chip("Completed");
        if (item_.operation != 0) Chip("A date of this entry could not be read");
    }

    // The recurrence's numbers are told again: its words don't tell those that have no meaning in it.
    void AddQuietRows() {
        const auto number = [&](const char* what, std::int32_t value) {
            if (value != 0) rows_.AddQuiet(what, value);
        };
        if (item_.itemType != PHONE_EVENT_TYPE && item_.itemType != PHONE_TODO_TYPE)
            rows_.AddQuiet("event or todo", item_.itemType);
        if (item_.recurtype != RECURS_NONE || item_.recurhasenddate != 0 || !item_.recurenddate.IsNone())
            rows_.AddQuiet("recurrence", Format(u"type %d, day %d, month %d, instance %d, weekday %d, weekdays %d, "
                                                u"interval %d, times %d, ends %d %s",
                                                item_.recurtype, item_.recurday, item_.recurmonth, item_.recurinstance,
                                                item_.recurweekday, item_.recurweekmask, item_.recurinterval,
                                                item_.recurrepeat, item_.recurhasenddate,
                                                item_.recurenddate.IsNone() ? u"" : DateText(item_.recurenddate)));
        if (!item_.ring.empty()) rows_.AddQuiet("ring tone", item_.ring);
        number("number of the ring tone", item_.ringid);
        number("vibration", item_.vibration);
        number("duration", item_.duration);
        number("first reserved number", item_.reserve1);
        number("second reserved number", item_.reserve2);
    }

    const Pieces& pieces_ = Pieces::OfPage();
    const CCalendarItem& item_;
    std::size_t number_;
    const CCalendarField* title_;
    Markup lines_;
    Markup body_;
    Markup chips_;
    Rows rows_{pieces_};
};

}  // namespace

void CalendarSection::Put(const CCalendarItem& item) {
    const auto start = FieldsOf(item.dtstart);
    const bool noDate = item.dtstart.Value() == 0.0;  // also where a reader found none in the text
    entries_.push_back({start, start || noDate ? std::string() : "Out of range: " + ToUtf8(DateText(item.dtstart)),
                        item.itemType == PHONE_TODO_TYPE, item.complete != 0, item.recurtype == RECURS_YEARLY,
                        EntryMaker(item, entries_.size()).Make()});
    marks_.Put(item);
}

void CalendarSection::Write(std::ostream& out) {
    const Pieces& pieces = Pieces::OfPage();
    marks_.Spread();
    WriteYears(out, marks_);
    if (marks_.Months().empty())
        orvale::Write(out,
                      pieces.Make("empty", {{"icon", "calendar"}, {"text", "No entry of this calendar has a date."}}));
    for (const auto& [month, count] : marks_.Months())
        orvale::Write(out, marks_.Month(month));

    std::vector<std::size_t> order(entries_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        const Group left = GroupOf(entries_[a]);
        const Group right = GroupOf(entries_[b]);
        if (left != right || left == Group::kUndated) return left < right;
        CalendarFields first = *entries_[a].start;
        CalendarFields second = *entries_[b].start;
        if (left == Group::kEveryYear) first.year = second.year = 0;
        return OrderOf(first) < OrderOf(second);
    });
    WriteAgenda(out, order);
    WriteTodos(out, order);
    orvale::Write(out, pieces.Make("calendar-end"));
}

void CalendarSection::WriteYears(std::ostream& out, const MonthMarks& marks) const {
    const Pieces& pieces = Pieces::OfPage();
    Markup years;
    const auto& all = marks.Months();
    for (auto month = all.begin(); month != all.end();) {
        const std::int64_t year = month->first / 12;
        Markup months;
        for (std::int64_t each = year * 12; each < year * 12 + 12; ++each) {
            const auto inYear = static_cast<int>(each - year * 12 + 1);
            const std::u16string name = MonthName(inYear);
            if (month == all.end() || month->first != each) {
                pieces.Add(months, "year-gap", {{"short", name.substr(0, 3)}});
                continue;
            }
            pieces.Add(months, "year-month",
                       {{"key", std::to_string(year) + "-" + std::to_string(inYear)},
                        {"name", name},
                        {"short", name.substr(0, 3)},
                        {"count", CountText(month->second)}});
            ++month;
        }
        pieces.Add(years, "year", {{"year", std::to_string(year)}, {"months", months}});
    }
    orvale::Write(out, pieces.Make("calendar-begin", {{"years", years}}));
    orvale::Write(out,
                  pieces.Make("months-begin", {{"note", marks.IsWhole() ? Markup() : pieces.Make("months-note")}}));
}

CalendarSection::Group CalendarSection::GroupOf(const Entry& entry) const {
    if (!entry.start) return Group::kUndated;
    return entry.isYearly && !marks_.HasYear(entry.start->year) ? Group::kEveryYear : Group::kDated;
}

std::u16string CalendarSection::HeadingOf(const Entry& entry) const {
    switch (GroupOf(entry)) {
        case Group::kDated:
            return Format(u"%s %d", MonthName(entry.start->month), entry.start->year);
        case Group::kEveryYear:
            return u"Every year";
        case Group::kUndated:
            return u"Without a day";
    }
    return {};
}

// Whether two entries share the heading of the month, or of the day.
bool CalendarSection::StandsUnderSame(const Entry& a, const Entry& b, bool day) const {
    if (GroupOf(a) != GroupOf(b)) return false;
    if (GroupOf(a) == Group::kUndated) return !day || a.outOfRange == b.outOfRange;
    if (GroupOf(a) == Group::kEveryYear) return !day || SameDay(*a.start, *b.start);
    return a.start->year == b.start->year && a.start->month == b.start->month && (!day || a.start->day == b.start->day);
}

void CalendarSection::WriteAgenda(std::ostream& out, const std::vector<std::size_t>& order) const {
    const Pieces& pieces = Pieces::OfPage();
    orvale::Write(out, pieces.Make("agenda-begin"));
    const Entry* before = nullptr;
    for (const std::size_t number : order) {
        const Entry& entry = entries_[number];
        if (entry.isTodo) continue;
        const bool sameMonth = before != nullptr && StandsUnderSame(*before, entry, false);
        const bool sameDay = before != nullptr && StandsUnderSame(*before, entry, true);
        if (before != nullptr && !sameDay) orvale::Write(out, pieces.Make("agenda-day-end"));
        if (before != nullptr && !sameMonth) orvale::Write(out, pieces.Make("agenda-month-end"));
        const auto& day = entry.start;
        const Group group = GroupOf(entry);
        if (!sameMonth) {
            const std::string key = group == Group::kDated
                                        ? std::to_string(day->year) + "-" + std::to_string(day->month)
                                    : group == Group::kEveryYear ? "-every-year"
                                                                 : "-without";
            orvale::Write(out, pieces.Make("agenda-month-begin", {{"key", key}, {"name", HeadingOf(entry)}}));
        }
        if (!sameDay && day) {
            const std::u16string weekday = FromUtf8(kWeekdays[DayOfWeek(*day)].caption).substr(0, 3);
            const std::u16string since = Format(u"%s %d", MonthName(day->month).substr(0, 3), day->year);
            orvale::Write(out,
                          pieces.Make("agenda-day-begin", {{"date", IsoDay(*day)},
                                                           {"day", std::to_string(day->day)},
                                                           {"weekday", group == Group::kEveryYear ? since : weekday},
                                                           {"long", DayText(*day)}}));
        } else if (!sameDay) {
            orvale::Write(out, pieces.Make("agenda-other-begin",
                                           {{"heading", entry.outOfRange.empty() ? "No date" : entry.outOfRange}}));
        }
        orvale::Write(out, entry.html);
        before = &entry;
    }
    if (before != nullptr) {
        orvale::Write(out, pieces.Make("agenda-day-end"));
        orvale::Write(out, pieces.Make("agenda-month-end"));
    } else {
        orvale::Write(out, pieces.Make("empty", {{"icon", "calendar"}, {"text", "There are no events in here."}}));
    }
}

void CalendarSection::WriteTodos(std::ostream& out, const std::vector<std::size_t>& order) const {
    const Pieces& pieces = Pieces::OfPage();
    orvale::Write(out, pieces.Make("todos-begin"));
    bool any = false;
    for (const bool done : {false, true}) {
        bool first = true;
        for (const std::size_t number : order) {
            const Entry& entry = entries_[number];
            if (!entry.isTodo || entry.isDone != done) continue;
            if (first) orvale::Write(out, pieces.Make("todos-heading", {{"name", done ? "Done" : "Open"}}));
            orvale::Write(out, entry.html);
            first = false;
            any = true;
        }
    }
    if (!any) orvale::Write(out, pieces.Make("empty", {{"icon", "done"}, {"text", "There is nothing to do in here."}}));
}

}  // namespace orvale
