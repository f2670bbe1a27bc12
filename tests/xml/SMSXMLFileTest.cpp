#include "xml/SMSXMLFile.h"

#include "platform/Clock.h"
#include "platform/Text.h"
#include "records/GeneralSyncData.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using Driver = SuiteDriver<CSMSXMLFile, CSMSItem, CSMSProfile>;

class SMSXMLFile : public testing::Test {
 protected:
    Driver Reading(const std::string& messages, const std::string& profile = {}) {
        folder_.Put("file.xml", "<SMS id='suite-SMS'><profile>" + profile + "</profile><smsentries>" + messages +
                                    "</smsentries></SMS>");
        return Driver(path_, Driver::Header::kRead);
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

CSMSProfile SampleProfile() {
    CSMSProfile profile;
    profile.config = 3;
    profile.MaxRecipientNum = 10;
    profile.MaxPageNum = -1;
    profile.MaxSSMPageEng = 160;
    profile.MaxSSMPageDBC = 70;
    profile.MaxLSMPageEng = 153;
    profile.MaxLSMPageDBC = 67;
    profile.storageIds = {1, 5, 0xFFFFFFFF};
    profile.storageNames = {u"Phone", u"", u"beyond"};
    profile.handset = u"Handset";
    auto box = std::make_unique<CSMSBoxItem>();
    box->type = SMS_BOX_INBOX;
    box->name = u"Inbox";
    box->capacity = 100;
    box->used = 99;
    box->position = -3;
    box->location = u"1,2";
    box->config = 383;
    box->displayLabels = {u"Name", u""};
    box->displayIndexes = {0, 4};
    box->displayWidths = {120, 0xFFFFFFFF};
    box->subboxIds = {1, 2};
    box->subboxNames = {u"Private", u""};
    profile.boxes.push_back(std::move(box));
    profile.boxes.push_back(nullptr);
    profile.boxes.push_back(std::make_unique<CSMSBoxItem>());
    return profile;
}

CSMSItem SampleSms() {
    CSMSItem sms;
    sms.listtype = 1;
    sms.name = u"Ann";
    sms.storageid = 2;
    sms.status = -1;
    sms.phonenumber = u"+49 170 1";
    sms.content = u"Gr\u00FC\u00DFe <&> \u4E2D\x1F\U0001F600\r\nsecond line";
    sms.time = u"2010-07-26 06:00:15";
    sms.smstype = 7;
    sms.auxText = u"in no file";
    return sms;
}

}  // namespace

TEST_F(SMSXMLFile, WritesExactlyTheSample) {
    const CSMSProfile profile = SampleProfile();
    const CSMSItem sms = SampleSms();
    CSMSItem empty;
    empty.time.clear();
    Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, {&sms, &empty});
    EXPECT_EQ(folder_.Get("file.xml"), Sample("sms.xml"));
}

TEST_F(SMSXMLFile, ReadsTheSampleBack) {
    folder_.Put("file.xml", Sample("sms.xml"));
    Driver(path_).WriteAgain(folder_.Name("copy.xml"));
    EXPECT_EQ(folder_.Get("copy.xml"), Sample("sms.xml"));
}

TEST_F(SMSXMLFile, ListsOfUnequalLengthFailTheHeader) {
    const auto fail = [&](const std::function<void(CSMSProfile&)>& spoil) {
        CSMSProfile profile = SampleProfile();
        spoil(profile);
        Driver file(path_, CFile::kCreateReadWrite);
        file->SetProfile(&profile);
        EXPECT_EQ(file->WriteFileHeader(), 0);
        const CSMSItem sms;
        EXPECT_EQ(file.Write(&sms), 0) << "there are no entries";
    };
    fail([](CSMSProfile& profile) { profile.storageNames.pop_back(); });
    fail([](CSMSProfile& profile) { profile.boxes[0]->displayIndexes.pop_back(); });
    fail([](CSMSProfile& profile) { profile.boxes[0]->displayWidths.clear(); });
    fail([](CSMSProfile& profile) { profile.boxes[0]->subboxNames.pop_back(); });
    EXPECT_NE(folder_.Get("file.xml").find("<id>2</id></subbox></boxitem></profile>\n</SMS>"), std::string::npos)
        << "the tree as far as it came";
}

TEST_F(SMSXMLFile, ReadsWhatAPersonMayHaveWritten) {
    const orvale::StoppedClock clock(1280124015);
    auto file = Reading(
        "<sms/><SMS><name>n</name><Name>no</Name><status> 7x</status><content> </content><status>-8"
        "</status><time/></SMS>",
        "<boxitem><display><width>5</width><label>a</label><label>b</label></display><Display/>"
        "<subbox/><display><label>c</label></display><type>x</type><used>1</used><used>2</used>"
        "</boxitem><MaxPageNum>1</MaxPageNum><maxpagenum>2</maxpagenum><storage><name>s</name>"
        "<id>3</id><id>4</id></storage><storage/><!--c--><handset>h</handset><handset>i</handset>"
        "<boxitem/>");
    const CSMSProfile& profile = *file.GetProfile();
    EXPECT_EQ(profile.MaxPageNum, 1);
    EXPECT_EQ(profile.storageIds, (std::vector<std::uint32_t>{3, 0})) << "of two children of a name the first";
    EXPECT_EQ(profile.storageNames, (std::vector<std::u16string>{u"s", u""}));
    EXPECT_EQ(profile.handset, u"i") << "but of two members the last";
    ASSERT_EQ(profile.boxes.size(), 2U);
    const CSMSBoxItem& box = *profile.boxes[0];
    EXPECT_EQ(box.displayLabels, (std::vector<std::u16string>{u"a", u"c"}));
    EXPECT_EQ(box.displayIndexes, (std::vector<std::uint32_t>{0, 0}));
    EXPECT_EQ(box.displayWidths, (std::vector<std::uint32_t>{5, 0}));
    EXPECT_EQ(box.subboxIds.size() + box.subboxNames.size(), 2U);
    EXPECT_EQ(box.used, 2);

    const CSMSItem* const sms = file.Next();
    ASSERT_NE(sms, nullptr);
    EXPECT_EQ(sms->time, u"2010-07-26 06:00:15") << "the moment of the reading";
    ASSERT_EQ(file.Next(), sms);
    EXPECT_EQ(sms->name + sms->content + sms->time, u"n ");
    EXPECT_EQ(sms->status, -8);
    EXPECT_EQ(file.Next(), nullptr);
}

