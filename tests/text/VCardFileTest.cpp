#include "text/VCardFile.h"

#include <gtest/gtest.h>

#include "support/Cases.h"
#include "support/FileDriver.h"
#include "support/Memory.h"

using namespace orvale::test;

namespace {

using VCardDriver = FileDriver<CVCardFile, CContactItem>;
using Cards = std::vector<std::string>;

// The cases' lines end in LF for reading; the files' end in CR LF.
std::string WithLineEnds(std::string_view text) {
    std::string lines;
    for (const char byte : text)
        lines += byte == '\n' ? "\r\n" : std::string(1, byte);
    return lines;
}

std::string Card(std::string_view lines) {
    return WithLineEnds("BEGIN:VCARD\nVERSION:2.1\n" + std::string(lines) + "END:VCARD\n");
}

class VCardReader : public testing::Test {
 protected:
    /// The values of the cards that come, up to the first 0.
    Cards ReadAll(std::string_view bytes) const {
        folder_.Put("file.vcf", bytes);
        VCardDriver file(path_);
        Cards cards;
        while (const CContactItem* contact = file.Next())
            cards.push_back(ValuesOf(*contact));
        return cards;
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.vcf");
};

}  // namespace

TEST_F(VCardReader, LinesToValues) {
    for (const auto& each : Cases("vcard-read.cases"))
        EXPECT_EQ(ReadAll(Card(each[0])), Cards{each[1]}) << each[0];
}

TEST_F(VCardReader, EveryKey) {
    for (const auto& each : Cases("vcard-keys.cases")) {
        const std::string& key = each[0];
        const std::string id = "|" + each[1] + "=";
        const std::string values =
            "|" + ReadAll(Card("FN:A\n" + key + ":x\n" + key + ";ENCODING=QUOTED-PRINTABLE:y\n")).at(0) + "|";
        if (each[2] == "plain")  // "=QU" decodes to a zero, which ends the text
            EXPECT_TRUE(values.starts_with("|5=A" + id + "x" + key + ";ENCODING|")) << values;
        else
            EXPECT_TRUE(values.find(id + "x|") != values.npos && values.find(id + "y|") != values.npos) << values;
    }
}

TEST_F(VCardReader, CardsInAFile) {
    const std::string a = Card("FN:A\n");
    const std::string version3 = WithLineEnds("BEGIN:VCARD\nVERSION:3.0\nFN:B\nEND:VCARD\n");
    const std::pair<std::string, std::size_t> cases[] = {
        {"", 0},
        {WithLineEnds("x\n\n") + a + WithLineEnds("\nEND:VCARD\nx\n") + a + "x", 2},
        {WithLineEnds(" begin:vcard\t\nversion:2.1 \nFN:A\n  end:vCard"), 1},
        {version3, 0},
        {version3 + a, 1},
        {WithLineEnds("BEGIN:VCARD\nFN:B\nVERSION:2.1\nFN:A\nEND:VCARD\n"), 1},
        {"BEGIN:VCARD\nVERSION:2.1\nFN:A\nEND:VCARD\n", 0},  // LF alone ends no line
        {std::string("\xFF\xFE"
                     "B\0E\0G\0I\0N\0",
                     12),
         0}};
    for (const auto& [bytes, cards] : cases)
        EXPECT_EQ(ReadAll(bytes), Cards(cards, "5=A")) << bytes;
    const std::string two = Card("N:;A\nNOTE:a\n b\nX:\xC3\xA4=C3\n") + "\r\n" + a;
    for (std::size_t length = 0; length <= two.size(); ++length) {  // only whole cards come
        const std::size_t cards =
            (length + a.size() >= two.size() - 4 ? 1U : 0U) + (length >= two.size() - 2 ? 1U : 0U);
        ASSERT_EQ(ReadAll(std::string_view(two).substr(0, length)).size(), cards) << length;
    }
}

TEST_F(VCardReader, LinesUpToTheLimit) {
    const std::string longest(2048 - 7, 'x');  // beside "NOTE:" and the line end
    EXPECT_EQ(ReadAll(Card("FN:A\nNOTE:" + longest + "\n")), Cards{"5=A|3002=" + longest});
    EXPECT_EQ(ReadAll(Card("FN:A\nNOTE:" + longest + "x\n") + Card("FN:B\n")), Cards());
    {
        VCardDriver file(path_);  // the line breaks off; another reading goes on inside it and finds the next card
        EXPECT_EQ(file.Next(), nullptr);
        const CContactItem* const next = file.Next();
        EXPECT_EQ(next != nullptr ? ValuesOf(*next) : "none", "5=B");
    }
    const std::string raw = "a\r\n\r\nb\rc\nd\r\r\n" + std::string(2048, 'x');  // the last may lack its line end
    folder_.Put("file.vcf", raw);
    VCardDriver file(path_);
    std::u16string line;
    std::u16string lines;
    int count = 0;
    for (; file->ReadString(&line) == 1; ++count)
        lines += line;
    EXPECT_EQ(count, 4);
    EXPECT_EQ(orvale::ToUtf8(lines), raw);
    EXPECT_EQ(line.size(), 2048U) << "left as it was";
}

TEST_F(VCardReader, ReadingTakesNoMoreMemoryForMoreCards) {
    const std::string card = Card("FN:A name that is long enough for the heap\nNOTE:x\nADR;HOME:;;x;y;z\n");
    folder_.Put("file.vcf", Repeated(card, 100));
    const std::size_t few = PeakOfReading<VCardDriver>(path_, 100);
    folder_.Put("file.vcf", Repeated(card, 10000));
    EXPECT_LT(PeakOfReading<VCardDriver>(path_, 10000), few + 16 * 1024);
}
