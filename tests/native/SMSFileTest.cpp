#include "native/NativeSamples.h"
#include "platform/Text.h"
#include "support/FullDevice.h"

using namespace orvale::test;

namespace {

using SMSFile = Native<Sms>;

}  // namespace

TEST_F(SMSFile, ReadString) {
    for (const auto& each : Cases("sms-strings.cases")) {
        folder_.Put("in", each[1]);
        Driver file(folder_.Name("in"));
        std::u16string text = u"before";
        EXPECT_EQ(std::to_string(file->ReadString(&text)), each[2]) << each[0];
        EXPECT_EQ(orvale::ToUtf8(text), each[3]) << each[0];
        EXPECT_EQ(std::to_string(file->GetPosition()), each[4]) << each[0];
    }
}

TEST_F(SMSFile, StringsByThemselvesNeverThrow) {
    CSMSFile closed;
    std::u16string text = u"before";
    EXPECT_EQ(closed.ReadString(nullptr) + closed.ReadString(&text), 0);
    EXPECT_EQ(text, u"");
    EXPECT_NO_THROW(closed.WriteString(&text));
    const orvale::test::FullDevice device;
    Driver full(device.kPath, CFile::kModeWrite);
    EXPECT_NO_THROW(full->WriteString(&text));
    EXPECT_NO_THROW(full->WriteString(nullptr));
}

TEST_F(SMSFile, ACutMessageComesWithWhatThereIsOfIt) {
    const auto file = Reading(Sms::kBytes.substr(0, 12 + 10 + 8 + 4 + 3));  // one unit and a half of three
    const CSMSItem* const sms = file->Next();
    ASSERT_NE(sms, nullptr);
    EXPECT_EQ(sms->listtype, 4);
    EXPECT_EQ(sms->name + sms->phonenumber, u"\u00C4nn+1");
    EXPECT_EQ(sms->content, u"\xD83D");
    EXPECT_EQ(sms->time, u"") << "not the moment of the reading";
}