// What Reset leaves of a profile, each reading of the header adds to.
TEST_F(SMSXMLFile, StoragesOfAProfileStay) {
    auto file = Reading("", "<storage><id>1</id></storage><boxitem/><handset>h</handset>");
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(file.GetProfile()->storageIds.size(), 2U);
    EXPECT_EQ(file.GetProfile()->boxes.size(), 1U);
    file->Close();
    EXPECT_EQ(file.GetProfile()->storageIds.size(), 2U);
    EXPECT_EQ(file.GetProfile()->boxes.size(), 0U);
    EXPECT_EQ(file.GetProfile()->handset, u"h");
}

TEST_F(SMSXMLFile, Log) {
    const auto four = [](const std::string& name, const std::string& outcome, const std::string& inner = {}) {
        return name + " : Begin\n" + inner + name + " : " + outcome + "\n" + name + " : Finish\n";
    };
    const std::string name = "Open : File Name[" + orvale::ToUtf8(path_) + "]\n";
    const std::string dump = "Name : n Phone Number :  Type : 0000\nContent :  Time : t\n";
    EXPECT_EQ(
        LogOf("CSMSXMLFile",
              [&] {
                  auto file = Reading("<sms><name>n</name><time>t</time></sms>",
                                      "<storage><id>07</id><name>s</name></storage><boxitem/>");
                  EXPECT_EQ(file->Verify(), 0);
                  while (file.Next() != nullptr) {
                  }
                  file->Close();
              }),
        four("Open", "Succeeded", "Open : File identifier[suite-SMS]\n" + name) +
            four("ReadFileHeader", "Succeeded",
                 four("ReadXMLProfile", "Succeeded",
                      four("ReadXMLDeviceProfile", "Succeeded", "ReadXMLDeviceProfile : ID = 07 Name = s\n") +
                          four("ReadXMLBoxProfile", "Succeeded"))) +
            four("Verify", "Succeeded") +
            four("Read", "Succeeded", "ReadSMSItem : Succeeded\nReadSMSItem : Finish\n" + dump) +
            four("Read", "Failed", "ReadSMSItem : Failed\nReadSMSItem : Finish\nRead : Failed to load SMS Item\n") +
            four("Close", "Succeeded") + four("Close", "Succeeded"));
    EXPECT_EQ(LogOf("CSMSXMLFile",
                    [&] {
                        CSMSXMLFile closed;
                        closed.SetProfile(&closed);
                        EXPECT_EQ(closed.Verify(), VERIFY_NOT_OPENED);
                        Driver file(path_, CFile::kModeWrite);
                        CSMSProfile profile;
                        file->SetProfile(&profile);
                        EXPECT_EQ(file->ReadFileHeader(), 0);
                        profile.storageIds.push_back(1);
                        file->SetProfile(&profile);
                        EXPECT_EQ(file->WriteFileHeader(), 0);
                        profile.storageIds.clear();
                        CSMSItem sms;
                        sms.name = u"n";
                        sms.time = u"t";
                        file.WriteAll(&profile, {&sms});
                    }),
              four("Verify", "Failed") + four("Open", "Succeeded", name) + "SetProfile : Profile[]\n" +
                  four("ReadFileHeader", "Failed", "ReadFileHeader : NULL Profile Node\n") +
                  "SetProfile : Profile[]\n" +
                  four("WriteFileHeader", "Failed",
                       four("WriteComments", "Succeeded") +
                           four("WriteXMLProfile", "Failed",
                                four("WriteXMLDeviceProfile", "Failed", four("WriteComments", "Succeeded"))) +
                           "WriteFileHeader : Failed to write XML Profile\n") +
                  "SetProfile : Profile[]\n" +
                  four("WriteFileHeader", "Succeeded",
                       four("WriteComments", "Succeeded") +
                           four("WriteXMLProfile", "Succeeded",
                                four("WriteXMLDeviceProfile", "Succeeded", four("WriteComments", "Succeeded")) +
                                    four("WriteXMLBoxProfile", "Succeeded", four("WriteComments", "Succeeded")))) +
                  four("Write", "Succeeded", dump + four("WriteSMSItem", "Succeeded")) + four("Close", "Succeeded") +
                  four("Close", "Succeeded") + four("Close", "Failed"));
}
