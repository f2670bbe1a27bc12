#include "CalendarAndMail.h"

#include "platform/Format.h"

namespace orvale::bench {

void MakeItem(std::size_t number, CCalendarItem& item) {
    const auto add = [&](std::int32_t type, std::u16string data) {
        item.fields.push_back(std::make_unique<CCalendarField>());
        item.fields.back()->Type = type;
        item.fields.back()->Data = std::move(data);
    };
    item.itemType = static_cast<std::int32_t>(number % 5 == 0);
    item.dtstart = DateValue(40000 + static_cast<double>(number % 2000) + 0.75);
    item.dtend = DateValue(item.dtstart.Value() + 0.0625);
    item.recurtype = static_cast<std::int32_t>(number % 4);
    item.ring = u"Bell";
    item.remindermin = 15;
    add(CAL_FIELD_DESCRIPTION, Format(u"Meeting %u with M\u00FCller; bring the plans", number));
    add(CAL_FIELD_LOCATION, u"Long Street 17, second floor");
    if (number % 4 == 0) add(CAL_FIELD_BODY, u"first the numbers\r\nthen the rest = what is left");
}

void MakeMessage(std::size_t number, CSMSItem& message) {
    message.storageid = message.listtype = static_cast<std::int32_t>(number % 2 + 1);
    message.name = number % 3 == 0 ? u"\u0418\u0432\u0430\u043D" : u"Mary Anne";
    message.phonenumber = Format(u"+49171%07u", number);
    message.content = Format(u"The train is late again, number %u. Don't wait with supper!", number);
    message.time = u"2010-07-26 06:00:15";
}

void MakeEmail(std::size_t number, CEmailItem& email) {
    email.type = static_cast<std::int32_t>(number % 5 + 1);
    email.box = u"Inbox";
    email.account = u"<id>1</id><name>work</name>";
    email.from = Format(u"someone.%u@mail.example.org", number);
    email.to = u"zoe@example.com";
    email.subject = Format(u"Offer %u", number);
    for (int line = 0; line < 10; ++line)
        email.body += u"A line of text such as people write when they have little to say.\r\n";
    email.received = DateValue(40000 + static_cast<double>(number % 2000));
    if (number % 4 == 0) email.accessory = {u"offer.pdf", u"plan.jpg"};
    email.entryid = Format(u"%08X", number);
}

namespace {

template <class Record>
std::vector<Record> MakeAll(std::size_t count, void (*make)(std::size_t, Record&)) {
    std::vector<Record> records(count);
    for (std::size_t i = 0; i < count; ++i)
        make(i, records[i]);
    return records;
}

}  // namespace

std::vector<CCalendarItem> MakeItems(std::size_t count) {
    return MakeAll(count, MakeItem);
}
std::vector<CSMSItem> MakeMessages(std::size_t count) {
    return MakeAll(count, MakeMessage);
}
std::vector<CEmailItem> MakeEmails(std::size_t count) {
    return MakeAll(count, MakeEmail);
}

}  // namespace orvale::bench
