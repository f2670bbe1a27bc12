#include "native/SMSFile.h"

#include <gtest/gtest.h>

#include "native/NativeSamples.h"
#include "support/FileDriver.h"

using namespace orvale::test;

using SMSDriver = FileDriver<CSMSFile, CSMSItem>;

TEST(SMSFile, ReadString) {
    struct Case {
        const char* name;
        std::string bytes;
        std::int32_t result;
        std::u16string text;
        std::uint64_t position;
    };
    const std::u16string longest(2047, u'x');
    const Case cases[] = {
        {"at the end", "", 1, u"", 0},
        {"length cut off", "\2\1", 1, u"", 2},
        {"negative", Int32(INT32_MIN) + "AB", 1, u"", 4},
        {"two units", Int32(4) + Units(u"AB") + "!", 1, u"AB", 8},
        {"cut off", Int32(8) + Units(u"AB"), 1, u"AB", 8},
        {"cut off in a unit", Int32(8) + Units(u"A") + "B", 1, u"AB", 7},
        {"odd", Int32(3) + Units(u"A") + "BC", 1, u"AB", 7},
        {"a zero unit", Int32(6) + Units(std::u16string_view(u"A\0B", 3)), 1, u"A", 10},
        {"longest", Int32(4094) + Units(longest) + "!", 1, longest, 4098},
        {"too long", Int32(4095) + std::string(5000, 'x'), 0, u"", 4099},
        {"much too long", Int32(2000000000) + "x", 0, u"", 5},
    };
    const ScratchFolder folder;
    for (const Case& each : cases) {
        folder.Put("in", each.bytes);
        SMSDriver file(folder.Name("in"));
        std::u16string text = u"before";
        EXPECT_EQ(file->ReadString(&text), each.result) << each.name;
        EXPECT_EQ(text, each.text) << each.name;
        EXPECT_EQ(file->GetPosition(), each.position) << each.name;
    }
}

TEST(SMSFile, StringsByThemselvesNeverThrow) {
    CSMSFile closed;
    std::u16string text = u"before";
    EXPECT_EQ(closed.ReadString(nullptr) + closed.ReadString(&text), 0);
    EXPECT_EQ(text, u"");
    EXPECT_NO_THROW(closed.WriteString(&text));
    SMSDriver full(u"/dev/full", CFile::kModeWrite);
    EXPECT_NO_THROW(full->WriteString(&text));
    EXPECT_NO_THROW(full->WriteString(nullptr));
}

TEST(SMSFile, ACutMessageComesWithWhatThereIsOfIt) {
    const ScratchFolder folder;
    folder.Put("in", Sms::kHeader + Sms::kBytes.substr(0, 12 + 10 + 8 + 4 + 3));  // one unit and a half of three
    SMSDriver file(folder.Name("in"));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CSMSItem* const sms = file.Next();
    ASSERT_NE(sms, nullptr);
    EXPECT_EQ(sms->listtype, 4);
    EXPECT_EQ(sms->name + sms->phonenumber, u"\u00C4nn+1");
    EXPECT_EQ(sms->content, u"\xD83D");
    EXPECT_EQ(sms->time, u"") << "not the moment of the reading";
    file->Close();
    EXPECT_EQ(sms->phonenumber, u"") << "what was handed out ends with the file";
}
