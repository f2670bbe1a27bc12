#include "platform/Clock.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using SMSXMLFile = SuiteTest<CSMSXMLFile>;

}  // namespace

TEST_F(SMSXMLFile, EveryMemberHasItsElement) {
    EXPECT_EQ(WrittenAgain(Sample()), Sample());

    Driver file = Reading(Sample());
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CSMSProfile& p = *file.GetProfile();
    ASSERT_EQ(p.boxes.size(), 2U);
    const CSMSBoxItem& b = *p.boxes[0];
    EXPECT_EQ((Numbers{p.config, p.MaxRecipientNum, p.MaxPageNum, p.MaxSSMPageEng, p.MaxSSMPageDBC, p.MaxLSMPageEng,
                       p.MaxLSMPageDBC, b.type, b.capacity, b.used, b.position, b.config}),
              (Numbers{3, 10, -1, 160, 70, 153, 67, 1, 100, 99, -3, 383}));
    EXPECT_EQ(p.handset + p.dllname + b.name + b.location, u"Handset.dllInbox1,2");
    EXPECT_TRUE((p.storageIds == Unsigned{1, 5, 0xFFFFFFFF}) && (b.displayIndexes == Unsigned{0, 4}) &&
                (b.displayWidths == Unsigned{120, 0xFFFFFFFF}) && (b.subboxIds == Unsigned{1, 2}));
    EXPECT_TRUE((p.storageNames == Texts{u"Phone", u"", u"beyond"}) && (b.displayLabels == Texts{u"Name", u""}) &&
                (b.subboxNames == Texts{u"Private", u""}));
    const CSMSItem* const sms = file.Next();
    ASSERT_NE(sms, nullptr);
    EXPECT_EQ((Numbers{sms->listtype, sms->storageid, sms->status, sms->smstype}), (Numbers{1, 2, -1, 7}));
    EXPECT_EQ((Texts{sms->name, sms->phonenumber, sms->content, sms->time}),
              (Texts{u"Ann", u"+49 170 1", u"Gr\u00FC\u00DFe <&> \u4E2D\r\nsecond line", u"2010-07-26 06:00:15"}));
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

TEST_F(SMSXMLFile, ReadsWhatAPersonMayHaveWritten) {
    const orvale::StoppedClock clock(1280124015);
    Driver file = Reading(Document(
        "<boxitem><display><width>5</width><label>a</label><label>b</label></display><Display/><subbox/><display>"
        "<label>c</label></display><type>x</type><used>1</used><used>2</used></boxitem><MaxPageNum>1</MaxPageNum>"
        "<maxpagenum>2</maxpagenum><storage><name>s</name><id>3</id><id>4</id></storage><storage/><!--c-->"
        "<handset>h</handset><handset>i</handset><boxitem/>",
        "<sms/><SMS><name>n</name><Name>no</Name><status> 7x</status><content> </content><status>-8</status><time/>"
        "</SMS>"));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CSMSProfile& profile = *file.GetProfile();
    EXPECT_EQ(profile.MaxPageNum, 1);
    EXPECT_EQ(profile.storageIds, (Unsigned{3, 0})) << "of two children of a name the first";
    EXPECT_EQ(profile.storageNames, (Texts{u"s", u""}));
    EXPECT_EQ(profile.handset, u"i") << "but of two members the last";
    ASSERT_EQ(profile.boxes.size(), 2U);
    const CSMSBoxItem& box = *profile.boxes[0];
    EXPECT_EQ(box.displayLabels, (Texts{u"a", u"c"}));
    EXPECT_EQ(box.displayIndexes, (Unsigned{0, 0}));
    EXPECT_EQ(box.displayWidths, (Unsigned{5, 0}));
    EXPECT_EQ(box.subboxIds.size() + box.subboxNames.size(), 2U);
    EXPECT_EQ(box.used, 2);
    const CSMSItem* const sms = file.Next();
    ASSERT_NE(sms, nullptr);
    EXPECT_EQ(sms->time, u"2010-07-26 06:00:15") << "the moment of the reading";
    ASSERT_EQ(file.Next(), sms);
    EXPECT_EQ(sms->name + sms->content + sms->time, u"n ");
    EXPECT_EQ(sms->status, -8);

    // What a reset leaves of a profile, each reading of the header adds to.
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(profile.storageIds.size() + profile.boxes.size(), 6U);
    file->Close();
    EXPECT_EQ(profile.storageIds.size() + profile.boxes.size() + profile.handset.size(), 5U);
}
