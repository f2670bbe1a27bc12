#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "support/FileDriver.h"
#include "support/SystemCalls.h"
#include "text/VCardFile.h"

using namespace orvale::test;

namespace {

using VCardDriver = FileDriver<CVCardFile, CContactItem>;

class VCardWriter : public testing::Test {
 protected:
    std::string Written(std::string_view values) const {
        VCardDriver file(path_, CFile::kCreateReadWrite);
        const CContactItem contact = ContactOf(values);
        EXPECT_EQ(file.Write(&contact), 1);
        return folder_.Get("file.vcf");
    }
    std::string ReadBack() const {
        VCardDriver file(path_);
        const CContactItem* const contact = file.Next();
        return contact != nullptr ? ValuesOf(*contact) : "none";
    }

    const orvale::StoppedClock clock_{1267780022};  // 5 March 2010, 09:07:02
    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.vcf");
};

}  // namespace

TEST_F(VCardWriter, ValuesToLines) {
    const std::string head = "BEGIN:VCARD\r\nVERSION:2.1\r\n";
    const std::string tail = "REV:20100305T090702Z\r\nEND:VCARD\r\n\r\n";
    const std::string_view cases[][2] = {
        {"", "N:;\nFN: \n"},
        {"5=John Smith", "N:;John Smith\nFN:John Smith\n"},
        {"1=John|2=Smith|3=Q|4010=Dr|4011=Jr|104=+1 555",
         "N:Smith;John;Q;Dr;Jr\nFN:John Smith\nTEL;CELL;VOICE:+1 555\n"},
        {"1=John", "N:;John\nFN:John \n"},
        {"2=Smith", "N:Smith\nFN: Smith\n"},
        {"4011=Jr;", "N:;;;;Jr\nFN: \n"},
        {"1=a|1=b|5=c|5=d", "N:;a\nFN:c\n"},  // the first of each
        // In all that follow the name is there, and stands before what is told.
        {"5=F|100=1|101=2|101=3|100=", "TEL;WORK;VOICE:1\nTEL;WORK;VOICE:2\nTEL;WORK;VOICE:3\n"},
        {"5=F|1002=c|1000=a|1003=d", "EMAIL;PREF;INTERNET:c\nEMAIL;INTERNET:a\n"},
        {"5=F|1001=|1002=c", "EMAIL;INTERNET:c\n"},  // an empty one was met first
        {"5=F|1501=u|1502=v|1500=w", "URL;WORK:u\nURL;WORK:v\nURL;WORK:w\n"},
        {"5=F|4=x|4002=x|4004=x|1499=x|1503=x|0=x|7=x", ""},  // no line for these
        {"5=F|-1=p;=|-2=x|-1048577=y", "LABEL;POSTAL:p;=\nN:x\nREV:y\n"},
        {"5=F|3002=a;b\r\n\xC3\xA4|4000=a;",
         "NOTE;ENCODING=QUOTED-PRINTABLE:a=3Bb=0D=0A\xC3\xA4\n"
         "ADR;GENERAL;ENCODING=QUOTED-PRINTABLE:a=3B\n"},
        {"5=F|4006=b=|4007=c|4003=d;=", "LABEL;WORK;ENCODING=QUOTED-PRINTABLE:b=3D\nLABEL;HOME:c\nBDAY:d;=\n"},
        {"5=F|2001=a|2001=b|2001=|2010=x", "ADR;WORK:a\nADR;WORK:;;b\n"},  // the last one moves into the street
        {"5=F|2001=|2010=x", ""},                                          // the whole one is there, though empty
        {"5=F|2016=Land|2010=Main St", "ADR;WORK:;;Main St;;;;Land\n"},
        {"5=F|4012=Flat 2", "ADR;WORK:;Flat 2\n"},
        {"5=F|2013=x|2015=", ""},  // an empty second region wins
        {"5=F|2005=x|2007=y|2002=S", "ADR;HOME:;;S;;y\n"},
        {"5=F|2037=R|2036=P|2034=T|3002=n|2002=S|2012=T", "NOTE:n\nADR;WORK:;;;T\nADR;HOME:;;S\nADR;POSTAL:;;;T;R;P\n"},
        {"5=F|2049=x|2000=y|2010=z", "ADR;POSTAL:;;x\nADR;HOME:;;y\nADR;WORK:;;z\n"},
        {"5=F|105=a\r\nb", "TEL;CELL:a\nb\n"},                           // raw, and so it breaks the line
        {std::string_view("5=F|105=1\0x|106=\0", 17), "TEL;CELL:1\n"}};  // a zero ends a value, not the card
    for (const auto& [values, lines] : cases) {
        std::string text = Written(values);
        ASSERT_TRUE(text.starts_with(head) && text.ends_with(tail)) << text;
        text = text.substr(head.size(), text.size() - head.size() - tail.size());
        for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;)
            text.erase(at, 1);
        EXPECT_EQ(text, (values.starts_with("5=F|") ? "N:;F\nFN:F\n" : "") + std::string(lines)) << values;
    }
}

