#include "command/show/CsvTable.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "command/show/Wording.h"
#include "host/RecordValues.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "records/ContactFieldTypes.h"

namespace orvale {
namespace {

// Puts what is one more of several into a cell.
void Join(std::u16string& cell, std::u16string_view text) {
    if (!cell.empty()) cell += u"; ";
    cell += text;
}

// "2010-07-26 06:00:00"; nothing for no date, and the number itself where it is no date of the calendar.
std::u16string DateCell(const DateValue& date) {
    if (date.IsNone()) return {};
    if (const auto f = date.Fields())
        return Format(u"%04d-%02d-%02d %02d:%02d:%02d", f->year, f->month, f->day, f->hour, f->minute, f->second);
    char number[32];
    std::snprintf(number, sizeof number, "%.17g", date.Value());
    return FromUtf8(number);
}

// Gathers what a record says once, its names and its cells; its lists of values are looked at apart.
class Cells {
 public:
    std::vector<std::u16string> names;
    std::vector<std::u16string> cells;

    void Int(const char* name, std::int32_t member) { Add(name, Format(u"%d", member)); }
    void Int(const char* name, std::int32_t member, std::int32_t) { Int(name, member); }
    void UInt(const char* name, std::uint32_t member) { Add(name, Format(u"%u", member)); }
    void UInt(const char* name, std::uint32_t member, std::uint32_t) { UInt(name, member); }
    void NamedInt(const char* name, std::int32_t member, NameOfNumber nameOf) {
        const std::string word = nameOf(member);
        Add(name, word.empty() ? Format(u"%d", member) : FromUtf8(word));
    }
    void Date(const char* name, const DateValue& member) { Add(name, DateCell(member)); }
    void Text(const char* name, const std::u16string& member) { Add(name, member); }
    void OptionalText(const char* name, const std::u16string& member) { Add(name, member); }
    void Texts(const char* name, const std::vector<std::u16string>& member) {
        std::u16string all;
        for (const std::u16string& text : member)
            Join(all, text);
        Add(name, all);
    }
    template <class Groups>
    void OptionalGroups(const char*, const Groups&) {}
    template <class Fields, class Visit>
    void List(const char*, const Fields&, Visit) {}

