// The way in of IcsEntry.h: an entry out of a component.
#include <algorithm>
#include <charconv>
#include <cmath>

#include "command/exchange/IcsEntry.h"
#include "command/exchange/IcsNames.h"
#include "command/exchange/PercentText.h"
#include "command/exchange/Recurrences.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using namespace ics;

// The properties that are read, beside those of kTexts and our own.
constexpr std::string_view kRead[] = {"DTSTART",  "DTEND", "DUE",    "DURATION",  "RRULE",           "CATEGORIES",
                                      "PRIORITY", "CLASS", "STATUS", "COMPLETED", "PERCENT-COMPLETE"};

constexpr std::string_view kOwn = "X-ORVALE-";

template <class Number>
bool TakeWhole(std::string_view text, Number& number) {
    const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && behind == text.data() + text.size();
}

DateValue Later(const DateValue& date, std::int64_t seconds) {
    const auto fields = DateValue(date.Value() + static_cast<double>(seconds) / 86400).Fields();
    return fields ? DateValue::FromFields(*fields) : DateValue();
}

std::int64_t MinutesBetween(const DateValue& from, const DateValue& to) {
    return std::llround((to.Value() - from.Value()) * 24 * 60);
}

class EntryReader {
 public:
    EntryReader(CCalendarItem& item, icalcomponent* component, std::size_t line, CalendarZones& zones, NoteTally& notes)
        : ical_(Ical()), item_(item), component_(component), line_(line), zones_(zones), notes_(notes) {}

    void Read(bool isTodo) {
        item_.itemType = isTodo ? PHONE_TODO_TYPE : PHONE_EVENT_TYPE;
        for (icalproperty* each = ical_.icalcomponent_get_first_property(component_, ICAL_ANY_PROPERTY);
             each != nullptr; each = ical_.icalcomponent_get_next_property(component_, ICAL_ANY_PROPERTY))
            Take(each);
        TakeEnd();
        TakeRecurrence();
        TakeAlarms();
        for (const auto& [member, value] : ownNumbers_)
            item_.*member = value;
    }

 private:
    // A moment as it is told and as the process's zone has it.
    struct Moment {
        icaltimetype told;
        std::string zone;  // that it names; empty for none
        CalendarFields there;
        CalendarFields local;

        bool IsDate() const { return told.is_date != 0; }
    };

    void Note(const std::string& what, std::size_t count = 1) { notes_.Add(what, line_, count); }

    std::string Parameter(icalproperty* property, const char* name) {
        const IcalText text(ical_.icalproperty_get_parameter_as_string_r(property, name));
        return text ? text.get() : "";
    }

    std::string RawValue(icalproperty* property) {
        const IcalText text(ical_.icalproperty_get_value_as_string_r(property));
        return text ? text.get() : "";
    }

    std::u16string TextOf(icalproperty* property) {
        const icalvalue* const value = ical_.icalproperty_get_value(property);
        const icalvalue_kind kind = value != nullptr ? ical_.icalvalue_isa(value) : ICAL_NO_VALUE;
        const char* bytes = kind == ICAL_TEXT_VALUE  ? ical_.icalvalue_get_text(value)
                            : kind == ICAL_URI_VALUE ? ical_.icalvalue_get_uri(value)
                            : kind == ICAL_X_VALUE   ? ical_.icalvalue_get_x(value)
                                                     : nullptr;
        if (bytes == nullptr) return {};
        std::size_t replaced = 0;
        std::u16string text = Replace(FromUtf8(bytes, &replaced), u"\n", u"\r\n");
        Note("bytes that are no UTF-8", replaced);
        if (const std::string form = Parameter(property, kExactParameter); !form.empty()) {
            std::u16string exact = form == kExactNothing ? u"" : FromUtf8(PercentBytes(form));
            if (PlainForm(exact) == text) return exact;  // else the text was changed meanwhile
        }
        return text;
    }

