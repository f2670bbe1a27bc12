#include "command/files/Profiles.h"

#include <algorithm>
#include <map>
#include <set>

#include "command/console/CommandError.h"
#include "command/console/Progress.h"
#include "command/json/ProfileJson.h"
#include "command/scan/ColumnScan.h"
#include "command/show/Wording.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

std::u16string CaptionOf(std::int32_t type) {
    return FindContactFieldType(type) != nullptr ? Widen(ContactFieldCaption(type)) : Format(u"Type %d", type);
}

// The type of a caption without one of the table, "Type N"; none if it isn't of that form.
std::optional<std::int32_t> TypeOfNumberedCaption(std::u16string_view caption) {
    constexpr std::u16string_view kWord = u"Type ";
    if (caption.size() <= kWord.size() || !EqualsNoCase(caption.substr(0, kWord.size()), kWord)) return std::nullopt;
    const std::int32_t type = ToNumber(caption.substr(kWord.size()));
    return EqualsNoCase(CaptionOf(type), caption) || EqualsNoCase(Format(u"Type %d", type), caption)
               ? std::optional(type)
               : std::nullopt;
}

void AddColumn(CCSVProfile& profile, std::int32_t type) {
    profile.typeIds.push_back(static_cast<std::uint32_t>(type));
    profile.captions.push_back(CaptionOf(type));
}

// What a contact uses of a memory of the phone.
struct Use {
    std::set<std::int32_t> types;
    std::map<std::int32_t, std::u16string> groups;
};

// What the contacts of the inputs use, by their storage, in the order in which storages are met.
std::vector<std::pair<std::int32_t, Use>> UsesOf(const LoadedLibrary& library, const std::vector<InputName>& names) {
    std::vector<std::pair<std::int32_t, Use>> uses;
    std::map<std::int32_t, std::size_t> places;
    JoinedInputs inputs(library, names);
    Progress progress("reading", names.front().name);
    while (const auto* contact = inputs.Next<CContactItem>()) {
        progress.Tick(inputs.Count());
        const auto [place, isNew] = places.emplace(contact->Storage, uses.size());
        if (isNew) uses.emplace_back(contact->Storage, Use());
        Use& use = uses[place->second].second;
        for (const auto& field : contact->fields)
            if (field) use.types.insert(field->Type);
        const CContactField* const name = contact->GetNameField();
        if (name == nullptr) continue;
        for (const auto& group : name->groups)
            use.groups.emplace(group.key, group.value);
    }
    return uses;
}

SharedProfile ColumnsFor(const std::vector<std::pair<std::int32_t, Use>>& uses) {
    std::set<std::int32_t> types;
    for (const auto& [storage, use] : uses)
        types.insert(use.types.begin(), use.types.end());
    if (types.empty()) types.insert(CF_FULL_NAME);  // a file has at least one column
    CCSVProfile profile;
    for (const std::int32_t type : types)
        AddColumn(profile, type);
    return std::make_shared<const Profile>(std::move(profile));
}

SharedProfile DevicesFor(const std::vector<std::pair<std::int32_t, Use>>& uses) {
    CPhonebookProfile profile;
    profile.dllname = u".dll";  // what an empty one becomes
    for (const auto& [storage, use] : uses) {
        auto device = std::make_unique<CPhonebookDevice>();
        device->id = storage;
        device->name = Format(u"Storage %d", storage);
        device->config = use.groups.empty() ? 0 : PBDV_HAS_GROUP;
        device->typecount = static_cast<std::int32_t>(use.types.size());
        for (const std::int32_t type : use.types) {
            device->typeIds.push_back(static_cast<std::uint32_t>(type));
            device->typeLabels.push_back(CaptionOf(type));
            device->typeIcons.emplace_back();
            device->typeLengths.push_back(0);
        }
        for (const auto& [id, label] : use.groups) {
            device->groupIds.push_back(static_cast<std::uint32_t>(id));
            device->groupLabels.push_back(label);
        }
        profile.devices.push_back(std::move(device));
    }
    return std::make_shared<const Profile>(std::move(profile));
}

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

SharedProfile ColumnsOf(const InputName& input) {
    if (input.columns) return input.columns;
    CCSVProfile profile;
    for (const ContactFieldType& type : kContactFieldTypes)
        AddColumn(profile, type.id);
    for (const std::u16string& caption : CaptionsOf(input.path)) {
        const auto known = [&](const std::u16string& other) { return EqualsNoCase(other, caption); };
        if (caption.empty() || std::any_of(profile.captions.begin(), profile.captions.end(), known)) continue;
        const std::optional<std::int32_t> type = TypeOfNumberedCaption(caption);
        if (!type) continue;
        profile.typeIds.push_back(static_cast<std::uint32_t>(*type));
        profile.captions.push_back(caption);
    }
    return std::make_shared<const Profile>(std::move(profile));
}

GivenProfiles ReadGivenProfiles(const std::vector<std::string>& files, Kind kind, bool inputTakesColumns,
                                const FormatRow* output) {
    GivenProfiles given;
    for (const std::string& file : files) {
        const SharedProfile profile = ReadProfileFile(file, kind);
        const ProfileShape shape = ShapeOf(profile);
        const bool outputTakes = output != nullptr && output->Takes(shape);
        if (shape == ProfileShape::kColumns && inputTakesColumns && !given.input)
            given.input = profile;
        else if (profile && outputTakes && !given.output)
            given.output = profile;
        else if (profile)
            TellUser(ErrorLine(file, "", "passed over, for neither side of the work takes such a profile"));
    }
    // One profile of columns serves both sides.
    if (given.input && !given.output && output != nullptr && output->profile == ProfileShape::kColumns)
        given.output = given.input;
    return given;
}

SharedProfile BuiltInProfile(const LoadedLibrary& library, const std::vector<InputName>& inputs,
                             const FormatRow& output) {
    if (output.profile == ProfileShape::kColumns) return ColumnsFor(UsesOf(library, inputs));
    if (output.profile == ProfileShape::kPhonebook) return DevicesFor(UsesOf(library, inputs));
    return nullptr;
}

}  // namespace orvale
