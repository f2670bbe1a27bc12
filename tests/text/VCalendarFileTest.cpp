#include "text/VCalendarFile.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "support/Cases.h"
#include "support/FileDriver.h"
#include "support/FullDevice.h"
#include "support/Zone.h"

using namespace orvale::test;

namespace {

using VCalendarDriver = FileDriver<CVCalendarFile, CCalendarItem>;

const std::string kHead = "BEGIN:VCALENDAR\r\nPRODID:\r\nVERSION:1.0\r\n";
const std::string kTail = "END:VEVENT\r\nEND:VCALENDAR\r\n";

std::u16string TextOf(const DateValue& date) {
    return date.IsNone() ? u"-"
                         : orvale::Format(u"%04d%02d%02d-%02d%02d%02d", date.Year(), date.Month(), date.Day(),
                                          date.Hour(), date.Minute(), date.Second());
}

class VCalendarFile : public testing::Test {
 protected:
    // The item of a file in one line: type, dates, priority, operation and fields. "" where Read gives 0.
    std::string ReadBack(std::string_view bytes) {
        folder_.Put("in.vcs", bytes);
        VCalendarDriver file(folder_.Name("in.vcs"));
        const CCalendarItem* const item = file.Next();
        item_ = item != nullptr ? *item : CCalendarItem();
        EXPECT_EQ(file.Next(), nullptr) << "a file is one item";
        if (item == nullptr) return "";
        std::u16string text = orvale::Format(u"%d %s %s %d %d", item_.itemType, TextOf(item_.dtstart),
                                             TextOf(item_.dtend), item_.priority, item_.operation);
        for (const auto& field : item_.fields)
            text += orvale::Format(u" %d[%s]", field->Type, field->Data);
        return orvale::ToUtf8(text);
    }

    std::string Written(const CCalendarItem& item) const {
        VCalendarDriver file(folder_.Name("out.vcs"), CFile::kCreateReadWrite);
        EXPECT_EQ(file.Write(&item), 1);
        file->Close();
        return folder_.Get("out.vcs");
    }

    const ScratchFolder folder_;
    CCalendarItem item_;
};

}  // namespace

TEST_F(VCalendarFile, Heads) {
    for (const auto& each : Cases("vcalendar-heads.cases"))
        EXPECT_EQ(ReadBack(each[0] + "PRIORITY:7\r\n" + kTail), each[1]) << each[0];
    EXPECT_EQ(ReadBack("BEGIN:VCALENDAR\r\nVERSION:1.0"), "") << "28 bytes, and whole by all other rules";
    EXPECT_EQ(ReadBack("BEGIN:VCALENDAR\r\nVERSION:1.0 "), "-1 - - 1 0");
}

TEST_F(VCalendarFile, Lines) {
    const orvale::StoppedClock clock(1280124015);
    for (const auto& each : Cases("vcalendar.cases")) {
        EXPECT_EQ(ReadBack(kHead + each[0] + kTail), each[1]) << each[0];
        EXPECT_EQ(ReadBack(kHead + each[0]), each[1]) << "without an end: " << each[0];
    }
}

TEST_F(VCalendarFile, DatesGoThroughTheZone) {
    struct Case {
        const char* zone;
        std::string text;
        std::string local;
    };
    const Case cases[] = {
        {"Europe/Berlin", "20100328T010000Z", "20100328-030000"},  // behind the hour that spring leaves out
        {"Asia/Kolkata", "20100726T060015Z", "20100726-113015"},
    };
    for (const Case& each : cases) {
        const Zone zone(each.zone);
        const std::string bytes = kHead + "BEGIN:VEVENT\r\nDTSTART:" + each.text + "\r\nPRIORITY:1\r\n" + kTail;
        EXPECT_EQ(ReadBack(bytes), "0 " + each.local + " - 1 0") << each.zone;
        EXPECT_EQ(Written(item_), bytes) << each.zone;
    }
}

TEST_F(VCalendarFile, WritesExactlyTheseBytes) {
    EXPECT_EQ(Written(CCalendarItem()), kHead + "BEGIN:VEVENT\r\nPRIORITY:1\r\n" + kTail);
    CCalendarItem item;
    item.itemType = PHONE_TODO_TYPE;  // told by nothing
    item.dtend = DateValue(40385.25);
    item.priority = -2;
    const std::u16string longText(3000, u'x');
    const std::pair<std::int32_t, std::u16string> fields[] = {
        {CAL_FIELD_LOCATION, u"a;b=c\r\n\u00C4:"},
        {0, u"null"},
        {CAL_FIELD_URL, u"no line"},
        {CAL_FIELD_BODY, u""},
        {3013, u"no line"},
        {3100, u"no line"},
        {CAL_FIELD_DESCRIPTION, longText + u'\0' + u'y'},  // a zero ends a text, not the file
    };
    for (const auto& [type, data] : fields) {
        item.fields.push_back(type != 0 ? std::make_unique<CCalendarField>() : nullptr);
        if (type == 0) continue;
        item.fields.back()->Type = type;
        item.fields.back()->Data = data;
    }
    const std::string bytes = kHead +
                              "BEGIN:VEVENT\r\nDTEND:20100726T060000Z\r\nPRIORITY:-2\r\n"
                              "LOCATION;ENCODING=QUOTED-PRINTABLE:a=3Bb=3Dc=0D=0A\u00C4:\r\n"
                              "SUMMARY;ENCODING=QUOTED-PRINTABLE:" +
                              std::string(3000, 'x') + "\r\n" + kTail;
    EXPECT_EQ(Written(item), bytes);
    EXPECT_EQ(ReadBack(bytes), "0 - 20100726-060000 -2 0 3003[a;b=c\r\n\u00C4:] 3000[" + std::string(3000, 'x') + "]");
}

TEST_F(VCalendarFile, ADeviceHasNoLength) {
    const orvale::test::FullDevice device;
    VCalendarDriver full(device.kPath, CFile::kModeReadWrite);
    EXPECT_EQ(full.Next(), nullptr);
}
