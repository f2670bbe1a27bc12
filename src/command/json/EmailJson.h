#pragma once

#include <type_traits>

#include "command/json/NamesOfValues.h"
#include "records/EmailItem.h"

namespace orvale {

/// An email of the JSON document. Email is const when the archive writes.
template <class Archive, class Email>
requires std::is_same_v<std::remove_const_t<Email>, CEmailItem>
void VisitJson(Archive& archive, Email& email) {
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
