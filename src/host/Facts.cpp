#include "host/Facts.h"

#include <bit>
#include <cstdio>
#include <iterator>
#include <string_view>

#include "host/RecordValues.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// What a person calls the values, where that is another word.
struct ValueWords {
    std::string_view name;
    const char* words;
};

constexpr ValueWords kValueWords[] = {
    {"itemType", "event or todo"},
    {"dtstart", "start"},
    {"dtend", "end"},
    {"ringid", "number of the ring tone"},
    {"ring", "ring tone"},
    {"recurtype", "recurrence"},
    {"recurday", "day of the recurrence"},
    {"recurmonth", "month of the recurrence"},
    {"recurinstance", "date or weekday of the recurrence"},
    {"recurweekday", "weekday of the recurrence"},
    {"recurweekmask", "weekdays of the recurrence"},
    {"recurinterval", "interval of the recurrence"},
    {"recurrepeat", "repetitions of the recurrence"},
    {"recurenddate", "end of the recurrence"},
    {"recurhasenddate", "whether the recurrence ends"},
    {"remindermin", "alarm"},
    {"complete", "completion"},
    {"reserve1", "first reserved number"},
    {"reserve2", "second reserved number"},
    {"operation", "mark of a date that could not be read"},
    {"storageid", "storage"},
    {"listtype", "box"},
    {"phonenumber", "phone number"},
    {"content", "text"},
    {"smstype", "type of the message"},
    {"accessory", "attachment"},
    {"symbol", "flag"},
    {"entryid", "identifier"},
};

std::string WordsOf(std::string_view name) {
    for (const ValueWords& row : kValueWords)
        if (row.name == name) return row.words;
    return std::string(name);
}

// Gathers the values of a record by its VisitValues function, those at their defaults too: they come in
// the same order for every record of a kind. What stands in lists is gathered apart.
class FactWriter {
 public:
    std::vector<Fact> single;
    std::vector<Fact> listed;

    void Int(const char* key, std::int32_t member) { Add(key, Format(u"%d", member)); }
    void Int(const char* key, std::int32_t member, std::int32_t) { Int(key, member); }
    void NamedInt(const char* key, std::int32_t member, NameOfNumber nameOf) {
        const std::string name = nameOf(member);
        std::u16string number = Format(u"%d", member);
        Add(key, number, name.empty() ? u"" : number + u" (" + FromUtf8(name) + u")");
    }
    void Text(const char* key, const std::u16string& member) { Add(key, member); }
    void Date(const char* key, const DateValue& member) {
        const auto bits = std::bit_cast<std::uint64_t>(member.Value());
        Add(key, Format(u"%08x%08x", static_cast<std::uint32_t>(bits >> 32), static_cast<std::uint32_t>(bits)),
            member.IsNone() ? u"none" : DateText(member));
    }
    void Texts(const char* key, const std::vector<std::u16string>& member) {
        for (const std::u16string& text : member)
            listed.push_back({WordsOf(key), text});
    }
    template <class Visit>
    void List(const char*, const std::vector<std::unique_ptr<CCalendarField>>& fields, Visit) {
        for (const auto& field : fields) {
            if (!field) continue;
            listed.push_back({CalendarFieldCaption(field->Type), field->Data});
            if (field->secondNumber != 0) listed.push_back({"number of a text", Format(u"%d", field->secondNumber)});
        }
    }

 private:
    void Add(const char* key, std::u16string value, std::u16string shown = {}) {
        single.push_back({WordsOf(key), std::move(value), true, std::move(shown)});
    }
};

template <class Record>
std::vector<Fact> FactsByVisit(const Record& record, const Record& fresh) {
    FactWriter said;
    FactWriter byDefault;
    VisitValues(said, record);
    VisitValues(byDefault, fresh);
    std::vector<Fact> facts = std::move(said.listed);
    for (std::size_t i = 0; i < said.single.size(); ++i)
        if (said.single[i].value != byDefault.single.at(i).value) facts.push_back(std::move(said.single[i]));
    return facts;
}

}  // namespace

std::vector<Fact> FactsOf(const CContactItem& contact) {
    std::vector<Fact> facts;
    facts.reserve(contact.fields.size() + 2);  // most fields are one, and one has a group
    if (contact.Storage != 0) facts.push_back({"storage", Format(u"%d", contact.Storage), true});
    for (const auto& field : contact.fields) {
        if (!field) continue;
        facts.push_back({ContactFieldCaption(field->Type), field->Data});
        if (field->extraNumber != 0) facts.push_back({"extra numbers", Format(u"%u", field->extraNumber)});
        if (!field->extraText.empty()) facts.push_back({"extra texts", field->extraText});
        for (const auto& group : field->groups)
            facts.push_back({"groups", Format(u"%d %s", group.key, group.value)});
    }
    return facts;
}

std::vector<Fact> FactsOf(const CCalendarItem& item) {
    return FactsByVisit(item, CCalendarItem());
}

// The time of a new message is the present one, which is no default that a record could be at.
std::vector<Fact> FactsOf(const CSMSItem& sms) {
    CSMSItem fresh;
    fresh.time.clear();
    return FactsByVisit(sms, fresh);
}

std::vector<Fact> FactsOf(const CEmailItem& email) {
    return FactsByVisit(email, CEmailItem());
}

std::u16string ClockText(const CalendarFields& fields) {
    return fields.second == 0 ? Format(u"%02d:%02d", fields.hour, fields.minute)
                              : Format(u"%02d:%02d:%02d", fields.hour, fields.minute, fields.second);
}

std::u16string DateText(const DateValue& date) {
    const auto fields = date.Fields();
    if (fields) return Format(u"%04d-%02d-%02d %s", fields->year, fields->month, fields->day, ClockText(*fields));
    char number[32];
    std::snprintf(number, sizeof number, "%.17g", date.Value());
    return FromUtf8(number);
}

}  // namespace orvale
