#include "records/PhonebookProfile.h"

#include <algorithm>
#include <optional>

#include "records/DriverName.h"

namespace {

// The index of the first entry that equals a number, taken as the unsigned one that the lists hold.
std::optional<std::size_t> IndexOf(const std::vector<std::uint32_t>& list, std::int32_t number) {
    const auto found = std::find(list.begin(), list.end(), static_cast<std::uint32_t>(number));
    if (found == list.end()) return std::nullopt;
    return static_cast<std::size_t>(found - list.begin());
}

// The index that a code is made of; none for a text that isn't spelled exactly as a code is, such as "C1" or "C007".
std::optional<std::size_t> IndexOfCode(std::u16string_view code) {
    constexpr std::size_t kMostDigits = 10;
    if (code.size() < 3 || code.size() > 1 + kMostDigits || code.front() != u'C') return std::nullopt;
    code.remove_prefix(1);
    if (code.size() > 2 && code.front() == u'0') return std::nullopt;
    std::size_t index = 0;
    for (const char16_t digit : code) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        index = index * 10 + static_cast<std::size_t>(digit - u'0');
    }
    return index;
}

}  // namespace

std::int32_t CPhonebookDevice::GetTypeByCode(std::u16string_view code) const {
    const std::optional<std::size_t> index = IndexOfCode(code);
    return index && *index < typeIds.size() ? static_cast<std::int32_t>(typeIds[*index]) : -1;
}

void CPhonebookProfile::Clear() {
    CopyCapabilities(CPhonebookProfile());
    devices.clear();
}

void CPhonebookProfile::CopyFrom(const CPhonebookProfile& other) {
    if (this == &other) return;
    Clear();
    handset = other.handset;
    dllname = orvale::DriverName(other.dllname);
    CopyCapabilities(other);
    for (const auto& device : other.devices)
        if (device) devices.push_back(std::make_unique<CPhonebookDevice>(*device));
}

void CPhonebookProfile::CopyCapabilities(const CPhonebookProfile& other) {
    config = other.config;
    speedDialLabel = other.speedDialLabel;
    speedDialFlag = other.speedDialFlag;
    speedDialMin = other.speedDialMin;
    speedDialMax = other.speedDialMax;
    assignablePhoneTypes = other.assignablePhoneTypes;
    unassignableIds = other.unassignableIds;
}

const CPhonebookDevice* CPhonebookProfile::FindDevice(std::int32_t deviceId) const {
    for (const auto& device : devices)
        if (device && device->id == deviceId) return device.get();
    return nullptr;
}

std::int32_t CPhonebookProfile::DeviceHasGroups(std::int32_t deviceId) const {
    const CPhonebookDevice* const device = FindDevice(deviceId);
    return device != nullptr ? device->config & PBDV_HAS_GROUP : 0;
}

std::int32_t CPhonebookProfile::GetTypeByCode(std::int32_t deviceId, std::u16string_view code) const {
    const CPhonebookDevice* const device = FindDevice(deviceId);
    return device != nullptr ? device->GetTypeByCode(code) : -1;
}

std::int32_t CPhonebookProfile::GetCodeIndex(std::int32_t deviceId, std::int32_t typeId) const {
    const CPhonebookDevice* const device = FindDevice(deviceId);
    if (device == nullptr) return -1;
    const std::optional<std::size_t> index = IndexOf(device->typeIds, typeId);
    return index ? static_cast<std::int32_t>(*index) : -1;
}

std::u16string CPhonebookProfile::GetGroupLabel(std::int32_t deviceId, std::int32_t groupId) const {
    const CPhonebookDevice* const device = FindDevice(deviceId);
    if (device == nullptr) return {};
    const std::optional<std::size_t> index = IndexOf(device->groupIds, groupId);
    return index ? device->groupLabels.at(*index) : std::u16string();
}