    void Take(icalproperty* property) {
        const icalproperty_kind kind = ical_.icalproperty_isa(property);
        for (const TextRow& row : kTexts)
            if (row.kind == kind) return AddField(row.type, property);
        switch (kind) {
            case ICAL_DTSTART_PROPERTY:
                start_ = MomentOf(property);
                if (start_) item_.dtstart = DateOf(property, start_->local);
                if (start_ && start_->IsDate()) Note("whole days, which became times from midnight");
                return;
            case ICAL_DTEND_PROPERTY:
            case ICAL_DUE_PROPERTY:
                if (const auto end = MomentOf(property)) item_.dtend = DateOf(property, end->local);
                return;
            case ICAL_DURATION_PROPERTY:
                duration_ = DurationOf(property);
                return;
            case ICAL_RRULE_PROPERTY:
                if (rule_ != nullptr) Note("further rules of a recurrence");
                if (rule_ == nullptr) rule_ = property;
                return;
            case ICAL_CATEGORIES_PROPERTY:
                return TakeCategories(TextOf(property));
            case ICAL_PRIORITY_PROPERTY:
            case ICAL_PERCENTCOMPLETE_PROPERTY:
                return TakeInteger(kind, property);
            case ICAL_CLASS_PROPERTY:
            case ICAL_STATUS_PROPERTY:
                return TakeWord(kind, RawValue(property));
            case ICAL_COMPLETED_PROPERTY:
                item_.complete = 1;
                return;
            case ICAL_X_PROPERTY:
                return TakeOwn(property);
            default:  // what the library puts in place of a property that it can't read
                return Note("lines that can't be read");
        }
    }

    void AddField(std::int32_t type, icalproperty* property) {
        auto field = std::make_unique<CCalendarField>();
        field->Type = type;
        field->Data = TextOf(property);
        TakeWhole(Parameter(property, kNumberParameter), field->secondNumber);
        item_.fields.push_back(std::move(field));
    }

    std::optional<Moment> MomentOf(icalproperty* property) {
        const icalvalue* const value = ical_.icalproperty_get_value(property);
        const icalvalue_kind kind = value != nullptr ? ical_.icalvalue_isa(value) : ICAL_NO_VALUE;
        if (kind != ICAL_DATE_VALUE && kind != ICAL_DATETIME_VALUE) {
            Note("dates that can't be read");
            return std::nullopt;
        }
        const icaltimetype time =
            kind == ICAL_DATE_VALUE ? ical_.icalvalue_get_date(value) : ical_.icalvalue_get_datetime(value);
        icalparameter* const zone = ical_.icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
        const char* const name = zone != nullptr ? ical_.icalparameter_get_tzid(zone) : nullptr;
        return MomentOf(time, name != nullptr ? name : "");
    }

    std::optional<Moment> MomentOf(const icaltimetype& time, const std::string& zone) {
        Moment moment{time, zone, FieldsOf(time), {}};
        if (moment.IsDate()) moment.there.hour = moment.there.minute = moment.there.second = 0;
        moment.there.second = std::min(moment.there.second, 59);  // a leap second is the last one here
        constexpr int kFirstYear = 100;                           // of a date of the records
        if (!IsValid(moment.there) || moment.there.year < kFirstYear) {
            Note("dates that can't be read");
            return std::nullopt;
        }
        std::optional<CalendarFields> local = moment.there;
        if (!moment.IsDate() && ical_.icaltime_is_utc(time) != 0) {
            local = UtcToLocal(moment.there);
        } else if (!moment.IsDate() && !zone.empty()) {
            if (zones_.Knows(zone))
                local = zones_.ToLocal(zone, time);
            else
                Note("times in a zone that nobody knows, taken as local time");
        }
        if (!local || local->year < kFirstYear) {
            Note("dates that can't be read");
            return std::nullopt;
        }
        moment.local = *local;
        return moment;
    }

    // A date of our own keeps its number as long as that is of the same second.
    DateValue DateOf(icalproperty* property, const CalendarFields& fields) {
        double number = 0;
        if (TakeWhole(Parameter(property, kDateParameter), number) && DateValue(number).Fields() == fields)
            return DateValue(number);
        return DateValue::FromFields(fields);
    }

    std::optional<std::int64_t> DurationOf(icalproperty* property) {
        const icalvalue* const value = ical_.icalproperty_get_value(property);
        if (value == nullptr || ical_.icalvalue_isa(value) != ICAL_DURATION_VALUE) return std::nullopt;
        return ical_.icaldurationtype_as_int(ical_.icalvalue_get_duration(value));
    }

    void TakeEnd() {
        if (duration_ && item_.dtend.IsNone() && start_) item_.dtend = Later(item_.dtstart, *duration_);
    }

    void TakeCategories(const std::u16string& list) {
        for (std::u16string_view rest = list; !rest.empty();) {
            const std::size_t comma = std::min(rest.find(u','), rest.size());
            const std::u16string_view name = Trim(rest.substr(0, comma));
            rest.remove_prefix(std::min(comma + 1, rest.size()));
            const auto* const row = std::find_if(
                std::begin(kCalendarCategories), std::end(kCalendarCategories),
                [&](const NamedValue& each) { return EqualsNoCase(FromUtf8(CategoryName(each.value)), name); });
            if (row == std::end(kCalendarCategories))
                Note("categories that a phone doesn't know", name.empty() ? 0 : 1);
            else if (hasCategory_ && row->value != item_.category)
                Note("further categories");
            else
                item_.category = row->value;
            hasCategory_ = hasCategory_ || row != std::end(kCalendarCategories);
        }
    }

