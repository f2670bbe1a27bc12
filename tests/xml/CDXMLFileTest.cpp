#include "platform/Clock.h"
#include "support/Zone.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using CDXMLFile = SuiteTest<CCDXMLFile>;

DateValue Date(int year, int month, int day, int hour, int minute, int second) {
    return DateValue::FromFields({year, month, day, hour, minute, second});
}

}  // namespace

TEST_F(CDXMLFile, EveryMemberHasItsElement) {
    const std::string sample = Sample();
    const std::size_t start = sample.find("\n\t\t\t<!--CATE_");  // which the record read for the last item has
    const std::string category = sample.substr(start, sample.find("\n\t\t\t<dtstart") - start);
    std::string expected = Replaced(sample, "\n\t\t\n\t\t<todo>", "\n\t\t<todo>");  // a config without an element
    expected.insert(expected.rfind("\n\t\t\t<dtstart"), Replaced(category, ">13<", ">0<"));
    EXPECT_EQ(WrittenAgain(sample), expected);

    Driver file = Reading(sample);
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CCalendarProfile& p = *file.GetProfile();
    EXPECT_EQ(p.handset + p.dllname, u"Handsetdriver.DLL");
    ASSERT_EQ(p.configSet.configs.size(), 2U);
    EXPECT_EQ((Numbers{p.configSet.configs[0]->type, p.configSet.configs[0]->config, p.configSet.configs[1]->type,
                       p.configSet.configs[1]->config}),
              (Numbers{0, 8388609, 1, -1}));
    const CCalendarItem* const i = file.Next();
    ASSERT_NE(i, nullptr);
    EXPECT_EQ((Numbers{i->itemType,        i->category,    i->recurtype,     i->recurday,      i->recurweekday,
                       i->recurweekmask,   i->recurmonth,  i->recurinstance, i->recurinterval, i->recurrepeat,
                       i->recurhasenddate, i->remindermin, i->ringid,        i->vibration,     i->secret,
                       i->priority,        i->complete,    i->duration,      i->reserve1,      i->reserve2,
                       i->operation}),
              (Numbers{1, 13, 4, 26, -1, 62, 7, 5, 2, 10, 6, 15, 3, 8, 9, 12, 11, 90, INT32_MIN, INT32_MAX, 0}));
    EXPECT_EQ(i->dtstart.Value(), Date(2010, 7, 26, 6, 0, 15).Value());
    EXPECT_EQ(i->dtend.Value(), Date(2010, 7, 26, 7, 30, 0).Value());
    EXPECT_EQ(i->recurenddate.Value(), Date(9999, 12, 31, 23, 59, 59).Value());
    std::u16string texts = i->ring;
    Numbers types;
    for (const auto& field : i->fields) {
        types.push_back(field->Type);
        texts += u"|" + field->Data;
    }
    EXPECT_EQ(types, (Numbers{3000, 3012, 3000, 3002, 3003, 3004}));
    EXPECT_EQ(texts, u"Ring \"1\"|\u00DCbung & <more>|+49 170||two\r\nlines|here|http://x/?a=1&b=2");
}

TEST_F(CDXMLFile, WritesWhatNoReaderGives) {
    CCalendarProfile profile;
    profile.configSet.configs.push_back(nullptr);
    CCalendarConfig config;
    config.type = 5;
    profile.configSet.AddConfig(config);
    CCalendarItem item;
    item.version = 100;  // of a layout without a category
    for (const std::int32_t type : {3001, 3004}) {
        item.fields.push_back(nullptr);
        item.fields.push_back(std::make_unique<CCalendarField>());
        item.fields.back()->Type = type;
        item.fields.back()->Data = u"x\x01\U0001F600";
    }
    const std::string text = Written(&profile, {&item});
    EXPECT_NE(text.find("<dllname>.dll</dllname>\n\t\t\n\t</profile>"), std::string::npos) << "white space alone";
    EXPECT_NE(
        text.find("<type>4294967295</type>\n\t\t\t<dtstart/>\n\t\t\t<dtend/>\n\t\t\t<url>x</url>\n\t\t\t<!--RECURS"),
        std::string::npos);
}

