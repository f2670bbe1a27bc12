#include "xml/CDXMLFile.h"

#include "platform/Clock.h"
#include "platform/Text.h"
#include "records/GeneralSyncData.h"
#include "support/Zone.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using Driver = SuiteDriver<CCDXMLFile, CCalendarItem, CCalendarProfile>;

class CDXMLFile : public testing::Test {
 protected:
    Driver Reading(const std::string& items, const std::string& profile = {}) {
        folder_.Put("file.xml", "<calendar id='suite-calendar'><profile>" + profile + "</profile><calendarentries>" +
                                    items + "</calendarentries></calendar>");
        return Driver(path_, Driver::Header::kRead);
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

DateValue Date(int year, int month, int day, int hour, int minute, int second) {
    return DateValue::FromFields({year, month, day, hour, minute, second});
}

void AddField(CCalendarItem& item, std::int32_t type, const std::u16string& data) {
    item.fields.push_back(std::make_unique<CCalendarField>());
    item.fields.back()->Type = type;
    item.fields.back()->Data = data;
}

CCalendarProfile SampleProfile() {
    CCalendarProfile profile;
    profile.handset = u"Handset";
    profile.dllname = u"driver.DLL";
    CCalendarConfig config;
    for (const auto& [type, flags] : {std::pair(PHONE_EVENT_TYPE + 0, CAL_PROP_NO_STARTTIME | CAL_PROP_HAS_RECUR),
                                      std::pair(5, 1), std::pair(PHONE_TODO_TYPE + 0, -1)}) {
        config.type = type;
        config.config = flags;
        profile.configSet.AddConfig(config);
    }
    profile.configSet.configs.push_back(nullptr);
    return profile;
}

CCalendarItem SampleItem() {
    CCalendarItem item;
    item.itemType = PHONE_TODO_TYPE;
    item.category = CATE_REMINDER;
    item.dtstart = Date(2010, 7, 26, 6, 0, 15);
    item.dtend = Date(2010, 7, 26, 7, 30, 0);
    AddField(item, CAL_FIELD_DESCRIPTION, u"\u00DCbung & <more>");
    AddField(item, 3001, u"has no element");
    item.fields.push_back(nullptr);
    AddField(item, CAL_FIELD_PHONENO, u"+49 170\U0001F600");
    AddField(item, CAL_FIELD_DESCRIPTION, u"");
    AddField(item, CAL_FIELD_BODY, u"two\r\nlines");
    AddField(item, CAL_FIELD_LOCATION, u"here");
    AddField(item, CAL_FIELD_URL, u"http://x/?a=1&b=2");
    item.recurtype = RECURS_YEARLY;
    item.recurday = 26;
    item.recurweekday = -1;
    item.recurweekmask = 62;
    item.recurmonth = 7;
    item.recurinstance = 1;
    item.recurinterval = 2;
    item.recurrepeat = 10;
    item.recurenddate = Date(9999, 12, 31, 23, 59, 59);
    item.recurhasenddate = 1;
    item.remindermin = 15;
    item.ringid = 3;
    item.ring = u"Ring \"1\"";
    item.vibration = item.secret = 1;
    item.priority = CAL_TASK_PRIORITY_HIGH;
    item.complete = 1;
    item.duration = 90;
    item.reserve1 = INT32_MIN;
    item.reserve2 = INT32_MAX;
    item.operation = OPERATION_NEW;  // in no file
    return item;
}

}  // namespace

TEST_F(CDXMLFile, WritesExactlyTheSample) {
    const CCalendarProfile profile = SampleProfile();
    const CCalendarItem item = SampleItem();
    const CCalendarItem empty;
    CCalendarItem old;
    old.version = 100;  // of a layout without a category
    Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, {&item, &empty, &old});
    EXPECT_EQ(folder_.Get("file.xml"), Sample("calendar.xml"));
}

