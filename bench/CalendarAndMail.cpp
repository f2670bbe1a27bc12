#include "CalendarAndMail.h"

#include "platform/Format.h"

namespace orvale::bench {

std::vector<CCalendarItem> MakeItems(std::size_t count) {
    std::vector<CCalendarItem> items(count);
    for (std::size_t i = 0; i < count; ++i) {
        CCalendarItem& item = items[i];
        const auto add = [&](std::int32_t type, std::u16string data) {
            item.fields.push_back(std::make_unique<CCalendarField>());
            item.fields.back()->Type = type;
            item.fields.back()->Data = std::move(data);
        };
        item.itemType = static_cast<std::int32_t>(i % 5 == 0);
        item.dtstart = DateValue(40000 + static_cast<double>(i % 2000) + 0.75);
        item.dtend = DateValue(item.dtstart.Value() + 0.0625);
        item.recurtype = static_cast<std::int32_t>(i % 4);
        item.ring = u"Bell";
        item.remindermin = 15;
        add(CAL_FIELD_DESCRIPTION, orvale::Format(u"Meeting %u with M\u00FCller; bring the plans", i));
        add(CAL_FIELD_LOCATION, u"Long Street 17, second floor");
        if (i % 4 == 0) add(CAL_FIELD_BODY, u"first the numbers\r\nthen the rest = what is left");
    }
    return items;
}

std::vector<CSMSItem> MakeMessages(std::size_t count) {
    std::vector<CSMSItem> messages(count);
    for (std::size_t i = 0; i < count; ++i) {
        messages[i].storageid = messages[i].listtype = static_cast<std::int32_t>(i % 2 + 1);
        messages[i].name = i % 3 == 0 ? u"\u0418\u0432\u0430\u043D" : u"Mary Anne";
        messages[i].phonenumber = orvale::Format(u"+49171%07u", i);
        messages[i].content = orvale::Format(u"The train is late again, number %u. Don't wait with supper!", i);
        messages[i].time = u"2010-07-26 06:00:15";
    }
    return messages;
}

std::vector<CEmailItem> MakeEmails(std::size_t count) {
    std::vector<CEmailItem> emails(count);
    for (std::size_t i = 0; i < count; ++i) {
        emails[i].type = static_cast<std::int32_t>(i % 5 + 1);
        emails[i].box = u"Inbox";
        emails[i].account = u"<id>1</id><name>work</name>";
        emails[i].from = orvale::Format(u"someone.%u@mail.example.org", i);
        emails[i].to = u"zoe@example.com";
        emails[i].subject = orvale::Format(u"Offer %u", i);
        for (int line = 0; line < 10; ++line)
            emails[i].body += u"A line of text such as people write when they have little to say.\r\n";
        emails[i].received = DateValue(40000 + static_cast<double>(i % 2000));
        if (i % 4 == 0) emails[i].accessory = {u"offer.pdf", u"plan.jpg"};
        emails[i].entryid = orvale::Format(u"%08X", i);
    }
    return emails;
}

}  // namespace orvale::bench