TEST_F(CDXMLFile, ElementNamesCountInAnyCaseButForThree) {
    Driver file = Reading(
        Document("<HandSet>h</HandSet><DLLNAME>d</DLLNAME><Event><config>5</config></Event><TODO><Config>6"
                 "</Config></TODO><event/><todo><config>x</config><config>9</config></todo>",
                 "<DATA><DtStart>20100726T060015Z</DtStart><BODY>b</BODY><Ring> r </Ring><Secret>1</Secret></DATA>"));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CCalendarProfile& profile = *file.GetProfile();
    EXPECT_EQ(profile.handset + profile.dllname, u"hd");
    ASSERT_EQ(profile.configSet.configs.size(), 2U) << "config is looked up by its exact name";
    EXPECT_EQ(profile.configSet.configs[0]->config, 5);
    EXPECT_EQ(profile.configSet.configs[1]->config, 0);
    const CCalendarItem* const item = file.Next();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ((Numbers{item->dtstart.Second(), item->secret}), (Numbers{15, 1}));
    EXPECT_EQ(item->fields.at(0)->Data + item->ring, u"b r ");
}

TEST_F(CDXMLFile, ReadsWhatAPersonMayHaveWritten) {
    const orvale::StoppedClock clock(1280124015);
    const double now = Date(2010, 7, 26, 6, 0, 15).Value();
    struct Case {
        const char* name;
        const char* data;
        Numbers numbers;  // itemType, priority, recurinterval, reserve1, reserve2, operation, number of fields
        double dtstart;
    };
    const Case cases[] = {
        {"nothing", "", {-1, 1, 1, 0, 0, 0, 0}, 0},
        {"numbers",
         "<type>4294967295</type><priority/><reserve1>-2147483648x</reserve1><reserve2>\n +7</reserve2>",
         {-1, 0, 1, INT32_MIN, 7, 0, 0},
         0},
        {"a date is trimmed", "<dtstart>\n\t20100726T060015Z </dtstart><dtend/>", {-1, 1, 1, 0, 0, 0, 0}, now},
        {"a short date", "<dtstart>20100726</dtstart><dtend>20100726T060015Z</dtend>", {-1, 1, 1, 0, 0, 4, 0}, now},
        {"no date", "<recurenddate>20101326T060015Z</recurenddate>", {-1, 1, 1, 0, 0, 4, 0}, 0},
        {"twice", "<url>1</url><url>2</url><priority>1</priority><priority>2</priority>", {-1, 2, 1, 0, 0, 0, 2}, 0},
    };
    std::string items;
    for (const Case& each : cases)
        items += "<data>" + std::string(each.data) + "</data>";
    Driver file = Reading(Document("", items));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    for (const Case& each : cases) {
        const CCalendarItem* const i = file.Next();
        ASSERT_NE(i, nullptr) << each.name;
        EXPECT_EQ((Numbers{i->itemType, i->priority, i->recurinterval, i->reserve1, i->reserve2, i->operation,
                           static_cast<std::int32_t>(i->fields.size())}),
                  each.numbers)
            << each.name;
        EXPECT_EQ(i->dtstart.Value(), each.dtstart) << each.name;
    }
}

TEST_F(CDXMLFile, DatesAreLocalHereAndUtcThere) {
    const Zone zone("Asia/Tokyo");
    CCalendarItem item;
    item.dtstart = Date(2010, 7, 26, 6, 0, 15);
    const CCalendarProfile profile;
    const std::string text = Written(&profile, {&item});
    EXPECT_NE(text.find("<dtstart>20100725T210015Z</dtstart>"), std::string::npos);
    EXPECT_EQ(WrittenAgain(text), text);
}
