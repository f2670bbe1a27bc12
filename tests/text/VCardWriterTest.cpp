#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "support/Cases.h"
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
    for (const auto& each : Cases("vcard-write.cases")) {
        std::string text = Written(each[0]);
        ASSERT_TRUE(text.starts_with(head) && text.ends_with(tail)) << text;
        text = text.substr(head.size(), text.size() - head.size() - tail.size());
        for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;)
            text.erase(at, 1);
        EXPECT_EQ(text, (each[0].starts_with("5=F|") ? "N:;F\nFN:F\n" : "") + each[1]) << each[0];
    }
}

TEST_F(VCardWriter, NotAllReadsBackTheSame) {
    for (const auto& each : Cases("vcard-back.cases")) {
        Written(each[0]);
        const bool hasName = each[0].starts_with("5=F|") && each[1] != "none";
        EXPECT_EQ(ReadBack(), (hasName ? "1=F|5=F|" : "") + each[1]) << each[0];
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
