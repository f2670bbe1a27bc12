#include "records/SMSItem.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "records/DriverName.h"
#include "support/Zone.h"

TEST(SMSItem, ResetGivesTheLocalTimeAndLeavesTheVersion) {
    CSMSItem sms;
    sms.version = 7;
    sms.smstype = 5;
    const orvale::test::Zone zone("Asia/Kolkata");
    const orvale::StoppedClock clock(1280124015);  // 26 July 2010, 06:00:15 UTC
    sms.Reset();
    EXPECT_EQ(sms.version * 10 + sms.smstype, 70);
    EXPECT_EQ(sms.time, u"2010-07-26 11:30:15");
}

// What of a profile is copied shows in the tests of the suite that carries it.
TEST(SMSProfile, CopiesItselfAndResetsInPart) {
    using Profile = CSMSProfile;
    constexpr std::int32_t Profile::*kNumbers[] = {
        &Profile::config,        &Profile::MaxRecipientNum, &Profile::MaxPageNum,   &Profile::MaxSSMPageEng,
        &Profile::MaxSSMPageDBC, &Profile::MaxLSMPageEng,   &Profile::MaxLSMPageDBC};
    Profile source;
    for (const auto number : kNumbers)
        source.*number = 5;
    source.version = 7;
    source.handset = u"h";
    source.storageIds = {1};
    source.boxes.push_back(std::make_unique<CSMSBoxItem>());
    Profile copy;
    copy.boxes.resize(3);
    copy.CopyFrom(source);
    copy.CopyFrom(copy);
    EXPECT_EQ(copy.version, 100);
    EXPECT_EQ(copy.boxes.size(), 1U);
    copy.Reset();
    for (const auto number : kNumbers)
        EXPECT_EQ(copy.*number, 0);
    EXPECT_TRUE(copy.boxes.empty());
    EXPECT_EQ(copy.storageIds, source.storageIds) << "a reset leaves them";
    EXPECT_EQ(copy.handset + copy.dllname, u"h.dll");
}

TEST(DriverName, EndsInDll) {
    for (const auto& [given, kept] :
         {std::pair{u"", u".dll"}, {u"A.DLL", u"A.DLL"}, {u"a.dl", u"a.dl.dll"}, {u"dll", u"dll.dll"}})
        EXPECT_EQ(orvale::DriverName(given), kept);
}
