#include "platform/Format.h"

#include <gtest/gtest.h>

using orvale::Format;

TEST(Format, FollowsPrintf) {
    const void* const address = reinterpret_cast<const void*>(0xFFFF'8000'0000'0ABCULL);
    const std::u16string text = u"word";
    const std::pair<std::u16string, std::u16string_view> cases[] = {
        {Format(u"no directive"), u"no directive"},
        {Format(u"100%%"), u"100%"},
        {Format(u"%d|%5d|%-5d|%05d", -12, -12, -12, -12), u"-12|  -12|-12  |-0012"},
        {Format(u"%.3d|%05.3d|%.0d|%-05d|", 7, 7, 0, 7), u"007|  007||7    |"},
        {Format(u"%4d%0.2d%0.2d", 2010, 7, 26), u"20100726"},
        {Format(u"%04d%02d%02dT", 210, 1, 2), u"02100102T"},
        {Format(u"%d %d", INT32_MIN, INT32_MAX), u"-2147483648 2147483647"},
        {Format(u"%d %d", 0xFFFFFFFFU, 0x80000000U), u"-1 -2147483648"},  // 32 bits, whatever the argument's sign
        {Format(u"%u %u", -1, 4000000000U), u"4294967295 4000000000"},
        {Format(u"%x %X %08X %X", 255, 255, 0xABC, -1), u"ff FF 00000ABC FFFFFFFF"},
        {Format(u"%08X", address), u"FFFF800000000ABC"},
        {Format(u"0x%08X", static_cast<const void*>(nullptr)), u"0x00000000"},
        {Format(u"[%s][%6s][%-6s][%.2s]", text, text, text, text), u"[word][  word][word  ][wo]"},
        {Format(u"%s %d", u"\x4E2D"), u"\x4E2D 0"},  // an argument is missing
        {Format(u"%s%d", 5, text), u"0"},            // each of the wrong kind
        {Format(u"%s", u"%d"), u"%d"},               // an argument's own signs mean nothing
    };
    for (const auto& [got, wanted] : cases)
        EXPECT_EQ(got, wanted);
}
