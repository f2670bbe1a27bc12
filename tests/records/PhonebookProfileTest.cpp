#include "records/PhonebookProfile.h"

#include <gtest/gtest.h>

TEST(PhonebookProfile, LooksUpAndCopies) {
    CPhonebookProfile source;
    for (const std::int32_t id : {7, 7, 8}) {
        source.devices.push_back(nullptr);
        source.devices.push_back(std::make_unique<CPhonebookDevice>());
        source.devices.back()->id = id;
    }
    CPhonebookDevice& first = *source.devices[1];
    first.typeIds = {100, 104, 100, 0xFFFFFFFF};
    first.config = PBDV_HAS_GROUP | PBDV_HAS_PORTRAIT;
    first.groupIds = {1, 2, 1, 3};
    first.groupLabels = {u"a", u"b", u"c"};
    source.devices[5]->typeIds.assign(101, 9);
    source.config = source.speedDialFlag = source.speedDialMin = source.speedDialMax = 5;
    source.speedDialLabel = source.assignablePhoneTypes = source.unassignableIds = u"x";
    source.handset = u"h";
    source.dllname = u"phone";
    CPhonebookProfile profile;
    profile.devices.resize(2);
    profile.CopyFrom(source);
    source.Clear();
    profile.CopyFrom(profile);
    for (const auto number : {&CPhonebookProfile::config, &CPhonebookProfile::speedDialFlag,
                              &CPhonebookProfile::speedDialMin, &CPhonebookProfile::speedDialMax})
        EXPECT_EQ(profile.*number * 10 + source.*number, 50);
    EXPECT_EQ(profile.speedDialLabel + profile.assignablePhoneTypes + profile.unassignableIds, u"xxx");
    EXPECT_EQ(source.speedDialLabel + source.assignablePhoneTypes + source.unassignableIds, u"");
    EXPECT_EQ(profile.handset + profile.dllname + source.handset + source.dllname, u"hphone.dllhphone");
    EXPECT_TRUE(source.devices.empty());

    ASSERT_EQ(profile.devices.size(), 3U);
    EXPECT_EQ(profile.FindDevice(7), profile.devices[0].get()) << "the first of two";
    EXPECT_EQ(profile.FindDevice(0), nullptr);
    EXPECT_EQ(profile.DeviceHasGroups(7) * 10 + profile.DeviceHasGroups(8) + profile.DeviceHasGroups(9), 40);
    struct Code {
        std::int32_t device;
        std::u16string code;
        std::int32_t type;
    };
    for (const Code& each : {Code{7, u"C00", 100},
                             {7, u"C01", 104},
                             {7, u"C04", -1},
                             {7, u"c01", -1},
                             {7, u"C1", -1},
                             {7, u"C001", -1},
                             {7, u"C01 ", -1},
                             {7, u"", -1},
                             {7, u"C-1", -1},
                             {7, u"D01", -1},
                             {8, u"C100", 9},
                             {8, u"C101", -1},
                             {8, u"C4294967296", -1},
                             {9, u"C00", -1}})
        EXPECT_EQ(profile.GetTypeByCode(each.device, each.code), each.type) << testing::PrintToString(each.code);
    EXPECT_EQ(profile.GetCodeIndex(7, 100), 0) << "the first of two";
    EXPECT_EQ(profile.GetCodeIndex(7, -1), 3);
    EXPECT_EQ(profile.GetCodeIndex(7, 5) + profile.GetCodeIndex(9, 100), -2);
    EXPECT_EQ(profile.GetGroupLabel(7, 1) + profile.GetGroupLabel(7, 2), u"ab") << "the first of two";
    EXPECT_EQ(profile.GetGroupLabel(7, 4) + profile.GetGroupLabel(9, 1), u"");
    EXPECT_THROW(profile.GetGroupLabel(7, 3), std::out_of_range);
}
