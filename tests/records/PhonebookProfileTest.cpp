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
    source.speedDialLabel = source.assignablePhoneTypes = source.unassignableIds = source.handset = u"x";
    CPhonebookProfile profile;
    profile.devices.resize(2);
    profile.CopyFrom(source);
    profile.CopyFrom(profile);
    source.Clear();
    EXPECT_EQ(source.config | source.speedDialFlag | source.speedDialMin | source.speedDialMax, 0);
    EXPECT_EQ(source.speedDialLabel + source.assignablePhoneTypes + source.unassignableIds + source.handset, u"x");
    EXPECT_TRUE(source.devices.empty());

    ASSERT_EQ(profile.devices.size(), 3U);
    EXPECT_EQ(profile.FindDevice(7), profile.devices[0].get()) << "the first of two";
    EXPECT_EQ(profile.FindDevice(0), nullptr);
    EXPECT_EQ(profile.DeviceHasGroups(7) * 10 + profile.DeviceHasGroups(8) + profile.DeviceHasGroups(9), 40);
    const std::pair<std::int32_t, std::vector<const char16_t*>> none[] = {
        {7, {u"C04", u"c01", u"C1", u"C001", u"C01 ", u"", u"C-1", u"D01"}},
        {8, {u"C101", u"C4294967296"}},
        {9, {u"C00"}}};
    for (const auto& [device, codes] : none)
        for (const char16_t* const code : codes)
            EXPECT_EQ(profile.GetTypeByCode(device, code), -1) << testing::PrintToString(code);
    EXPECT_EQ(profile.GetTypeByCode(7, u"C00") * 1000 + profile.GetTypeByCode(7, u"C01"), 100'104);
    EXPECT_EQ(profile.GetTypeByCode(8, u"C100"), 9);
    EXPECT_EQ(profile.GetCodeIndex(7, 100), 0) << "the first of two";
    EXPECT_EQ(profile.GetCodeIndex(7, -1), 3);
    EXPECT_EQ(profile.GetCodeIndex(7, 5) + profile.GetCodeIndex(9, 100), -2);
    EXPECT_EQ(profile.GetGroupLabel(7, 1) + profile.GetGroupLabel(7, 2), u"ab") << "the first of two";
    EXPECT_EQ(profile.GetGroupLabel(7, 4) + profile.GetGroupLabel(9, 1), u"");
    EXPECT_THROW(profile.GetGroupLabel(7, 3), std::out_of_range);
}
