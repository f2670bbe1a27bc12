#include "command/formats/Profile.h"

namespace orvale {
namespace {

// A deep copy by the profile's own means, but for the ending that these give to dllname.
template <class Object>
SharedProfile CopyAs(const void* profile) {
    const auto& source = *static_cast<const Object*>(profile);
    Object copy;
    copy.CopyFrom(source);
    copy.dllname = source.dllname;
    return std::make_shared<const Profile>(std::move(copy));
}

}  // namespace

SharedProfile CopyOfProfile(CFileInterface& file, ProfileShape shape) {
    const void* profile = nullptr;
    file.GetProfile(&profile);
    if (profile == nullptr) return nullptr;
    switch (shape) {
        case ProfileShape::kPhonebook:
            return CopyAs<CPhonebookProfile>(profile);
        case ProfileShape::kCalendar:
            return std::make_shared<const Profile>(CCalendarProfile(*static_cast<const CCalendarProfile*>(profile)));
        case ProfileShape::kSms:
            return CopyAs<CSMSProfile>(profile);
        case ProfileShape::kEmail:
            return CopyAs<CEmailProfile>(profile);
        case ProfileShape::kNone:
        case ProfileShape::kColumns:
        case ProfileShape::kAny:
            break;
    }
    return nullptr;
}

}  // namespace orvale
