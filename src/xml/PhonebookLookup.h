#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "records/PhonebookProfile.h"

namespace orvale {

/// The look-ups of a phonebook profile for as many contacts as a file has: CPhonebookProfile's answers, without a walk
/// over its lists for each. Refers to the profile, so it is to be made anew where that changes.
class PhonebookLookup {
 public:
    PhonebookLookup() = default;
    explicit PhonebookLookup(const CPhonebookProfile& profile);

    /// One memory of the profile.
    class Device {
     public:
        explicit Device(const CPhonebookDevice& device);

        bool HasGroups() const { return (device_->config & PBDV_HAS_GROUP) != 0; }
        std::int32_t GetTypeByCode(std::u16string_view code) const { return device_->GetTypeByCode(code); }
        std::int32_t GetCodeIndex(std::int32_t typeId) const;
        std::u16string GetGroupLabel(std::int32_t groupId) const;

     private:
        using Indexes = std::unordered_map<std::uint32_t, std::size_t>;
        static Indexes FirstIndexes(const std::vector<std::uint32_t>& ids);

        const CPhonebookDevice* device_;
        Indexes types_;
        Indexes groups_;
    };

    /// The first memory of an id, or null.
    const Device* FindDevice(std::int32_t id) const;

 private:
    std::unordered_map<std::int32_t, Device> devices_;
};

}  // namespace orvale