    void TakeInteger(icalproperty_kind kind, icalproperty* property) {
        const icalvalue* const value = ical_.icalproperty_get_value(property);
        if (value == nullptr || ical_.icalvalue_isa(value) != ICAL_INTEGER_VALUE)
            return Note("lines that can't be read");
        const int number = ical_.icalvalue_get_integer(value);
        if (kind == ICAL_PRIORITY_PROPERTY) {
            item_.priority = PriorityOfPhone(number);
            const bool exact = number == PriorityOf(item_.priority) || number == 0;
            Note("priorities between those of a phone", exact ? 0 : 1);
        } else if (number >= 100) {
            item_.complete = 1;
        } else {
            Note("parts of a todo that are done", number != 0 ? 1 : 0);
        }
    }

    void TakeWord(icalproperty_kind kind, const std::string& value) {
        const std::u16string word = FromUtf8(value);
        const auto is = [&](std::u16string_view other) { return EqualsNoCase(word, other); };
        if (kind == ICAL_CLASS_PROPERTY) {
            item_.secret = is(u"PRIVATE") || is(u"CONFIDENTIAL");
            Note("marks 'confidential', which became secret", is(u"CONFIDENTIAL") ? 1 : 0);
        } else if (is(u"COMPLETED")) {
            item_.complete = 1;
        } else if (!is(u"CONFIRMED") && !is(u"NEEDS-ACTION")) {
            Note("states of an entry (tentative, cancelled, begun)");
        }
    }

    void TakeOwn(icalproperty* property) {
        const char* const told = ical_.icalproperty_get_x_name(property);
        const std::u16string name = FromUtf8(told != nullptr ? told : "");
        const auto is = [&](std::string_view other) { return EqualsNoCase(name, FromUtf8(other)); };
        const std::string value = ToUtf8(TextOf(property));
        std::int32_t number = 0;
        for (const NumberRow& row : kNumbers) {
            if (!is(row.name)) continue;
            if (TakeWhole(value, number))
                ownNumbers_.emplace_back(row.member, number);
            else
                Note("lines that can't be read");
            return;
        }
        if (is(kField) && TakeWhole(Parameter(property, kTypeParameter), number)) return AddField(number, property);
        if (is(kRing)) {
            item_.ring = TextOf(property);
        } else if (is(kRecurrence)) {
            ownRecurrence_ = value;
        } else if (is(kEnd)) {
            TakeOwnEnd(property, value);
        } else {
            Note("lines that can't be read");
        }
    }

    void TakeOwnEnd(icalproperty* property, const std::string& text) {
        icalproperty* const end = ical_.icalproperty_new(ICAL_DTEND_PROPERTY);
        const IcalProperty owner(end);
        ical_.icalproperty_set_value_from_string(end, text.c_str(), "NO");
        if (const auto moment = MomentOf(end)) item_.dtend = DateOf(property, moment->local);
    }

    void TakeRecurrence() {
        std::optional<std::string> told;
        if (rule_ != nullptr) {
            TakeTheRule();
            told = RuleOf(item_);
        }
        if (ownRecurrence_.empty()) return;
        const std::string before = RecurrenceNumbers(item_);
        if (!TakeRecurrenceNumbers(item_, ownRecurrence_) || RuleOf(item_) != told ||
            (rule_ != nullptr && !told)) {  // the rule was changed meanwhile
            TakeRecurrenceNumbers(item_, before);
        }
    }

    void TakeTheRule() {
        const icalvalue* const value = ical_.icalproperty_get_value(rule_);
        if (value == nullptr || ical_.icalvalue_isa(value) != ICAL_RECUR_VALUE) return Note("lines that can't be read");
        if (!start_) return Note("recurrences without a start");
        const icalrecurrencetype rule = ical_.icalvalue_get_recur(value);
        const int days = static_cast<int>(std::floor(item_.dtstart.Value()) -
                                          std::floor(DateValue::FromFields(start_->there).Value()));
        if (const char* const reason = TakeRule(item_, rule, start_->there, days))
            return Note(std::string(reason) + ", whose entries stand once");
        if (ListIsLast(rule)) Note("recurrences on the last such weekday of a month, which became the fifth");
        if (rule.until.year == 0) return;
        if (const auto until = LastMomentOf(rule.until)) {
            item_.recurhasenddate = 1;
            item_.recurenddate = DateValue::FromFields(until->local);
        }
    }

