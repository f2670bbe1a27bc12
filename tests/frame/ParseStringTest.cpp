#include "frame/ParseString.h"

#include <gtest/gtest.h>

#include <vector>

TEST(ParseString, CutsTokensUntilNothingRemains) {
    using Tokens = std::vector<std::u16string>;
    const std::tuple<std::u16string_view, std::u16string_view, Tokens> cases[] = {{u"a,,b", u",", {u"a", u"", u"b"}},
                                                                                  {u"a,", u",", {u"a"}},
                                                                                  {u",", u",", {u""}},
                                                                                  {u"a::b:c", u"::", {u"a", u"b:c"}},
                                                                                  {u":::", u"::", {u"", u":"}},
                                                                                  {u"aXbx", u"x", {u"aXb"}},
                                                                                  {u"", u",", {}}};
    for (const auto& [text, delimiter, expected] : cases) {
        CParseString rest;
        rest = text;
        Tokens tokens;
        while (!rest.IsEmpty())
            tokens.push_back(rest.GetNextToken(delimiter));
        EXPECT_EQ(tokens, expected);
        EXPECT_EQ(rest.GetNextToken(delimiter), u"");
    }
    CParseString rest;
    rest = std::string_view("\xC3\xA4,b");
    EXPECT_EQ(rest.GetNextToken(u""), u"\u00E4,b");  // which takes nothing away
    EXPECT_EQ(rest.GetNextToken(u","), u"\u00E4");
    rest = rest.Remaining();
    EXPECT_EQ(rest.GetNextToken(u","), u"b");
}