TEST_F(CDXMLFile, ReadsTheSampleBack) {
    folder_.Put("file.xml", Sample("calendar.xml"));
    Driver(path_).WriteAgain(folder_.Name("copy.xml"));
    const std::string sample = Sample("calendar.xml");
    const std::size_t start = sample.find("\n\t\t\t<!--CATE_");  // which the record read for the last item has
    const std::string category = sample.substr(start, sample.find("\n\t\t\t<dtstart") - start);
    std::string expected = Replaced(sample, "\n\t\t\n\t\t<todo>", "\n\t\t<todo>");  // the config of type 5
    expected.insert(expected.rfind("\n\t\t\t<dtstart"), Replaced(category, ">13<", ">0<"));
    EXPECT_EQ(folder_.Get("copy.xml"), expected);
}

TEST_F(CDXMLFile, ElementNamesCountInAnyCaseButForThree) {
    auto file =
        Reading("<DATA><DtStart>20100726T060015Z</DtStart><BODY>b</BODY><Ring> r </Ring><Secret>1</Secret></DATA>",
                "<HandSet>h</HandSet><DLLNAME>d</DLLNAME><Event><config>5</config></Event><TODO><Config>6"
                "</Config></TODO><event/><todo><config>x</config><config>9</config></todo>");
    const CCalendarProfile& profile = *file.GetProfile();
    EXPECT_EQ(profile.handset + profile.dllname, u"hd");
    ASSERT_EQ(profile.configSet.configs.size(), 2U) << "config is looked up by its exact name";
    EXPECT_EQ(profile.configSet.configs[0]->config, 5);
    EXPECT_EQ(profile.configSet.configs[0]->type, PHONE_EVENT_TYPE);
    EXPECT_EQ(profile.configSet.configs[1]->config, 0);
    EXPECT_EQ(profile.configSet.configs[1]->type, PHONE_TODO_TYPE);
    const CCalendarItem* const item = file.Next();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->dtstart.Second(), 15);
    EXPECT_EQ(item->fields.at(0)->Data + item->ring, u"b r ");
    EXPECT_EQ(item->secret, 1);
}

TEST_F(CDXMLFile, ReadsWhatAPersonMayHaveWritten) {
    const orvale::StoppedClock clock(1280124015);
    auto file = Reading(
        "<data/>"
        "<data><type>4294967295</type><priority/><reserve1>-2147483648x</reserve1><reserve2>\n +7</reserve2></data>"
        "<data><dtend>\n\t20100726T060015Z </dtend><dtstart/></data>"
        "<data><dtstart>20100726</dtstart><body>1</body><body>2</body><ring>a</ring><ring>b</ring></data>"
        "<data><recurenddate>20101326T060015Z</recurenddate></data>");
    const CCalendarItem* item = file.Next();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->itemType, -1);
    EXPECT_EQ(item->priority, 1) << "what isn't there keeps its default";
    EXPECT_EQ(item->recurinterval, 1);
    ASSERT_EQ(file.Next(), item);
    EXPECT_EQ(item->itemType, -1);
    EXPECT_EQ(item->priority, 0);
    EXPECT_EQ(item->reserve1, INT32_MIN);
    EXPECT_EQ(item->reserve2, 7);
    ASSERT_EQ(file.Next(), item);
    EXPECT_EQ(item->dtend.Value(), Date(2010, 7, 26, 6, 0, 15).Value());
    EXPECT_TRUE(item->dtstart.IsNone());
    EXPECT_EQ(item->operation, 0);
    ASSERT_EQ(file.Next(), item);
    EXPECT_EQ(item->dtstart.Value(), Date(2010, 7, 26, 6, 0, 15).Value()) << "the present moment";
    EXPECT_EQ(item->operation, OPERATION_MODIFY);
    EXPECT_EQ(item->fields.size(), 2U);
    EXPECT_EQ(item->ring, u"b");
    ASSERT_EQ(file.Next(), item);
    EXPECT_EQ(item->operation, OPERATION_MODIFY);
    EXPECT_EQ(file.Next(), nullptr);
}

