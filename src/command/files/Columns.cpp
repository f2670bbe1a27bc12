#include "command/files/Columns.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "command/scan/ColumnScan.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// The type of a caption without one of the table, "Type N"; none if it isn't of that form.
std::optional<std::int32_t> TypeOfNumberedCaption(std::u16string_view caption) {
    constexpr std::u16string_view kWord = u"Type ";
    if (caption.size() <= kWord.size() || !EqualsNoCase(caption.substr(0, kWord.size()), kWord)) return std::nullopt;
    const std::int32_t type = ToNumber(caption.substr(kWord.size()));
    return EqualsNoCase(CaptionOf(type), caption) || EqualsNoCase(Format(u"Type %d", type), caption)
               ? std::optional(type)
               : std::nullopt;
}

}  // namespace

std::u16string CaptionOf(std::int32_t type) {
    return FindContactFieldType(type) != nullptr ? FromUtf8(ContactFieldCaption(type)) : Format(u"Type %d", type);
}

void AddColumn(CCSVProfile& profile, std::int32_t type) {
    profile.typeIds.push_back(static_cast<std::uint32_t>(type));
    profile.captions.push_back(CaptionOf(type));
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

}  // namespace orvale
