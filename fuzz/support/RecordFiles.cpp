#include "support/RecordFiles.h"

#include <algorithm>

#include "command/json/ProfileJson.h"
#include "platform/CodePage.h"
#include "platform/Text.h"

namespace orvale::fuzz {

Object::Object(FileFormat format) {
    const auto type = static_cast<FileType>(format);
    Must(CreateObject(&object_, &type) == 1 && object_ != nullptr, "the module makes the format's object");
}

Object::~Object() {
    ReleaseObject(&object_);
}

bool Object::Open(const std::string& path, std::uint32_t flags) {
    return object_->Open(FromUtf8(path).c_str(), &flags) != 0;
}

const SharedProfile& Columns() {
    static const SharedProfile columns = std::make_shared<const Profile>(CCSVProfile{
        {CF_FULL_NAME, CF_GIVEN_NAME, CF_FAMILY_NAME, CF_TEL_CELL_VOICE, CF_TEL_CELL_VOICE, CF_EMAIL_PREF, 4242},
        {u"full name", u"given name", u"family name", u"mobile phone", u"Mobile Phone 2", u"email", u"Übername"}});
    return columns;
}

SharedProfile ProfileOf(CFileInterface& object, ProfileShape shape) {
    return CopyOfProfile(object, shape);
}

std::string TextOf(const SharedProfile& profile) {
    JsonNotes notes;
    notes.withPasswords = true;
    std::string text;
    WriteProfile(text, 0, profile, notes);
    return text;
}

void MustTellFormat(const Scratch& file, FileFormat format) {
    const FormatInfo* const found = DetectByContent(file.Path());
    Must(found != nullptr && found->format == format, "a file that was written tells its format");
}

ProfileShape ShapeOfFormat(FileFormat format) {
    for (const FormatRow& row : FormatTable())
        if (row.type == format) return row.profile;
    return ProfileShape::kNone;
}

std::vector<std::pair<std::int32_t, std::u16string>> FieldsOf(const CContactItem& contact) {
    static TextConverter converter;
    std::vector<std::pair<std::int32_t, std::u16string>> fields;
    for (const auto& field : contact.fields)
        fields.emplace_back(field->Type, converter.ToWide(converter.ToNarrow(field->Data)));
    return fields;
}

bool HasWholeYear(const DateValue& date) {
    constexpr int kFirst = 1001;  // in either zone
    return date.IsNone() || (date.Fields() && date.Fields()->year >= kFirst);
}

std::size_t LongestLine(std::string_view text) {
    constexpr std::string_view kLineEnd = "\r\n";
    std::size_t longest = 0;
    while (!text.empty()) {
        const std::size_t end = text.find(kLineEnd);
        const std::size_t length = end != std::string_view::npos ? end + kLineEnd.size() : text.size();
        longest = std::max(longest, length);
        text.remove_prefix(length);
    }
    return longest;
}

}  // namespace orvale::fuzz