TEST_F(CDXMLFile, DatesAreLocalHereAndUtcThere) {
    const Zone zone("Asia/Tokyo");
    CCalendarItem item;
    item.dtstart = Date(2010, 7, 26, 6, 0, 15);
    Driver(path_, CFile::kCreateReadWrite).WriteAll(nullptr, {&item});
    EXPECT_NE(folder_.Get("file.xml").find("<dtstart>20100725T210015Z</dtstart>"), std::string::npos);
    Driver file(path_, Driver::Header::kRead);
    const CCalendarItem* const read = file.Next();
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->dtstart.Value(), item.dtstart.Value());
}

TEST_F(CDXMLFile, Log) {
    const std::string opened = "]\nOpen : Finish\n";
    const std::string name = "Open : File Name[" + orvale::ToUtf8(path_);
    EXPECT_EQ(LogOf("CCDXMLFile",
                    [&] {
                        auto file = Reading("<data><!--c--><Type> 1</Type><url>u</url></data>",
                                            "<dllname/><handset/><event/><todo/><x/>");
                        EXPECT_EQ(file->Verify(), 0);
                        while (file.Next() != nullptr) {
                        }
                        file->Close();
                    }),
              "Open : Begin\nOpen : File identifier[suite-calendar]\n" + name + opened +
                  "ReadFileHeader : Begin\nReadFileHeader : Check file Status\nReadFileHeader : Get Profile Node\n"
                  "ReadFileHeader : Read Dll Name\nReadFileHeader : Read Phone ID\nReadFileHeader : Read Event Config\n"
                  "ReadFileHeader : Read Todo Config\nReadFileHeader : Succeeded\nReadFileHeader : Finish\n"
                  "Read : Begin\nRead : Check file Status\nRead : Check Entries\nRead : Load Calendar\n"
                  "LoadCalendar : Type  -  1\nLoadCalendar : url  - u\n" +
                  std::string(104, '=') +
                  "\nRead : Succeeded\nRead : Finish\nRead : Begin\nRead : Check file Status\nRead : Check Entries\n"
                  "Read : Load Calendar\nRead : Failed\nRead : Finish\nClose : Begin/Finish\n");
    EXPECT_EQ(LogOf("CCDXMLFile",
                    [&] {
                        Driver file(path_, CFile::kModeWrite);
                        const CCalendarProfile profile;
                        const CCalendarItem item;
                        file->SetProfile(&profile);
                        EXPECT_EQ(file->ReadFileHeader(), 0);
                        EXPECT_EQ(file.Write(&item), 0);
                        EXPECT_EQ(file->WriteFileHeader(), 1);
                        EXPECT_EQ(file.Write(&item), 1);
                    }),
              "Open : Begin\n" + name + opened +
                  "SetProfile : Profile[]\nReadFileHeader : Begin\nReadFileHeader : Check file Status\n"
                  "ReadFileHeader : Get Profile Node\nReadFileHeader : NULL Profile Node\nReadFileHeader : Failed\n"
                  "ReadFileHeader : Finish\nWrite : Begin\nWrite : Check file status\nWrite : Check the object\n"
                  "Write : Check the entries\nWrite : Failed\nWrite : Finish\nWriteFileHeader : Begin\n"
                  "WriteFileHeader : Check file status\nWriteFileHeader : Create XML header\n"
                  "WriteFileHeader : Create root node\nWriteFileHeader : Set root attribute\n"
                  "WriteFileHeader : Create profile node\nWriteFileHeader : Finish\nWrite : Begin\n"
                  "Write : Check file status\nWrite : Check the object\nWrite : Check the entries\n"
                  "Write : Write the object\nWriteCalendar : Begin\n"
                  "Start time : 00:00:00  end time : 00:00:00 type : -1 Operation : None\nWriteCalendar : Succeeded\n"
                  "WriteCalendar : Finish\nWrite : Succeeded\nWrite : Finish\n");
}
