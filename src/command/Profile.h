#pragma once

#include <memory>
#include <variant>

#include "records/GeneralSyncData.h"

namespace orvale {

/// The shapes of a profile, each taken by the formats of FormatTable that name it, and by those that take any.
enum class ProfileShape { kNone, kColumns, kPhonebook, kCalendar, kSms, kEmail, kAny };

/// What a file or the user tells of a phone, or of a file's columns. Never changed once it is made.
using Profile = std::variant<CCSVProfile, CPhonebookProfile, CCalendarProfile, CSMSProfile, CEmailProfile>;
using SharedProfile = std::shared_ptr<const Profile>;

inline ProfileShape ShapeOf(const SharedProfile& profile) {
    return profile ? static_cast<ProfileShape>(profile->index() + 1) : ProfileShape::kNone;
}

/// The address of the profile object that a shape's file objects take and give.
inline const void* AddressOf(const SharedProfile& profile) {
    return profile ? std::visit([](const auto& each) -> const void* { return &each; }, *profile) : nullptr;
}

}  // namespace orvale
