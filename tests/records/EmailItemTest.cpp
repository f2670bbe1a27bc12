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

TEST(EmailProfile, CopiesDeeplyWithoutNulls) {
    CEmailProfile source;
    source.version = 7;
    source.handset = u"h";
    source.dllname = u"A.Dll";
    source.config = 1;
    source.capacity = 2;
    source.devices.push_back(nullptr);
    source.devices.push_back(std::make_unique<CEmailDevice>());
    source.devices[1]->id = 3;
    source.accounts.push_back(nullptr);
    source.accounts.push_back(std::make_unique<CEmailAccount>());
    CEmailAccount& account = *source.accounts[1];
    account.id = 6;
    account.config = 7;
    account.capacity = 8;
    account.name = account.password = account.Address = u"x";
    account.boxes.push_back(nullptr);
    account.boxes.push_back(std::make_unique<CEmailBox>());
    account.boxes[1]->subfolders = {u"<id>100</id>"};

    CEmailProfile copy;
    copy.devices.resize(2);
    copy.CopyFrom(source);
    source.Reset();
    copy.CopyFrom(copy);
    EXPECT_EQ(copy.handset + copy.dllname + source.handset + source.dllname, u"hA.Dll");
    EXPECT_EQ(copy.config * 100 + copy.capacity * 10 + source.config + source.capacity, 120);
    ASSERT_EQ(copy.devices.size() * 10 + copy.accounts.size(), 11U);
    EXPECT_EQ(copy.devices[0]->id, 3);
    const CEmailAccount& copied = *copy.accounts[0];
    EXPECT_EQ(copied.id * 100 + copied.config * 10 + copied.capacity, 678);
    EXPECT_EQ(copied.name + copied.password + copied.Address, u"xxx");
    ASSERT_EQ(copied.boxes.size(), 1U);
    EXPECT_EQ(copied.boxes[0]->subfolders, std::vector<std::u16string>{u"<id>100</id>"});
    EXPECT_TRUE(source.devices.empty() && source.accounts.empty());
}
