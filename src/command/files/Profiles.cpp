#include "command/files/Profiles.h"

#include <algorithm>
#include <map>
#include <set>

#include "command/console/CommandError.h"
#include "command/console/Progress.h"
#include "command/files/Columns.h"
#include "command/json/ProfileJson.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

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

}  // namespace

SharedProfile TakeGivenProfiles(const std::vector<std::string>& files, Kind kind, std::vector<InputName>& inputs,
                                const FormatRow* output) {
    const bool inputTakesColumns = std::any_of(inputs.begin(), inputs.end(), [](const InputName& input) {
        return input.format->profile == ProfileShape::kColumns;
    });
    SharedProfile columns;
    SharedProfile given;  // of the output
    for (const std::string& file : files) {
        const SharedProfile profile = ReadProfileFile(file, kind);
        const ProfileShape shape = ShapeOf(profile);
        const bool outputTakes = output != nullptr && output->Takes(shape);
        if (shape == ProfileShape::kColumns && inputTakesColumns && !columns)
            columns = profile;
        else if (profile && outputTakes && !given)
            given = profile;
        else if (profile)
            TellUser(ErrorLine(file, "", "passed over, for neither side of the work takes such a profile"));
    }
    for (InputName& input : inputs)
        input.columns = columns;
    // One profile of columns serves both sides.
    if (columns && !given && output != nullptr && output->profile == ProfileShape::kColumns) return columns;
    return given;
}

SharedProfile BuiltInProfile(const LoadedLibrary& library, const std::vector<InputName>& inputs,
                             const FormatRow& output) {
    if (output.profile == ProfileShape::kColumns) return ColumnsFor(UsesOf(library, inputs));
    if (output.profile == ProfileShape::kPhonebook) return DevicesFor(UsesOf(library, inputs));
    return nullptr;
}

}  // namespace orvale
