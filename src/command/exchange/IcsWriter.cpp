// The way out of IcsEntry.h: a component of an entry.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "command/exchange/IcsEntry.h"
#include "command/exchange/IcsNames.h"
#include "command/exchange/PercentText.h"
#include "command/exchange/Recurrences.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using namespace ics;

constexpr std::string_view kMarks = "\"'^,;:-\\";  // what would have to stand in quotes, or means something

// Whether a text may stand as the value of a URL, which has no escapes.
bool IsUri(std::u16string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char16_t c) { return c > 0x20 && c < 0x7F; });
}

// An event has to have a start; what has none is written as a todo, and its own number tells that it is an event.
bool HasStart(const CCalendarItem& item) {
    return !item.dtstart.IsNone() && item.dtstart.Fields().has_value();
}

// Whether the end of an entry may stand as one: it has to come behind the start.
bool EndsBehindStart(const CCalendarItem& item) {
    return item.dtstart.IsNone() || !(item.dtend.Value() <= item.dtstart.Value());
}

class EntryWriter {
 public:
    EntryWriter(const CCalendarItem& item, IcsWriterNotes& notes)
        : ical_(Ical()),
          item_(item),
          notes_(notes),
          isTodo_(item.itemType == PHONE_TODO_TYPE || !HasStart(item)),
          component_(ical_.icalcomponent_new(isTodo_ ? ICAL_VTODO_COMPONENT : ICAL_VEVENT_COMPONENT)) {
        told_.itemType = isTodo_ ? PHONE_TODO_TYPE : PHONE_EVENT_TYPE;
    }

    std::string Text(const std::string& uid, const std::string& stamp) {
        Put(ICAL_UID_PROPERTY, uid);
        Put(ICAL_DTSTAMP_PROPERTY, stamp);
        PutDate(ICAL_DTSTART_PROPERTY, item_.dtstart);
        if (EndsBehindStart(item_))
            PutDate(isTodo_ ? ICAL_DUE_PROPERTY : ICAL_DTEND_PROPERTY, item_.dtend);
        else
            PutOwnEnd();
        PutRecurrence();
        for (const auto& field : item_.fields)
            if (field) PutField(*field);
        PutMarks();
        PutAlarm();
        if (!item_.ring.empty()) PutOwn(kRing, item_.ring);
        for (const NumberRow& row : kNumbers)
            if (item_.*row.member != told_.*row.member) PutOwnNumber(row.name, std::to_string(item_.*row.member));
        const IcalText text(ical_.icalcomponent_as_ical_string_r(component_.get()));
        return text.get();
    }

 private:
    // Adds a property with a value that is written as it stands.
    icalproperty* Put(icalproperty_kind kind, const std::string& value, icalcomponent* component = nullptr) {
        icalproperty* const property = ical_.icalproperty_new(kind);
        ical_.icalproperty_set_value_from_string(property, value.c_str(), "NO");
        ical_.icalcomponent_add_property(component != nullptr ? component : component_.get(), property);
        return property;
    }

    void AddParameter(icalproperty* property, const char* name, const std::string& value) {
        icalparameter* const parameter = ical_.icalparameter_new_x(value.c_str());
        ical_.icalparameter_set_xname(parameter, name);
        ical_.icalproperty_add_parameter(property, parameter);
    }

    // The UTF-8 of a text, its lines ended by LF. What isn't told by it gets a parameter.
    std::string PutText(icalproperty* property, const std::u16string& text) {
        const std::u16string plain = PlainForm(text);
        if (plain != text)
            AddParameter(property, kExactParameter, text.empty() ? kExactNothing : PercentForm(ToUtf8(text), kMarks));
        return ToUtf8(Replace(plain, u"\r\n", u"\n"), &notes_.replaced);
    }

    icalproperty* PutText(icalproperty_kind kind, const std::u16string& text) {
        icalproperty* const property = ical_.icalproperty_new(kind);
        ical_.icalproperty_set_value(property, ical_.icalvalue_new_text(PutText(property, text).c_str()));
        ical_.icalcomponent_add_property(component_.get(), property);
        return property;
    }

    icalproperty* NewOwn(std::string_view name) {
        icalproperty* const property = ical_.icalproperty_new(ICAL_X_PROPERTY);
        ical_.icalproperty_set_x_name(property, std::string(name).c_str());
        ical_.icalcomponent_add_property(component_.get(), property);
        return property;
    }

    icalproperty* PutOwn(std::string_view name, const std::u16string& text) {
        icalproperty* const property = NewOwn(name);
        ical_.icalproperty_set_value(property, ical_.icalvalue_new_x(PutText(property, text).c_str()));
        return property;
    }

    icalproperty* PutOwnNumber(std::string_view name, const std::string& number) {
        icalproperty* const property = NewOwn(name);
        ical_.icalproperty_set_value(property, ical_.icalvalue_new_x(number.c_str()));
        return property;
    }

    // The number of a date goes along where its calendar fields don't give it back.
    void AddExactDate(icalproperty* property, const DateValue& date, const CalendarFields& fields) {
        if (DateValue::FromFields(fields).Value() == date.Value()) return;
        char number[32];
        std::snprintf(number, sizeof number, "%.17g", date.Value());
        AddParameter(property, kDateParameter, number);
    }