TEST_F(VCardWriter, NotAllReadsBackTheSame) {
    const std::string longest(2042, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {"", "5="},
        {"5=John Smith", "1=John Smith|5=John Smith"},
        {"1=John|2=Smith", "2=Smith|1=John|5=John Smith"},
        {"1=John", "1=John|5=John"},
        // In all that follow the name comes twice, before what is told.
        {"5=F|100=1|101=2|101=3", "100=1|101=2|101=3"},
        {"5=F|1001=a|1002=b", "1000=a|1001=b"},
        {"5=F|1501=a|1502=b", "1500=a|1500=b"},
        {"5=F|2001=1 Main St", "2001=;;1 Main St|2010=1 Main St"},
        {"5=F|2001=;;1 Main St", "2001=;;;;1 Main St|2013=1 Main St|2015=1 Main St"},  // that one written again
        {"5=F|2002=a;b", "2000=;;a;b|2002=a|2004=b"},
        {"5=F|3002=a;b\r\nc==41|-1=a;b", "3002=a;b\r\nc==41|-1=a;b"},
        {"5=F|1500=x?a=41", "1500=x?aA"},
        {"5=F|105=1\r\nFN:G", "105=1|5=G"},
        {"5=F|3002=" + longest, "none"}};  // a line that no reader takes
    for (const auto& [values, back] : cases) {
        Written(values);
        EXPECT_EQ(ReadBack(), (values.starts_with("5=F|") && back != "none" ? "1=F|5=F|" : "") + back) << values;
    }
    for (const std::int32_t type :
         {102, 103, 104, 105, 106, 107,  108,  109,  110,  111,  112,  113,  114,  115,  116,
          117, 118, 119, 120, 121, 3002, 4000, 4003, 4005, 4006, 4007, 4008, 4009, 4032, 4035}) {
        const std::string value = "5=F|" + std::to_string(type) + "=x";
        Written(value);
        EXPECT_EQ(ReadBack(), "1=F|" + value);
    }
}

TEST_F(VCardWriter, CardsFollowOneAnotherEachInOneSystemCall) {
    const std::string values[] = {"5=A", "5=B|3002=" + std::string(100000, 'x')};
    {
        VCardDriver file(path_, CFile::kCreateReadWrite);
        for (const std::string& each : values) {
            const CContactItem contact = ContactOf(each);
            const WriteCalls calls;
            EXPECT_EQ(file.Write(&contact), 1);
            EXPECT_EQ(calls.Count(), 1U);
        }
    }
    const std::string both = folder_.Get("file.vcf");
    EXPECT_EQ(both, Written(values[0]) + Written(values[1]));
}

TEST_F(VCardWriter, FailsWithoutAFileARecordOrRoom) {
    const CContactItem contact = ContactOf("5=x");
    CVCardFile closed;
    EXPECT_EQ(static_cast<CFileInterface&>(closed).Write(&contact), 0);
    VCardDriver file(path_, CFile::kCreateReadWrite);
    EXPECT_EQ(file.Write(nullptr), 0);
    EXPECT_EQ(folder_.Get("file.vcf"), "");
    VCardDriver full(u"/dev/full", CFile::kModeWrite);
    EXPECT_EQ(full.Write(&contact), 0);
}