    // The moment up to which a rule counts. Of a bare date all is meant: what begins there at a time counts, too.
    std::optional<Moment> LastMomentOf(const icaltimetype& until) {
        if (until.is_date == 0 || start_->IsDate()) return MomentOf(until, "");
        icaltimetype last = start_->told;
        last.year = until.year;
        last.month = until.month;
        last.day = until.day;
        return MomentOf(last, start_->zone);
    }

    static bool ListIsLast(const icalrecurrencetype& rule) {
        return rule.freq >= ICAL_MONTHLY_RECURRENCE && rule.by_day[0] != ICAL_RECURRENCE_ARRAY_MAX &&
               (rule.by_day[0] < 0 || rule.by_set_pos[0] < 0);
    }

    void TakeAlarms() {
        std::size_t alarms = 0;
        for (icalcomponent* each = ical_.icalcomponent_get_first_component(component_, ICAL_VALARM_COMPONENT);
             each != nullptr; each = ical_.icalcomponent_get_next_component(component_, ICAL_VALARM_COMPONENT)) {
            icalproperty* const trigger = ical_.icalcomponent_get_first_property(each, ICAL_TRIGGER_PROPERTY);
            const std::optional<std::int64_t> minutes = trigger != nullptr ? MinutesOf(trigger) : std::nullopt;
            if (!minutes || *minutes > INT32_MAX || *minutes < INT32_MIN)
                Note("alarms that can't be read");
            else if (*minutes == 0)
                Note("alarms at the start itself");
            else if (++alarms > 1)
                Note("further alarms");
            else
                item_.remindermin = static_cast<std::int32_t>(*minutes);
        }
    }

    // How many minutes before the start an alarm stands.
    std::optional<std::int64_t> MinutesOf(icalproperty* property) {
        const icalvalue* const value = ical_.icalproperty_get_value(property);
        if (value == nullptr) return std::nullopt;
        icaltriggertype trigger{};
        if (ical_.icalvalue_isa(value) == ICAL_TRIGGER_VALUE)
            trigger = ical_.icalvalue_get_trigger(value);
        else if (ical_.icalvalue_isa(value) == ICAL_DURATION_VALUE)
            trigger.duration = ical_.icalvalue_get_duration(value);
        else if (ical_.icalvalue_isa(value) == ICAL_DATETIME_VALUE)
            trigger.time = ical_.icalvalue_get_datetime(value);
        else
            return std::nullopt;
        if (trigger.time.year != 0) {
            const auto moment = MomentOf(trigger.time, "");
            if (!moment || item_.dtstart.IsNone()) return std::nullopt;
            return MinutesBetween(DateValue::FromFields(moment->local), item_.dtstart);
        }
        std::int64_t seconds = ical_.icaldurationtype_as_int(trigger.duration);
        icalparameter* const related = ical_.icalproperty_get_first_parameter(property, ICAL_RELATED_PARAMETER);
        if (related != nullptr && ical_.icalparameter_get_related(related) == ICAL_RELATED_END) {
            if (item_.dtstart.IsNone() || item_.dtend.IsNone()) return std::nullopt;
            seconds += 60 * MinutesBetween(item_.dtstart, item_.dtend);
        }
        if (seconds % 60 != 0) Note("seconds of alarms");
        return -seconds / 60;
    }

    const IcalLibrary& ical_;
    CCalendarItem& item_;
    icalcomponent* component_;
    std::size_t line_;
    CalendarZones& zones_;
    NoteTally& notes_;
    std::optional<Moment> start_;
    std::optional<std::int64_t> duration_;
    icalproperty* rule_ = nullptr;
    std::string ownRecurrence_;
    std::vector<std::pair<std::int32_t CCalendarItem::*, std::int32_t>> ownNumbers_;
    bool hasCategory_ = false;
};

}  // namespace

bool IsPropertyOfEntry(std::string_view name) {
    return name.starts_with(kOwn) || std::find(std::begin(kRead), std::end(kRead), name) != std::end(kRead) ||
           std::any_of(std::begin(kTexts), std::end(kTexts), [&](const TextRow& row) { return name == row.name; });
}

bool ReadEntry(CCalendarItem& item, const std::string& component, std::size_t line, CalendarZones& zones,
               NoteTally& notes) {
    const IcalComponent parsed(Ical().icalcomponent_new_from_string(component.c_str()));
    if (!parsed) return false;
    EntryReader(item, parsed.get(), line, zones, notes).Read(component.starts_with("BEGIN:VTODO"));
    return true;
}

}  // namespace orvale