    void PutDate(icalproperty_kind kind, const DateValue& date) {
        const auto fields = date.IsNone() ? std::nullopt : date.Fields();
        if (fields) AddExactDate(Put(kind, DateTimeText(*fields)), date, *fields);
    }

    void PutOwnEnd() {
        const auto fields = item_.dtend.IsNone() ? std::nullopt : item_.dtend.Fields();
        if (fields) AddExactDate(PutOwnNumber(kEnd, DateTimeText(*fields)), item_.dtend, *fields);
    }

    void PutRecurrence() {
        const std::string numbers = RecurrenceNumbers(item_);
        const std::optional<std::string> rule = RuleOf(item_);
        if (rule) {
            ical_.icalproperty_set_value_from_string(NewOf(ICAL_RRULE_PROPERTY), rule->c_str(), "NO");
        } else if (item_.recurtype != RECURS_NONE) {
            ++notes_.rulelessCount;
        }
        // The numbers go along where reading the rule doesn't give them.
        CCalendarItem read;
        if (rule) {
            icalproperty* const property =
                ical_.icalcomponent_get_first_property(component_.get(), ICAL_RRULE_PROPERTY);
            const icalrecurrencetype told = ical_.icalvalue_get_recur(ical_.icalproperty_get_value(property));
            TakeRule(read, told, *item_.dtstart.Fields(), 0);
            if (told.until.year != 0) {
                read.recurhasenddate = 1;
                read.recurenddate = DateValue::FromFields(FieldsOf(told.until));
            }
        }
        if (RecurrenceNumbers(read) != numbers) PutOwnNumber(kRecurrence, numbers);
    }

    icalproperty* NewOf(icalproperty_kind kind) {
        icalproperty* const property = ical_.icalproperty_new(kind);
        ical_.icalcomponent_add_property(component_.get(), property);
        return property;
    }

    void PutField(const CCalendarField& field) {
        const auto* const row = std::find_if(std::begin(kTexts), std::end(kTexts),
                                             [&](const TextRow& each) { return each.type == field.Type; });
        const auto index = static_cast<std::size_t>(row - std::begin(kTexts));
        const bool isUrl = row != std::end(kTexts) && row->kind == ICAL_URL_PROPERTY;
        icalproperty* property = nullptr;
        if (row == std::end(kTexts) || (row->once && put_[index]) || (isUrl && !IsUri(field.Data)) ||
            field.Data.empty()) {
            property = PutOwn(kField, field.Data);
            AddParameter(property, kTypeParameter, std::to_string(field.Type));
        } else {
            put_[index] = true;
            property = isUrl ? Put(row->kind, ToUtf8(field.Data)) : PutText(row->kind, field.Data);
        }
        if (field.secondNumber != 0) AddParameter(property, kNumberParameter, std::to_string(field.secondNumber));
    }

    void PutMarks() {
        if (item_.priority == CAL_TASK_PRIORITY_LOW || item_.priority == CAL_TASK_PRIORITY_HIGH) {
            told_.priority = item_.priority;
            Put(ICAL_PRIORITY_PROPERTY, std::to_string(PriorityOf(item_.priority)));
        }
        if (item_.secret == 1) {
            told_.secret = 1;
            Put(ICAL_CLASS_PROPERTY, "PRIVATE");
        }
        if (isTodo_ && item_.complete == 1) {
            told_.complete = 1;
            Put(ICAL_STATUS_PROPERTY, "COMPLETED");
        }
        if (const std::string category = CategoryName(item_.category); item_.category != 0 && !category.empty()) {
            told_.category = item_.category;
            Put(ICAL_CATEGORIES_PROPERTY, category);
        }
    }

    // The alarm of a phone stands so many minutes before the start, or behind it where they are negative.
    void PutAlarm() {
        constexpr std::int64_t kFarthest = 10 * 366 * 24 * 60;
        const std::int64_t minutes = std::abs(static_cast<std::int64_t>(item_.remindermin));
        if (minutes == 0 || minutes > kFarthest || item_.dtstart.IsNone() || !item_.dtstart.Fields()) return;
        told_.remindermin = item_.remindermin;
        icalcomponent* const alarm = ical_.icalcomponent_new(ICAL_VALARM_COMPONENT);
        Put(ICAL_ACTION_PROPERTY, "DISPLAY", alarm);
        Put(ICAL_TRIGGER_PROPERTY, (item_.remindermin > 0 ? "-PT" : "PT") + std::to_string(minutes) + "M", alarm);
        Put(ICAL_DESCRIPTION_PROPERTY, "Alarm", alarm);
        ical_.icalcomponent_add_component(component_.get(), alarm);
    }

    const IcalLibrary& ical_;
    const CCalendarItem& item_;
    IcsWriterNotes& notes_;
    bool isTodo_;
    IcalComponent component_;
    CCalendarItem told_;  // the numbers as the properties put so far tell them
    bool put_[std::size(kTexts)] = {};
};

}  // namespace

std::string WriteEntry(const CCalendarItem& item, const std::string& uid, const std::string& stamp,
                       IcsWriterNotes& notes) {
    return EntryWriter(item, notes).Text(uid, stamp);
}

}  // namespace orvale
