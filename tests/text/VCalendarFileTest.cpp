#include "text/VCalendarFile.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "support/FileDriver.h"
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
    const std::pair<std::string, bool> cases[] = {
        {kHead, true},
        {" begin:vcalendar \r\nX PRODID:-//any//thing \r\nversion:1.0\r\n", true},
        {"BEGIN:VCALENDAR\r\n VERSION:1.0 \r\n", true},
        {"BEGIN:VCALENDAR\r\nPRODID:\r\n VERSION:1.0\r\n", false},  // behind PRODID nothing is trimmed
        {"BEGIN:VCALENDAR\r\nprodid:\r\nVERSION:1.0\r\n", false},
        {"BEGIN:VCALENDAR\r\nPRODID:\r\nPRODID:\r\nVERSION:1.0\r\n", false},
        {"BEGIN:VCALENDAR\r\nPRODID:\r\nVERSION:2.0\r\n", false},
        {"VERSION:1.0\r\nBEGIN:VCALENDAR\r\n", false},
        {"\r\nBEGIN:VCALENDAR\r\nVERSION:1.0\r\n", false},
        {"BEGIN:VCALENDAR\nPRODID:\nVERSION:1.0\n", false},
    };
    for (const auto& [head, comes] : cases)
        EXPECT_EQ(ReadBack(head + "PRIORITY:7\r\n" + kTail), comes ? "-1 - - 7 0" : "") << head;
    EXPECT_EQ(ReadBack("BEGIN:VCALENDAR\r\nVERSION:1.0"), "") << "28 bytes, and whole by all other rules";
    EXPECT_EQ(ReadBack("BEGIN:VCALENDAR\r\nVERSION:1.0 "), "-1 - - 1 0");
}

TEST_F(VCalendarFile, Lines) {
    const orvale::StoppedClock clock(1280124015);
    const std::pair<std::string, const char*> cases[] = {
        {"BEGIN:VEVENT\r\nDTSTART:20100726T060015Z\r\nDTEND:20100727T060015Z\r\nPRIORITY:2\r\n",
         "0 20100726-060015 20100727-060015 2 0"},
        {"BEGIN:VTODO\r\n dtstart :20100726T060015Z\r\nTRANSP:1\r\nUID:x\r\n", "0 20100726-060015 - 1 0"},
        {"DTSTART:\r\nDTEND:20100726\r\n", "-1 - 20100726-060015 1 4"},  // the moment of the reading
        {"DTEND:20100230T000000Z\r\n", "-1 - -001-1-1--1-1-1 1 4"},
        {"DTSTART;TZID=x:20100101T000000Z\r\n", "-1 - - 1 0"},
        {"DTSTART:20100726T060015Z\r\nSUMMARY:x\r\n", "-1 20100726-060015 - 1 0"},
        {"PRIORITY:-5x\r\n", "-1 - - -5 0"},
        {"PRIORITY:x\r\n", "-1 - - 0 0"},
        {"PRIORITY:\r\n", "-1 - - 1 0"},
        {"SUMMARY;ENCODING=QUOTED-PRINTABLE:a=\r\nb\r\n", "-1 - - 1 0 3000[ab]"},
        {"summary;encoding=quoted-printable:a=3D=\r\n  b:c=\r\n\r\nd=0A\r\n", "-1 - - 1 0 3000[a=  b:cd\n]"},
        {"LOCATION;ENCODING=QUOTED-PRINTABLE:x:y;=C3=84\nz\r\n", "-1 - - 1 0 3003[x:y;\u00C4\nz]"},
        {"DESCRIPTION;ENCODING=QUOTED-PRINTABLE:=\r\nmore\r\n", "-1 - - 1 0"},  // no value to be joined
        {"SUMMARY;ENCODING=QUOTED-PRINTABLE:a\r\nDESCRIPTION;ENCODING=QUOTED-PRINTABLE:b\r\n",
         "-1 - - 1 0 3000[a] 3002[b]"},
        {"unknown\r\n:x\r\nPRIORITY:3\r\n", "-1 - - 3 0"},
        {"END:VCALENDAR\r\nPRIORITY:4\r\n", "-1 - - 4 0"},  // not the end of the file
        {"BEGIN:VEVENT\r\nPRIORITY:1\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\nPRIORITY:2\r\n", "0 - - 2 0"},
        {"PRIORITY:2\r\n" + std::string(1, '\0') + "PRIORITY:3\r\n", "-1 - - 2 0"},  // a zero ends the text
        {"PRIORITY:2\r\n" + kTail + kHead + "DTEND:20100726T060015Z\r\n", "0 - 20100726-060015 2 0"},
    };
    for (const auto& [lines, item] : cases) {
        EXPECT_EQ(ReadBack(kHead + lines + kTail), item) << lines;
        EXPECT_EQ(ReadBack(kHead + lines), item) << "without an end: " << lines;
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

TEST_F(VCalendarFile, FailsWithoutAFileARecordOrRoom) {
    CVCalendarFile closed;
    CFileInterface& face = closed;
    const CCalendarItem item;
    void* record = nullptr;
    EXPECT_EQ(face.Read(&record) + face.Write(&item), 0);
    EXPECT_EQ(face.Verify(), VERIFY_NOT_OPENED);
    folder_.Put("in.vcs", kHead + kTail);
    VCalendarDriver file(folder_.Name("in.vcs"));
    EXPECT_EQ(file->Verify(), VERIFY_OK);
    EXPECT_EQ(file->Read(nullptr) + file.Write(nullptr) + file.Write(&item), 0);
    VCalendarDriver full(u"/dev/full", CFile::kModeReadWrite);
    EXPECT_EQ(full.Write(&item), 0);
    EXPECT_EQ(full.Next(), nullptr) << "a device has no length";
}
