#include "xml/SMSXMLFile.h"

#include "platform/Clock.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using Numbers = std::vector<std::int32_t>;
using Unsigned = std::vector<std::uint32_t>;
using Texts = std::vector<std::u16string>;

class SMSXMLFile : public SuiteTest<CSMSXMLFile, CSMSItem, CSMSProfile> {
 protected:
    static std::string Document(const std::string& messages, const std::string& profile = {}) {
        return "<SMS id='suite-SMS'><profile>" + profile + "</profile><smsentries>" + messages + "</smsentries></SMS>";
    }
};

}  // namespace

TEST_F(SMSXMLFile, ReadsTheSampleAndWritesItAgain) {
    EXPECT_EQ(WrittenAgain(Sample("sms.xml")), Sample("sms.xml"));

    Driver file = Reading(Sample("sms.xml"));
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
        "<sms/><SMS><name>n</name><Name>no</Name><status> 7x</status><content> </content><status>-8</status><time/>"
        "</SMS>",
        "<boxitem><display><width>5</width><label>a</label><label>b</label></display><Display/><subbox/><display>"
        "<label>c</label></display><type>x</type><used>1</used><used>2</used></boxitem><MaxPageNum>1</MaxPageNum>"
        "<maxpagenum>2</maxpagenum><storage><name>s</name><id>3</id><id>4</id></storage><storage/><!--c-->"
        "<handset>h</handset><handset>i</handset><boxitem/>"));
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

TEST_F(SMSXMLFile, Log) {
    const auto run = [&] {
        Driver file = Reading(Document("<sms><name>n</name><time>t</time></sms>",
                                       "<storage><id>07</id><name>s</name></storage><boxitem/>"));
        EXPECT_EQ(file->ReadFileHeader() + file->Verify(), 1);
        while (file.Next() != nullptr) {
        }
        CSMSXMLFile other;
        other.SetProfile(&other);
        EXPECT_EQ(other.Verify(), VERIFY_NOT_OPENED);
        const std::uint32_t flags = CFile::kModeWrite;
        EXPECT_EQ(static_cast<CFileInterface&>(other).Open(path_.c_str(), &flags), 1);
        EXPECT_EQ(other.ReadFileHeader(), 0);
        CSMSProfile profile;
        for (const std::size_t count : {1U, 0U}) {
            profile.storageIds.resize(count);
            other.SetProfile(&profile);
            EXPECT_EQ(other.WriteFileHeader(), count == 0);
        }
        CSMSItem sms;
        sms.name = u"n";
        sms.time = u"t";
        EXPECT_EQ(static_cast<CFileInterface&>(other).Write(&sms), 1);
    };
    const std::string name = "Open : File Name[" + orvale::ToUtf8(path_) + "]\n";
    const std::string dump = "Name : n Phone Number :  Type : 0000\nContent :  Time : t\n";
    const std::string comments = Lines("WriteComments", "Succeeded");
    EXPECT_EQ(
        LogOf("CSMSXMLFile", run),
        Lines("Open", "Succeeded", "Open : File identifier[suite-SMS]\n" + name) +
            Lines("ReadFileHeader", "Succeeded",
                  Lines("ReadXMLProfile", "Succeeded",
                        Lines("ReadXMLDeviceProfile", "Succeeded", "ReadXMLDeviceProfile : ID = 07 Name = s\n") +
                            Lines("ReadXMLBoxProfile", "Succeeded"))) +
            Lines("Verify", "Succeeded") +
            Lines("Read", "Succeeded", "ReadSMSItem : Succeeded\nReadSMSItem : Finish\n" + dump) +
            Lines("Read", "Failed", "ReadSMSItem : Failed\nReadSMSItem : Finish\nRead : Failed to load SMS Item\n") +
            Lines("Verify", "Failed") + Lines("Open", "Succeeded", name) +
            Lines("ReadFileHeader", "Failed", "ReadFileHeader : NULL Profile Node\n") + "SetProfile : Profile[]\n" +
            Lines("WriteFileHeader", "Failed",
                  comments + Lines("WriteXMLProfile", "Failed", Lines("WriteXMLDeviceProfile", "Failed", comments)) +
                      "WriteFileHeader : Failed to write XML Profile\n") +
            "SetProfile : Profile[]\n" +
            Lines("WriteFileHeader", "Succeeded",
                  comments + Lines("WriteXMLProfile", "Succeeded",
                                   Lines("WriteXMLDeviceProfile", "Succeeded", comments) +
                                       Lines("WriteXMLBoxProfile", "Succeeded", comments))) +
            Lines("Write", "Succeeded", dump + Lines("WriteSMSItem", "Succeeded")) + Lines("Close", "Succeeded") +
            Lines("Close", "Succeeded"));
}
