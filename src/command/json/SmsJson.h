#pragma once

#include <type_traits>

#include "records/SMSItem.h"

namespace orvale {

/// A message of the JSON document. Sms is const when the archive writes.
template <class Archive, class Sms>
requires std::is_same_v<std::remove_const_t<Sms>, CSMSItem>
void VisitJson(Archive& archive, Sms& sms) {
    archive.Int("storageid", sms.storageid);
    archive.Int("status", sms.status);
    archive.Int("listtype", sms.listtype);
    archive.Text("phonenumber", sms.phonenumber);
    archive.Text("content", sms.content);
    archive.Text("time", sms.time);
    archive.Text("name", sms.name);
    archive.Int("smstype", sms.smstype);
}

}  // namespace orvale
