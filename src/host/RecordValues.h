#pragma once

// The values of each kind of record, named once for whoever reads, writes or compares them.

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

#include "records/GeneralSyncData.h"

/// What some format stores of each kind of record, told once: a VisitValues function names the values of a record in
/// their order, and whoever reads, writes or compares them passes through it as an archive. The names are those of the
/// command's JSON document. An archive has these operations, with the members by reference where it fills them:
///
///     Int(name, member)   UInt(name, member)   Text(name, member)   Date(name, member)   Texts(name, member)
///     Int(name, member, usual)    UInt(name, member, usual)     a number that most records leave at `usual`
///     NamedInt(name, member, nameOf)                            a number that has a name too
///     OptionalText(name, member)  OptionalGroups(name, member)  a value that most records leave empty
///     List(name, member, visit)                                 calls visit(entry, field) for each field
namespace orvale {

/// Gives a number its name, or an empty text.
using NameOfNumber = std::string (*)(std::int32_t number);

/// The name of a number in one of the value tables, or an empty text.
template <const auto& kTable>
std::string NameIn(std::int32_t value) {
    const NamedValue* const row = FindValue(kTable, value);
    return row != nullptr ? std::string(row->name) : std::string();
}

inline std::string NameOfContactFieldType(std::int32_t type) {
    const ContactFieldType* const row = FindContactFieldType(type);
    return row != nullptr ? std::string(row->name) : std::string();
}

/// An object that an archive fills, or a const one that it reads.
template <class T, class Object>
concept PossiblyConst = std::same_as<std::remove_const_t<T>, Object>;

/// The values of a contact.
template <class Archive, PossiblyConst<CContactItem> Contact>
void VisitValues(Archive& archive, Contact& contact) {
    archive.Int("storage", contact.Storage);
    archive.List("fields", contact.fields, [](Archive& entry, auto& field) {
        entry.NamedInt("type", field.Type, &NameOfContactFieldType);
        entry.Text("data", field.Data);
        entry.UInt("extraNumber", field.extraNumber, 0);
        entry.OptionalText("extraText", field.extraText);
        entry.OptionalGroups("groups", field.groups);
    });
}

/// The values of a calendar entry.
template <class Archive, PossiblyConst<CCalendarItem> Item>
void VisitValues(Archive& archive, Item& item) {
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

/// The values of a message.
template <class Archive, PossiblyConst<CSMSItem> Sms>
void VisitValues(Archive& archive, Sms& sms) {
    archive.Int("storageid", sms.storageid);
    archive.Int("status", sms.status);
    archive.Int("listtype", sms.listtype);
    archive.Text("phonenumber", sms.phonenumber);
    archive.Text("content", sms.content);
    archive.Text("time", sms.time);
    archive.Text("name", sms.name);
    archive.Int("smstype", sms.smstype);
}

/// The values of an email.
template <class Archive, PossiblyConst<CEmailItem> Email>
void VisitValues(Archive& archive, Email& email) {
    archive.NamedInt("type", email.type, &NameIn<kEmailBoxTypes>);
    archive.Text("box", email.box);
    archive.NamedInt("device", email.device, &NameIn<kEmailDevices>);
    archive.Int("status", email.status);
    archive.Text("account", email.account);
    archive.Text("folder", email.folder);
    archive.Text("from", email.from);
    archive.Text("to", email.to);
    archive.Text("cc", email.cc);
    archive.Text("bcc", email.bcc);
    archive.Text("subject", email.subject);
    archive.Text("body", email.body);
    archive.Date("received", email.received);
    archive.Date("sent", email.sent);
    archive.Texts("accessory", email.accessory);
    archive.NamedInt("importance", email.importance, &NameIn<kEmailImportances>);
    archive.NamedInt("symbol", email.symbol, &NameIn<kEmailSymbols>);
    archive.NamedInt("sensitivity", email.sensitivity, &NameIn<kEmailSensitivities>);
    archive.Text("entryid", email.entryid);
}

}  // namespace orvale
