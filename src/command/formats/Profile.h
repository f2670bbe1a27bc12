#pragma once

// A profile of any shape as one value.

#include <memory>
#include <variant>

#include "host/Formats.h"
#include "records/GeneralSyncData.h"

namespace orvale {

/// What a file or the user tells of a phone, or of a file's columns, in the order of ProfileShape. Never changed once
/// it is made.
using Profile = std::variant<CCSVProfile, CPhonebookProfile, CCalendarProfile, CSMSProfile, CEmailProfile>;
using SharedProfile = std::shared_ptr<const Profile>;

inline ProfileShape ShapeOf(const SharedProfile& profile) {
    return profile ? static_cast<ProfileShape>(profile->index() + 1) : ProfileShape::kNone;
}

/// The address of the profile object that a shape's file objects take and give.
inline const void* AddressOf(const SharedProfile& profile) {
    return profile ? std::visit([](const auto& each) -> const void* { return &each; }, *profile) : nullptr;
}

/// A copy of the profile that a file object has, for the shapes that suites carry; else none. Its dllname is as the
/// file has it.
SharedProfile CopyOfProfile(CFileInterface& file, ProfileShape shape);

}  // namespace orvale
