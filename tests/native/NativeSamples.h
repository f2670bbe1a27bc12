#pragma once

#include <bit>

#include "native/CALFile.h"
#include "native/EMLFile.h"
#include "native/QZSFile.h"
#include "native/SMSFile.h"
#include "support/Bytes.h"

/// The native files: a record with a value of its own in each member that the file keeps, and by hand the bytes that it
/// has there.
namespace orvale::test {

inline std::string Float64(double number) {
    const auto bits = std::bit_cast<std::uint64_t>(number);
    return Int32(static_cast<std::uint32_t>(bits)) + Int32(static_cast<std::uint32_t>(bits >> 32));
}

inline std::string Int32s(std::initializer_list<std::int64_t> numbers) {
    std::string bytes;
    for (const std::int64_t number : numbers)
        bytes += Int32(number);
    return bytes;
}

inline std::string ByteString(std::u16string_view text) {
    return Int32(static_cast<std::int64_t>(2 * text.size())) + Units(text);
}

constexpr std::time_t kDayOfWriting = 1280124015;  // 26 July 2010

inline std::string DatedHeader(const std::string& flag) {
    const std::string ends(2, '\0');
    return flag + ends + "20100726" + ends + Int32(100);
}

struct Contacts {
    using File = CQZSFile;
    using Record = CContactItem;
    static constexpr bool kIsSms = false;
    static inline const std::string kHeader = DatedHeader("<QZ-QZS>");
    static inline const std::string kEmpty = std::string(8, '\0');
    // AddField's copy turned the bucket of 1 and 2 around, and writing turns it once more.
    static inline const std::string kBytes = Int32s({2, 2, 5}) + String(u"\u00C4\u4E2D") + Int32(-2) + String(u"x") +
                                             Int32s({3, 2}) + String(u"b") + Int32(1) + String(u"a") + Int32(16) +
                                             String(u"c") + std::string(20, '\0');

    static Record Sample() {
        Record contact;
        contact.Storage = 2;
        contact.Index = contact.MemoryLocation = 9;  // in no file
        CContactField field;
        field.Type = 5;
        field.Data = u"\u00C4\u4E2D";
        field.extraNumber = 0xFFFFFFFE;
        field.extraText = u"x";
        field.SetGroup(1, u"a");
        field.SetGroup(2, u"b");
        field.SetGroup(16, u"c");
        contact.AddField(field);
        contact.AddField(CContactField());
        return contact;
    }
    static void Clear(Record& contact) { contact.Clear(); }
};

struct Calendar {
    using File = CCALFile;
    using Record = CCalendarItem;
    static constexpr bool kIsSms = false;
    static inline const std::string kHeader = DatedHeader("<QZ-CAL>");
    static inline const std::string kEmpty =
        Int32(-1) + std::string(44, '\0') + Int32(1) + std::string(40, '\0') + Int32(1) + std::string(16, '\0');
    static inline const std::string kBytes =
        Int32s({1, 2, 3004}) + String(u"\u00C4\U0001F600") + Int32s({-2, -77}) + String(u"") + Int32(0) +
        Float64(40385.25) + Float64(-1.75) + Int32s({11, 12, 13, 14, 15, 16, 17, 18}) + Float64(0.5) +
        Int32s({19, 20}) + String(u"ring") + Int32s({21, 22, 23, 24, 25, 26, 27, 28, 29});

    static Record Sample() {
        Record item;
        for (const std::int32_t type : {3004, 0, -77}) {
            item.fields.push_back(type != 0 ? std::make_unique<CCalendarField>() : nullptr);  // null isn't counted
            if (type != 0) item.fields.back()->Type = type;
        }
        item.fields[0]->Data = u"\u00C4\U0001F600";
        item.fields[0]->secondNumber = -2;
        item.itemType = PHONE_TODO_TYPE;
        item.dtstart = DateValue(40385.25);
        item.dtend = DateValue(-1.75, DateValue::kInvalid);  // the status isn't kept
        item.recurenddate = DateValue(0.5);
        item.ring = u"ring";
        std::int32_t next = 11;
        for (const auto number :
             {&Record::recurtype, &Record::recurday, &Record::recurmonth, &Record::recurinstance, &Record::recurweekday,
              &Record::recurweekmask, &Record::recurinterval, &Record::recurrepeat, &Record::recurhasenddate,
              &Record::ringid, &Record::vibration, &Record::secret, &Record::duration, &Record::remindermin,
              &Record::priority, &Record::complete, &Record::reserve1, &Record::reserve2, &Record::category})
            item.*number = next++;
        return item;
    }
    static void Clear(Record& item) { item.Clear(); }
};

struct Email {
    using File = CEMLFile;
    using Record = CEmailItem;
    static constexpr bool kIsSms = false;
    static inline const std::string kHeader = DatedHeader("<QZ-EML>");
    static inline const std::string kEmpty = std::string(84, '\0');
    static inline const std::string kBytes =
        Int32s({11, 12, 13}) + String(u"a") + String(u"b") + String(u"c") + String(u"d") + String(u"e") + String(u"f") +
        String(u"g") + String(u"h\u4E2D") + String(u"i") + Float64(40385.25) + Float64(-1.75) + Int32(2) +
        String(u"a.jpg") + String(u"") + Int32s({14, 15, 16}) + String(u"j");

    static Record Sample() {
        Record email;
        std::int32_t next = 11;
        for (const auto number : {&Record::type, &Record::device, &Record::status, &Record::importance, &Record::symbol,
                                  &Record::sensitivity})
            email.*number = next++;
        char16_t letter = u'a';
        for (const auto text : {&Record::box, &Record::account, &Record::folder, &Record::from, &Record::to,
                                &Record::cc, &Record::bcc, &Record::subject, &Record::body, &Record::entryid})
            email.*text = letter++;
        email.subject += u'\u4E2D';
        email.received = DateValue(40385.25);
        email.sent = DateValue(-1.75, DateValue::kNull);  // the status isn't kept
        email.accessory = {u"a.jpg", u""};
        return email;
    }
    static void Clear(Record& email) { email.Reset(); }
};

struct Sms {
    using File = CSMSFile;
    using Record = CSMSItem;
    static constexpr bool kIsSms = true;
    static inline const std::string kHeader = std::string("<QZ-SMS>\0\0", 10) + Int32(101);
    static inline const std::string kEmpty = std::string(24, '\0') + ByteString(u"2010-07-26 06:00:15");
    static inline const std::string kBytes = Int32s({2, -3, 4}) + ByteString(u"\u00C4nn") + ByteString(u"+1") +
                                             ByteString(u"\U0001F600!") + ByteString(u"any");

    static Record Sample() {
        Record sms;
        sms.storageid = SMS_STORAGE_SIM_CARD;
        sms.status = -3;
        sms.listtype = SMS_BOX_SENT;
        sms.name = u"\u00C4nn";
        sms.phonenumber = u"+1";
        sms.content = u"\U0001F600!";
        sms.time = u"any";
        sms.smstype = 5;  // in no file
        return sms;
    }
    static void Clear(Record& sms) { sms.Reset(); }
};

}  // namespace orvale::test
