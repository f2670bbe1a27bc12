#include "records/QuotedPrintable.h"

#include <gtest/gtest.h>

using namespace orvale;

namespace {

struct Case {
    std::int32_t page;
    std::u16string_view text;
    std::u16string_view result;
};

}  // namespace

TEST(QuotedPrintable, Encodes) {
    const Case cases[] = {
        {1252, u"a=b;c", u"a=3Db=3Bc"},
        {1252, u"one\r\ntwo\n \t", u"one=0D=0Atwo=0A \t"},
        {1252, u"\u00FC,:\u007F\u4E2D", u"\u00FC,:\u007F?"},
        {1252, std::u16string_view(u"a\0;", 3), u"a"},
        {932, u"\u6F22a\uFF76", u"=8A=BFa\uFF76"},  // the single-byte kana is no double-byte character
        {932, u"\u8868;", u"=95=5C=3B"},            // a second byte that is ASCII by itself
        {936, u"\u6C49\u5B57", u"=BA=BA=D7=D6"},
        {65001, u"\u6C49;", u"\u6C49=3B"}};
    for (const Case& each : cases) {
        TextConverter converter(*FindCodePage(each.page));
        EXPECT_EQ(EncodeQuotedPrintable(each.text, converter), each.result) << each.page;
    }
}

TEST(QuotedPrintable, Decodes) {
    const Case cases[] = {{1252, u"plain", u"plain"},
                          {1252, u"=41", u"A"},
                          {1252, u"=4", u"=4"},
                          {1252, u"A==42", u"AB"},
                          {1252, u"===", u"=="},
                          {1252, u"a=3d=3Bb", u"a=;b"},
                          {1252, u"=3D41", u"=41"},  // decoded once
                          {1252, u"=zz", u""},
                          {1252, u"=/1=:1=@1=G1=`1=g1.", u"\x01\x01\x01\x01\x01\x01."},  // what is no digit counts as 0
                          {1252, u"=FC=fC\u00FC", u"\u00FC\u00FC\u00FC"},
                          {1252, u"a=00x", u"a"},
                          {1252, u"a\u4E2D", u"a?"},  // through the code page, decoded or not
                          {932, u"=8A=BFa", u"\u6F22a"},
                          {65001, u"=E4=B8=AD=FF", u"\u4E2D\xFFFD"}};
    for (const Case& each : cases) {
        TextConverter converter(*FindCodePage(each.page));
        EXPECT_EQ(DecodeQuotedPrintable(each.text, converter), each.result) << each.page;
    }
    std::u16string all;
    for (char16_t unit = 1; unit < 0x100; ++unit)
        all.push_back(unit);
    TextConverter latin(*FindCodePage(28591));
    EXPECT_EQ(DecodeQuotedPrintable(EncodeQuotedPrintable(all, latin), latin), all);
}
