#pragma once

#include <type_traits>

#include "command/json/NamesOfValues.h"
#include "records/CalendarItem.h"

namespace orvale {

/// A calendar entry of the JSON document. Item is const when the archive writes.
template <class Archive, class Item>
requires std::is_same_v<std::remove_const_t<Item>, CCalendarItem>
void VisitJson(Archive& archive, Item& item) {
    archive.NamedInt("itemType", item.itemType, &NameIn<kCalendarItemTypes>);
    archive.List("fields", item.fields, [](Archive& entry, auto& field) {
        entry.NamedInt("type", field.Type, &NameIn<kCalendarFieldTypes>);
        entry.Text("data", field.Data);
        entry.Int("number", field.secondNumber, 0);
    });
    archive.Date("dtstart", item.dtstart);
    archive.Date("dtend", item.dtend);
    archive.Int("ringid", item.ringid);
    archive.Text("ring", item.ring);
    archive.Int("vibration", item.vibration);
    archive.Int("secret", item.secret);
    archive.Int("duration", item.duration);
    archive.NamedInt("recurtype", item.recurtype, &NameIn<kRecurrences>);
    archive.Int("recurday", item.recurday);
    archive.Int("recurmonth", item.recurmonth);
    archive.Int("recurinstance", item.recurinstance);
    archive.Int("recurweekday", item.recurweekday);
    archive.Int("recurweekmask", item.recurweekmask);
    archive.Int("recurinterval", item.recurinterval);
    archive.Int("recurrepeat", item.recurrepeat);
    archive.Date("recurenddate", item.recurenddate);
    archive.Int("recurhasenddate", item.recurhasenddate);
    archive.Int("remindermin", item.remindermin);
    archive.NamedInt("priority", item.priority, &NameIn<kTaskPriorities>);
    archive.Int("complete", item.complete);
    archive.Int("reserve1", item.reserve1);
    archive.Int("reserve2", item.reserve2);
    archive.NamedInt("category", item.category, &NameIn<kCalendarCategories>);
    archive.Int("operation", item.operation, 0);
}

}  // namespace orvale
