#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "records/ValueTables.h"

/// One memory of a phone for contacts. The four type lists are parallel: entry i of each describes one type of field,
/// whose code in the file is made of i. The two group lists are parallel too.
class CPhonebookDevice {
 public:
    /// The type id of a code, or -1. A code is "C" and the type's index with at least two digits: "C00", "C07", "C100".
    std::int32_t GetTypeByCode(std::u16string_view code) const;

    std::int32_t id = 0;  ///< what a contact's Storage holds
    std::u16string name;
    std::int32_t config = 0;  ///< PBDV_
    std::int32_t typespercontact = 0;
    std::int32_t typecount = 0;  ///< a number of its own, whatever the length of the lists
    std::int32_t namecount = 0;
    std::vector<std::u16string> typeLabels;
    std::vector<std::u16string> typeIcons;
    std::vector<std::uint32_t> typeIds;  ///< of ContactFieldTypes.h, or any other
    std::vector<std::uint32_t> typeLengths;
    std::u16string groupSetName;
    std::int32_t groupSetFlag = 0;
    std::vector<std::uint32_t> groupIds;
    std::vector<std::u16string> groupLabels;
    std::u16string memoryLocationLabel;
    std::int32_t memoryLocationFlag = 0;  ///< PBML_
    std::int32_t memoryLocationMin = 0;
    std::int32_t memoryLocationMax = 0;
    std::u16string memoryLocationUnassignable;
};

/// What a phone can do with contacts: its operations, its speed dial, its memories and which fields each holds.
class CPhonebookProfile {
 public:
    /// Sets everything but handset and dllname to its value in a new profile.
    void Clear();

    /// Makes this a deep copy of another profile: dllname gets its ".dll" (see DriverName), a null device is left out.
    void CopyFrom(const CPhonebookProfile& other);

    // The look-ups take the first device of an id. None of them fails; all but GetGroupLabel, which throws
    // std::out_of_range where the group lists differ in length, take lists of any length.

    /// The device of an id, or null.
    const CPhonebookDevice* FindDevice(std::int32_t deviceId) const;

    /// PBDV_HAS_GROUP if the device has that flag, else 0.
    std::int32_t DeviceHasGroups(std::int32_t deviceId) const;

    /// The type id of a code in a device, or -1.
    std::int32_t GetTypeByCode(std::int32_t deviceId, std::u16string_view code) const;

    /// The first index of a type id, or -1.
    std::int32_t GetCodeIndex(std::int32_t deviceId, std::int32_t typeId) const;

    /// The label of the first group of an id, or the empty text.
    std::u16string GetGroupLabel(std::int32_t deviceId, std::int32_t groupId) const;

    std::int32_t config = 0;  ///< PBMD_
    std::u16string speedDialLabel;
    std::int32_t speedDialFlag = 0;  ///< PBSD_
    std::int32_t speedDialMin = 0;
    std::int32_t speedDialMax = 0;
    std::u16string assignablePhoneTypes;
    std::u16string unassignableIds;
    std::vector<std::unique_ptr<CPhonebookDevice>> devices;  ///< entries may be null
    std::u16string handset;
    std::u16string dllname;  ///< name of the phone's driver module

 private:
    void CopyCapabilities(const CPhonebookProfile& other);
};
