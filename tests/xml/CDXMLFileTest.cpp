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

    const orvale::StoppedClock clock(1280124015);
    EXPECT_EQ(JsonOf(sample), Data("calendar.json"));
    EXPECT_EQ(JsonOf(Data("calendar-odd.xml")), Data("calendar-odd.json"));
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

TEST_F(CDXMLFile, DatesAreLocalHereAndUtcThere) {
    const Zone zone("Asia/Tokyo");
    CCalendarItem item;
    item.dtstart = Date(2010, 7, 26, 6, 0, 15);
    const CCalendarProfile profile;
    const std::string text = Written(&profile, {&item});
    EXPECT_NE(text.find("<dtstart>20100725T210015Z</dtstart>"), std::string::npos);
    EXPECT_EQ(WrittenAgain(text), text);
}
