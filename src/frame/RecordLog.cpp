#include "frame/RecordLog.h"

#include "frame/Log.h"
#include "frame/UtcText.h"
#include "records/GeneralSyncData.h"

namespace orvale {
namespace {

// The word of no operation, which is also what contacts and calendar items always show.
constexpr std::u16string_view kNoOperation = u"None";

std::u16string_view OperationWord(std::int32_t operation) {
    for (const NamedValue& row : kOperations)
        if ((operation & row.value) != 0) return row.text;
    return kNoOperation;
}

template <class Field>
void LogField(const Field& field) noexcept {
    LogFormat(u"Type : %d  Data : %s\r\n", field.Type, field.Data);
}

// The date texts are made before a line is: what they throw must not leave the dump.
template <class Lines>
void Dump(Lines&& lines) noexcept {
    try {
        lines();
    } catch (...) {  // no memory: the rest is dropped
    }
}

}  // namespace

void LogContact(const CContactItem* contact) noexcept {
    if (!LogEnabled() || contact == nullptr) return;
    LogFormat(u"Storage : %d  Memory Location : %d Index : %d Operation : %s\r\n", contact->Storage,
              contact->MemoryLocation, contact->Index, kNoOperation);
    for (const auto& field : contact->fields)
        if (field) LogField(*field);
}

void LogCalendar(const CCalendarItem* item) noexcept {
    if (!LogEnabled() || item == nullptr) return;
    Dump([&] {
        LogFormat(u"Start time : %s  end time : %s type : %d Operation : %s\r\n", DateToLocaleText(item->dtstart),
                  DateToLocaleText(item->dtend), item->itemType, kNoOperation);
        for (const auto& field : item->fields)
            if (field) LogField(*field);
    });
}

void LogSms(const CSMSItem* sms) noexcept {
    if (!LogEnabled() || sms == nullptr) return;
    LogFormat(u"Name : %s Phone Number : %s Type : %04d\r\n", sms->name, sms->phonenumber, sms->listtype);
    LogFormat(u"Content : %s Time : %s\r\n", sms->content, sms->time);
}

void LogEmail(const CEmailItem* email) noexcept {
    if (!LogEnabled() || email == nullptr) return;
    Dump([&] {
        const std::u16string rule(81, u'-');
        LogFormat(u"%s Begin\r\n", rule);
        LogFormat(u"Storage : %d  Index : %d Operation : %s  Object Address : 0x%08X\r\n", email->device, email->index,
                  OperationWord(email->operation), static_cast<const void*>(email));
        LogFormat(u"Account : %s\r\n", email->account);
        if (email->folder.empty())
            LogFormat(u"Box     : %s[0x%08X]\r\n", email->box, email->type);
        else
            LogFormat(u"Box     : %s[0x%08X]  Folder : %s \r\n", email->box, email->type, email->folder);
        LogFormat(u"From    : %s   Time : %s\r\n", email->from, DateToLocaleText(email->received));
        LogFormat(u"To      : %s   Time : %s\r\n", email->to, DateToLocaleText(email->sent));
        LogFormat(u"Subject : %s\r\n", email->subject);
        LogFormat(u"Body    : %s\r\n", email->body);
        LogFormat(u"%s Finish\r\n", rule);
    });
}

}  // namespace orvale
