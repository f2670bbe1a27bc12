#include "platform/CodePage.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "platform/Text.h"
#include "support/Cases.h"

using namespace orvale;

namespace {

std::vector<const CodePage*> AllPages() {
    std::vector<const CodePage*> pages;
    for (std::int32_t number = 0; number <= 65535; ++number)
        if (const CodePage* page = FindCodePage(number)) pages.push_back(page);
    return pages;
}

// The bytes from 0x80 on that are characters of the page by themselves, and those.
std::map<char, std::u16string> HighCharacters(const CodePage& page) {
    std::map<char, std::u16string> characters;
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        TextConverter converter(page);
        const std::u16string wide = converter.ToWide(std::string(1, static_cast<char>(byte)));
        if (converter.Replaced() == 0) characters.emplace(static_cast<char>(byte), wide);
    }
    return characters;
}

}  // namespace

TEST(CodePage, EveryPageHoldsAsciiAtItsOwnPlaces) {
    std::string ascii;
    for (char byte = 1; byte > 0; ++byte)
        ascii.push_back(byte);
    const std::u16string wide(ascii.begin(), ascii.end());
    EXPECT_EQ(AllPages().size(), 36U);
    for (const CodePage* page : AllPages()) {
        TextConverter converter(*page);
        EXPECT_EQ(converter.ToNarrow(wide), ascii) << page->number;
        EXPECT_EQ(converter.ToWide(ascii), wide) << page->number;
        // Behind a unit beyond ASCII the text goes the long way, through the system's conversion.
        EXPECT_TRUE(converter.ToNarrow(u"\xD800" + wide).ends_with(ascii)) << page->number;
        EXPECT_TRUE(converter.ToWide("\xFF" + ascii).ends_with(wide)) << page->number;
    }
}

TEST(CodePage, CharactersComeBackAndWhatIsNoneKeepsItsPlace) {
    for (const CodePage* page : AllPages()) {
        TextConverter converter(*page);
        const auto characters = HighCharacters(*page);
        for (const auto& [byte, wide] : characters)
            EXPECT_EQ(converter.ToNarrow(wide), std::string(1, byte)) << page->number;
        EXPECT_EQ(converter.Replaced(), 0U) << page->number;
        for (int byte = 0x80; byte <= 0xFF; ++byte) {
            const std::string bad{static_cast<char>(byte), 'a'};
            if (converter.ToWide(bad) !=
                u"\xFFFD"
                u"a")
                continue;
            for (const auto& [good, wide] : characters)  // some pages hold one back until they know what follows
                EXPECT_EQ(converter.ToWide(good + bad), wide +
                                                            u"\xFFFD"
                                                            u"a")
                    << page->number;
        }
    }
}

TEST(CodePage, TextsOfTheirScripts) {
    for (const auto& each : test::Cases("code-pages.cases")) {
        TextConverter converter(*FindCodePage(std::stoi(each[0])));
        const std::u16string wide = FromUtf8(each[1]);
        EXPECT_EQ(converter.ToNarrow(wide), each[2]) << each[0];
        EXPECT_EQ(std::to_string(converter.Replaced()), each[3]) << each[0];
        EXPECT_EQ(converter.ToWide(each[2]) == wide, each[3] == "0") << each[0];
    }
    TextConverter halves(*FindCodePage(1252));
    EXPECT_EQ(halves.ToNarrow(u"a\xDC00z\xD83D!"), "a?z?!");
    EXPECT_EQ(halves.Replaced(), 2U);
    TextConverter utf8(*FindCodePage(65001));
    EXPECT_EQ(utf8.ToNarrow(u"\xD83D!"), "?!");
    EXPECT_EQ(utf8.Replaced(), 1U);
    EXPECT_EQ(ToWide(std::string_view("a\xC3\xA4\0b", 5)), u"a\u00E4");  // up to the zero
    EXPECT_EQ(ToNarrow(std::u16string_view(u"a\u00E4\0b", 4)), "a\xC3\xA4");
}

TEST(CodePage, LongTextsAndCharactersCutOff) {
    std::u16string text;
    for (int i = 0; i < 3000; ++i)
        text += i % 7 == 0 ? u"a" : u"\u6F22";
    for (const std::int32_t number : {932, 936, 950, 51932, 54936, 65001}) {
        TextConverter converter(*FindCodePage(number));
        const std::string narrow = converter.ToNarrow(text);
        const std::u16string bad(number == 65001 ? 2 : 1, u'\xFFFD');
        EXPECT_EQ(converter.ToWide(narrow), text) << number;
        EXPECT_EQ(converter.ToWide(narrow.substr(0, narrow.size() - 1)), text.substr(0, 2999) + bad) << number;
        EXPECT_EQ(converter.ToWide(narrow), text) << number;
    }
}

TEST(CodePage, LeadBytes) {
    for (const CodePage* page : AllPages()) {
        const bool isDouble = page->number == 936 || page->number == 949 || page->number == 950;
        for (int byte = 0; byte <= 0xFF; ++byte) {
            const bool lead = page->number == 932 ? (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC)
                                                  : isDouble && byte >= 0x81 && byte <= 0xFE;
            EXPECT_EQ(page->IsLeadByte(static_cast<unsigned char>(byte)), lead) << page->number << ' ' << byte;
        }
    }
}
