#include "platform/Clock.h"
#include "support/LogLines.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using SMSXMLFile = SuiteTest<CSMSXMLFile>;

}  // namespace

TEST_F(SMSXMLFile, EveryMemberHasItsElement) {
    EXPECT_EQ(WrittenAgain(Sample()), Sample());
    const orvale::StoppedClock clock(1280124015);
    EXPECT_EQ(JsonOf(Sample()), Data("sms.json"));
    EXPECT_EQ(JsonOf(Data("sms-odd.xml")), Data("sms-odd.json"));
}

TEST_F(SMSXMLFile, ListsOfUnequalLengthFailTheHeader) {
    CSMSProfile good;
    good.storageIds = {1, 2};
    good.storageNames = {u"a", u"b"};
    good.boxes.push_back(nullptr);
    good.boxes.push_back(std::make_unique<CSMSBoxItem>());
    CSMSBoxItem& box = *good.boxes.back();
    box.displayIndexes = box.displayWidths = box.subboxIds = {1, 2};
    box.displayLabels = box.subboxNames = {u"a", u"b"};
    const CSMSItem sms;
    const std::string whole = Written(&good, {&sms});
    EXPECT_NE(whole.find("NO.1"), std::string::npos);
    const auto fail = [&](auto list) {
        CSMSProfile profile;
        profile.CopyFrom(good);
        list(profile).pop_back();
        Driver file(path_, CFile::kCreateReadWrite);
        file->SetProfile(&profile);
        const std::string log = LogLines("ORVALE - CSMSXMLFile::", [&] { EXPECT_EQ(file->WriteFileHeader(), 0); });
        EXPECT_TRUE(
            log.ends_with("@WriteXMLProfile : Finish|@WriteFileHeader : Failed to write XML Profile|"
                          "@WriteFileHeader : Failed|@WriteFileHeader : Finish|"))
            << log;
        EXPECT_EQ(file->WriteFileHeader() + file.Write(&sms), 0) << "and there are no entries";
    };
    fail([](CSMSProfile & profile) -> auto& { return profile.storageNames; });
    fail([](CSMSProfile & profile) -> auto& { return profile.boxes[0]->displayIndexes; });
    fail([](CSMSProfile & profile) -> auto& { return profile.boxes[0]->displayWidths; });
    fail([](CSMSProfile & profile) -> auto& { return profile.boxes[0]->subboxNames; });
    EXPECT_NE(folder_.Get("file.xml").find("<id>2</id></subbox></boxitem></profile>\n</SMS>"), std::string::npos)
        << "the tree as far as it came";
}

TEST_F(SMSXMLFile, AProfileIsResetInPart) {
    Driver file = Reading(Data("sms-odd.xml"));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CSMSProfile& profile = *file.GetProfile();
    // What a reset leaves of a profile, each reading of the header adds to.
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(profile.storageIds.size() + profile.boxes.size(), 6U);
    file->Close();
    EXPECT_EQ(profile.storageIds.size() + profile.boxes.size() + profile.handset.size(), 5U);
}
