#include "platform/CodePage.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

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
    struct Case {
        std::int32_t page;
        std::u16string_view wide;
        std::string_view narrow;
        std::size_t replaced;
    };
    const Case cases[] = {
        {1252, u"\u20AC\u00FC", "\x80\xFC", 0},
        {1252,
         u"\u4E2D"
         u"a\U0001F600z\xDC00",
         "?a?z?", 3},
        {1251, u"\u0416", "\xC6", 0},
        {1255, u"\u05D0", "\xE0", 0},
        {1258, u"\u1EA1", "a\xF2", 0},  // of two bytes, though nobody calls the page a double-byte one
        {932, u"\u6F22\uFF76\\~", "\x8A\xBF\xB6\\~", 0},
        {936, u"\u6C49", "\xBA\xBA", 0},
        {949, u"\uD55C", "\xC7\xD1", 0},
        {950, u"\u6F22", "\xBA\x7E", 0},
        {65001, u"\U0001F600", "\xF0\x9F\x98\x80", 0},
        {65001, u"\xD83D!", "?!", 1}};
    for (const Case& each : cases) {
        TextConverter converter(*FindCodePage(each.page));
        EXPECT_EQ(converter.ToNarrow(each.wide), each.narrow) << each.page;
        EXPECT_EQ(converter.Replaced(), each.replaced) << each.page;
        EXPECT_EQ(converter.ToWide(each.narrow) == each.wide, each.replaced == 0) << each.page;
    }
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
