#include "xml/PhonebookLookup.h"

namespace orvale {

PhonebookLookup::PhonebookLookup(const CPhonebookProfile& profile) {
    for (const auto& device : profile.devices)
        if (device && devices_.find(device->id) == devices_.end()) devices_.emplace(device->id, *device);
}

const PhonebookLookup::Device* PhonebookLookup::FindDevice(std::int32_t id) const {
    const auto found = devices_.find(id);
    return found != devices_.end() ? &found->second : nullptr;
}

PhonebookLookup::Device::Device(const CPhonebookDevice& device)
    : device_(&device), types_(FirstIndexes(device.typeIds)), groups_(FirstIndexes(device.groupIds)) {}

PhonebookLookup::Device::Indexes PhonebookLookup::Device::FirstIndexes(const std::vector<std::uint32_t>& ids) {
    Indexes indexes;
    for (std::size_t i = 0; i < ids.size(); ++i)
        indexes.emplace(ids[i], i);
    return indexes;
}

std::int32_t PhonebookLookup::Device::GetCodeIndex(std::int32_t typeId) const {
    const auto found = types_.find(static_cast<std::uint32_t>(typeId));
    return found != types_.end() ? static_cast<std::int32_t>(found->second) : -1;
}

std::u16string PhonebookLookup::Device::GetGroupLabel(std::int32_t groupId) const {
    const auto found = groups_.find(static_cast<std::uint32_t>(groupId));
    return found != groups_.end() ? device_->groupLabels.at(found->second) : std::u16string();
}

}  // namespace orvale