 private:
    void Add(const char* name, std::u16string cell) {
        names.push_back(FromUtf8(name));
        cells.push_back(std::move(cell));
    }
};

std::string CaptionOf(const CContactItem*, std::int32_t type) {
    return ContactFieldCaption(type);
}
std::string CaptionOf(const CCalendarItem*, std::int32_t type) {
    return CalendarFieldCaption(type);
}
std::string CaptionOf(const void*, std::int32_t type) {
    return "type " + std::to_string(type);
}

// What spreadsheets take for the beginning of a formula; the signs of full width too, which some make narrow.
constexpr std::u16string_view kFormulaSigns = u"=+-@\t\r\uFF1D\uFF0B\uFF0D\uFF20";

bool LooksLikeFormula(std::u16string_view cell) {
    return !cell.empty() && kFormulaSigns.find(cell.front()) != std::u16string_view::npos;
}

// The numbers and texts that a value has beside it, "5 text".
std::u16string ExtrasOf(const CContactField& field) {
    std::u16string extras = field.extraNumber != 0 ? Format(u"%u", field.extraNumber) : u"";
    if (!field.extraText.empty()) extras += (extras.empty() ? u"" : u" ") + field.extraText;
    return extras;
}
std::u16string ExtrasOf(const CCalendarField& field) {
    return field.secondNumber != 0 ? Format(u"%d", field.secondNumber) : u"";
}

std::u16string GroupsOf(const CContactField& field) {
    std::u16string groups;
    for (const auto& group : field.groups)
        Join(groups, group.value.empty() ? Format(u"group %d", group.key) : group.value);
    return groups;
}
std::u16string GroupsOf(const CCalendarField&) {
    return {};
}

// Calls a visitor for each value of a record's list, if its kind has one.
template <class Record, class Visitor>
void ForEachField(const Record& record, Visitor visitor) {
    if constexpr (requires { record.fields; }) {
        for (const auto& field : record.fields)
            if (field) visitor(*field);
    } else {
        (void)visitor;
    }
}

}  // namespace

template <class Record>
void CsvTable::Look(const Record& record) {
    std::map<std::int32_t, std::size_t> counts;
    ForEachField(record, [&](const auto& field) {
        hasGroups_ = hasGroups_ || !GroupsOf(field).empty();
        hasExtras_ = hasExtras_ || !ExtrasOf(field).empty();
        if (columns_.size() >= kMostTypes && columns_.find(field.Type) == columns_.end()) {
            hasOthers_ = true;
            return;
        }
        std::size_t& most = columns_[field.Type];
        most = std::max(most, std::min(++counts[field.Type], kMostOfAType));
    });
}

template <class Record>
void CsvTable::PutHead() {
    Cells cells;
    VisitValues(cells, std::as_const(*std::make_unique<Record>()));
    std::vector<std::u16string>& row = cells.names;
    for (const auto& [type, count] : columns_) {
        const std::u16string caption = FromUtf8(CaptionOf(static_cast<const Record*>(nullptr), type));
        for (std::size_t i = 1; i <= count; ++i)
            row.push_back(i == 1 ? caption : caption + Format(u" (%d)", i));
    }
    if (hasOthers_) row.emplace_back(u"other values");
    if (hasGroups_) row.emplace_back(u"groups");
    if (hasExtras_) row.emplace_back(u"extras");
    PutRow(row);
}

template <class Record>
void CsvTable::Put(const Record& record) {
    Cells cells;
    VisitValues(cells, record);
    std::map<std::int32_t, std::vector<std::u16string>> values;
    std::u16string others;
    std::u16string groups;
    std::u16string extras;
    ForEachField(record, [&](const auto& field) {
        const std::u16string caption = FromUtf8(CaptionOf(&record, field.Type));
        if (const std::u16string each = GroupsOf(field); !each.empty()) Join(groups, each);
        if (const std::u16string each = ExtrasOf(field); !each.empty()) Join(extras, caption + u": " + each);
        const auto column = columns_.find(field.Type);
        if (column == columns_.end()) return Join(others, caption + u": " + field.Data);
        std::vector<std::u16string>& list = values[field.Type];
        if (list.size() < column->second)
            list.push_back(field.Data);
        else
            Join(list.back(), field.Data);
    });
    std::vector<std::u16string>& row = cells.cells;
    for (const auto& [type, count] : columns_) {
        std::vector<std::u16string>& list = values[type];
        list.resize(count);
        row.insert(row.end(), list.begin(), list.end());
    }
    if (hasOthers_) row.push_back(others);
    if (hasGroups_) row.push_back(groups);
    if (hasExtras_) row.push_back(extras);
    PutRow(row);
}

void CsvTable::PutRow(const std::vector<std::u16string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i != 0) line += ',';
        std::string cell = ToUtf8(cells[i]);
        if (isSafe_ && LooksLikeFormula(cells[i])) cell.insert(0, 1, '\'');
        if (cell.find_first_of(",\"\r\n") == std::string::npos) {
            line += cell;
            continue;
        }
        line += '"';
        for (const char c : cell)
            line.append(c == '"' ? 2 : 1, c);
        line += '"';
    }
    out_ << line << "\r\n";
}

#define ORVALE_TABLE_OF(Record)                  \
    template void CsvTable::Look(const Record&); \
    template void CsvTable::PutHead<Record>();   \
    template void CsvTable::Put(const Record&)
ORVALE_TABLE_OF(CContactItem);
ORVALE_TABLE_OF(CCalendarItem);
ORVALE_TABLE_OF(CSMSItem);
ORVALE_TABLE_OF(CEmailItem);
#undef ORVALE_TABLE_OF

}  // namespace orvale
