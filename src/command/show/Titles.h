#pragma once

#include <string>

#include "records/GeneralSyncData.h"

namespace orvale {

/// What a person calls a record, never empty: a contact's name, an entry's description, a message's other party and
/// time, a mail's subject.
std::u16string TitleOf(const CContactItem& contact);
std::u16string TitleOf(const CCalendarItem& item);
std::u16string TitleOf(const CSMSItem& sms);
std::u16string TitleOf(const CEmailItem& email);

/// The name or the number of whom a message is from or to, or both.
std::u16string OtherParty(const CSMSItem& sms);

/// The field that an entry's title is taken from, or null.
const CCalendarField* TitleField(const CCalendarItem& item);

}  // namespace orvale
