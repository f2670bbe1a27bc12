#include "command/show/Titles.h"

#include "command/show/Wording.h"

namespace orvale {
// The full name, else the other names in the order in which they are said; else the first value that there is.
std::u16string TitleOf(const CContactItem& contact) {
    if (std::u16string full = TextOf(contact, CF_FULL_NAME); !full.empty()) return full;
    std::u16string title;
    for (const std::int32_t type :
         {CF_NAME_PREFIX, CF_GIVEN_NAME, CF_MIDDLE_NAME, CF_FAMILY_NAME, CF_NAME_4, CF_NAME_SUFFIX}) {
        const std::u16string part = TextOf(contact, type);
        if (!part.empty() && !title.empty()) title += u' ';
        title += part;
    }
    for (const auto& field : contact.fields)
        if (title.empty() && field) title = field->Data;
    return title.empty() ? u"(no name)" : title;
}

const CCalendarField* TitleField(const CCalendarItem& item) {
    for (const std::int32_t type : {CAL_FIELD_DESCRIPTION, CAL_FIELD_BODY})
        for (const auto& field : item.fields)
            if (field && field->Type == type && !field->Data.empty()) return field.get();
    return nullptr;
}

std::u16string TitleOf(const CCalendarItem& item) {
    const CCalendarField* const field = TitleField(item);
    return field != nullptr ? field->Data : u"(no description)";
}

std::u16string OtherParty(const CSMSItem& sms) {
    if (sms.name.empty()) return sms.phonenumber.empty() ? u"(nobody)" : sms.phonenumber;
    return sms.phonenumber.empty() ? sms.name : sms.name + u" <" + sms.phonenumber + u">";
}

std::u16string TitleOf(const CSMSItem& sms) {
    return sms.time.empty() ? OtherParty(sms) : OtherParty(sms) + u", " + sms.time;
}

std::u16string TitleOf(const CEmailItem& email) {
    return email.subject.empty() ? u"(no subject)" : email.subject;
}

}  // namespace orvale
