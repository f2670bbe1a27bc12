#include "records/EmailItem.h"

#include <gtest/gtest.h>

// What the native file stores is copied and reset in the tests of that file.

TEST(EmailItem, CopyAndResetLeaveTheVersion) {
    CEmailItem email;
    email.reserved1 = email.operation = email.index = email.reserved2 = 5;
    email.sent = DateValue(2.0, DateValue::kNull);
    email.rawData = new std::uint8_t[3]{1, 2, 3};
    email.rawSize = 3;
    email.version = 7;
    CEmailItem copy = email;
    copy = email;  // over a block of its own
    email.Reset();
    EXPECT_EQ(copy.version * 10 + email.version, 1007);
    EXPECT_EQ(copy.reserved1 + copy.operation + copy.index + copy.reserved2, 20);
    EXPECT_EQ(copy.sent.GetStatus(), DateValue::kNull);
    ASSERT_EQ(copy.rawSize, 3);
    EXPECT_EQ(copy.rawData[2], 3);
    EXPECT_EQ(email.reserved1 * 10 + email.index, -11);
    EXPECT_EQ(email.operation | email.reserved2 | email.rawSize, 0);
    EXPECT_TRUE(email.sent.IsNone() && email.rawData == nullptr);
    std::uint8_t byte = 0;
    email.rawData = &byte;  // without a size it is the host's
    email.Reset();
    EXPECT_EQ(email.rawData, &byte);
    EXPECT_EQ(CEmailItem(email).rawData, nullptr);
}

// What of a profile is copied shows in the tests of the suite that carries it.
TEST(EmailProfile, CopiesItselfAndResets) {
    CEmailProfile profile;
    profile.handset = u"h";
    profile.dllname = u"A.Dll";
    profile.config = profile.capacity = 1;
    profile.devices.push_back(std::make_unique<CEmailDevice>());
    profile.accounts.push_back(std::make_unique<CEmailAccount>());
    CEmailProfile copy;
    copy.devices.resize(2);
    copy.accounts.resize(2);
    copy.CopyFrom(profile);
    copy.CopyFrom(copy);
    EXPECT_EQ(copy.devices.size() + copy.accounts.size(), 2U);
    EXPECT_EQ(copy.dllname, u"A.Dll");
    copy.Reset();
    EXPECT_EQ(copy.handset + copy.dllname, u"");
    EXPECT_EQ(copy.config | copy.capacity, 0);
    EXPECT_TRUE(copy.devices.empty() && copy.accounts.empty());
}
