#pragma once

#include <string>
#include <type_traits>

#include "records/ContactItem.h"

namespace orvale {

inline std::string NameOfContactFieldType(std::int32_t type) {
    const ContactFieldType* const row = FindContactFieldType(type);
    return row != nullptr ? std::string(row->name) : std::string();
}

/// A contact of the JSON document. Contact is const when the archive writes.
template <class Archive, class Contact>
requires std::is_same_v<std::remove_const_t<Contact>, CContactItem>
void VisitJson(Archive& archive, Contact& contact) {
    archive.Int("storage", contact.Storage);
    archive.List("fields", contact.fields, [](Archive& entry, auto& field) {
        entry.NamedInt("type", field.Type, &NameOfContactFieldType);
        entry.Text("data", field.Data);
        entry.UInt("extraNumber", field.extraNumber, 0);
        entry.OptionalText("extraText", field.extraText);
        entry.OptionalGroups("groups", field.groups);
    });
}

}  // namespace orvale
