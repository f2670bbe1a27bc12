#include "records/QuotedPrintable.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

using namespace orvale;

TEST(QuotedPrintable, EncodesAndDecodes) {
    for (const auto& each : test::Cases("quoted-printable.cases")) {
        TextConverter converter(*FindCodePage(std::stoi(each[1])));
        const auto work = each[0] == "encode" ? &EncodeQuotedPrintable : &DecodeQuotedPrintable;
        EXPECT_EQ(ToUtf8(work(FromUtf8(each[2]), converter)), each[3]) << each[0] << ' ' << each[1] << ' ' << each[2];
    }
    std::u16string all;
    for (char16_t unit = 1; unit < 0x100; ++unit)
        all.push_back(unit);
    TextConverter latin(*FindCodePage(28591));
    EXPECT_EQ(DecodeQuotedPrintable(EncodeQuotedPrintable(all, latin), latin), all);
}
