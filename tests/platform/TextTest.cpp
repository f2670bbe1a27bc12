#include "platform/Text.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

using namespace orvale;

TEST(Text, TrimsUnicodesWhiteSpace) {
    const std::u16string_view cases[][2] = {
        {u" \t\r\n\v\f", u""}, {u"\u3000a b\u2003", u"a b"}, {u"\u200Bx\xFEFF", u"\u200Bx\xFEFF"}};
    for (const auto& [text, trimmed] : cases)
        EXPECT_EQ(Trim(text), trimmed);
}

TEST(Text, ComparesWithoutCaseBeyondAscii) {
    EXPECT_TRUE(EqualsNoCase(u"VersioN:2.1\u00C4\u0416", u"vERSION:2.1\u00E4\u0436"));
    EXPECT_FALSE(EqualsNoCase(u"@[`{", u"`{@["));  // beside the letters, 32 apart
    EXPECT_FALSE(EqualsNoCase(u"ab", u"abc"));
    EXPECT_TRUE(EndsWithNoCase(u"driver.DLL", u".dll"));
    EXPECT_FALSE(EndsWithNoCase(u"dll", u".dll"));
}

TEST(Text, ReplaceDoesNotLookAtWhatItPutIn) {
    EXPECT_EQ(Replace(u"a==b===", u"==", u"="), u"a=b==");
    EXPECT_EQ(Replace(u"aaa", u"a", u"aa"), u"aaaaaa");
}

TEST(Text, NumbersOfTexts) {
    for (const auto& each : test::Cases("numbers.cases"))
        EXPECT_EQ(std::to_string(ToNumber(FromUtf8(each[0]))), each[1]) << each[0];
}

TEST(Text, Utf8ThereAndBack) {
    const std::pair<std::u16string_view, std::string_view> cases[] = {
        {u"A\u007F\u0080\u07FF", "A\x7F\xC2\x80\xDF\xBF"},
        {u"\u0800\uFFFF", "\xE0\xA0\x80\xEF\xBF\xBF"},
        {u"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"}};
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(ToUtf8(text), bytes);
        EXPECT_EQ(FromUtf8(bytes), text);
        EXPECT_TRUE(IsWellFormed(text));
    }
}

TEST(Text, WhatIsNoCharacterIsReplaced) {
    const std::pair<std::string_view, std::u16string_view> cases[] = {
        {"\xC0\x80z", u"\xFFFD\xFFFDz"},          // longer than need be
        {"\xE0\x9F\xBF", u"\xFFFD\xFFFD\xFFFD"},  // likewise
        {"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},  // a surrogate half
        {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xE2\x82z\xF0\x9F\x98", u"\xFFFD\xFFFDz\xFFFD\xFFFD\xFFFD"}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(FromUtf8(bytes), text);
    for (const std::u16string_view text : {u"\xD800", u"\xDC00", u"\xD800\xD800\xDC00", u"\xD83Dx"}) {
        std::size_t replaced = 0;
        EXPECT_FALSE(IsWellFormed(text));
        EXPECT_NE(ToUtf8(text, &replaced).find("\xEF\xBF\xBD"), std::string::npos);
        EXPECT_EQ(replaced, 1U);
    }
}
