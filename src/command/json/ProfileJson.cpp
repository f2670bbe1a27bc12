#include "command/json/ProfileJson.h"

#include <nlohmann/json.hpp>
#include <type_traits>

#include "command/console/CommandError.h"
#include "command/json/JsonText.h"
#include "platform/Format.h"

namespace orvale {
namespace {

// Makes room in parallel lists for as many rows as the document has. A writer has const lists and needs none.
template <class... Lists>
auto ResizerOf(Lists&... lists) {
    return [&]([[maybe_unused]] std::size_t size) {
        if constexpr ((!std::is_const_v<Lists> && ...)) (lists.resize(size), ...);
    };
}

// ---- the objects, each told once; they are const when the archive writes

template <class Archive, PossiblyConst<CCSVProfile> Columns>
void VisitJson(Archive& archive, Columns& profile) {
    const auto resize = ResizerOf(profile.captions, profile.typeIds);
    archive.Rows("columns", profile.captions.size(), resize, [&](auto& row, std::size_t i) {
        row.Text("caption", profile.captions[i]);
        row.SignedInt("type", profile.typeIds.at(i));
    });
}

template <class Archive, class Device>
void VisitTypeSet(Archive& archive, Device& device) {
    const auto resize = ResizerOf(device.typeIds, device.typeLabels, device.typeIcons, device.typeLengths);
    archive.Rows("typeset", device.typeIds.size(), resize, [&](auto& row, std::size_t i) {
        row.SignedInt("id", device.typeIds[i]);
        row.Text("label", device.typeLabels.at(i));
        row.Text("icon", device.typeIcons.at(i));
        row.SignedInt("length", device.typeLengths.at(i));
    });
}

template <class Archive, class Device>
void VisitGroups(Archive& archive, Device& device) {
    const auto resize = ResizerOf(device.groupIds, device.groupLabels);
    archive.Rows("groups", device.groupIds.size(), resize, [&](auto& row, std::size_t i) {
        row.SignedInt("id", device.groupIds[i]);
        row.Text("label", device.groupLabels.at(i));
    });
}

template <class Archive, PossiblyConst<CPhonebookProfile> Phonebook>
void VisitJson(Archive& archive, Phonebook& profile) {
    archive.Int("config", profile.config);
    archive.Object("speeddial", [&](auto& object) {
        object.Text("label", profile.speedDialLabel);
        object.Int("flag", profile.speedDialFlag);
        object.Int("min", profile.speedDialMin);
        object.Int("max", profile.speedDialMax);
        object.Text("assignablephonetypes", profile.assignablePhoneTypes);
        object.Text("unassignableid", profile.unassignableIds);
    });
    archive.List("devices", profile.devices, [](auto& entry, auto& device) {
        entry.Int("id", device.id);
        entry.Text("name", device.name);
        entry.Int("config", device.config);
        entry.Int("typespercontact", device.typespercontact);
        entry.Int("typecount", device.typecount);
        entry.Int("namecount", device.namecount);
        VisitTypeSet(entry, device);
        entry.Object("memorylocation", [&](auto& object) {
            object.Text("label", device.memoryLocationLabel);
            object.Int("flag", device.memoryLocationFlag);
            object.Int("min", device.memoryLocationMin);
            object.Int("max", device.memoryLocationMax);
            object.Text("unassignable", device.memoryLocationUnassignable);
        });
        entry.Object("groupset", [&](auto& object) {
            object.Text("name", device.groupSetName);
            object.Int("flag", device.groupSetFlag);
            VisitGroups(object, device);
        });
    });
    archive.Text("handset", profile.handset);
    archive.Text("dllname", profile.dllname);
}

template <class Archive, PossiblyConst<CCalendarProfile> Calendar>
void VisitJson(Archive& archive, Calendar& profile) {
    archive.Text("handset", profile.handset);
    archive.Text("dllname", profile.dllname);
    archive.List("configs", profile.configSet.configs, [](auto& entry, auto& config) {
        entry.Int("type", config.type);
        entry.Int("config", config.config);
    });
}

template <class Archive, class Box>
void VisitSmsBox(Archive& archive, Box& box) {
    archive.Int("type", box.type);
    archive.Text("name", box.name);
    archive.Int("capacity", box.capacity);
    archive.Int("used", box.used);
    archive.Int("position", box.position);
    archive.Text("location", box.location);
    archive.Int("config", box.config);
    const auto resizeDisplays = ResizerOf(box.displayLabels, box.displayIndexes, box.displayWidths);
    archive.Rows("displays", box.displayLabels.size(), resizeDisplays, [&](auto& row, std::size_t i) {
        row.Text("label", box.displayLabels[i]);
        row.SignedInt("index", box.displayIndexes.at(i));
        row.SignedInt("width", box.displayWidths.at(i));
    });
    const auto resizeSubboxes = ResizerOf(box.subboxIds, box.subboxNames);
    archive.Rows("subboxes", box.subboxIds.size(), resizeSubboxes, [&](auto& row, std::size_t i) {
        row.SignedInt("id", box.subboxIds[i]);
        row.Text("name", box.subboxNames.at(i));
    });
}

template <class Archive, PossiblyConst<CSMSProfile> Sms>
void VisitJson(Archive& archive, Sms& profile) {
    archive.Int("config", profile.config);
    archive.Int("MaxRecipientNum", profile.MaxRecipientNum);
    archive.Int("MaxPageNum", profile.MaxPageNum);
    archive.Int("MaxSSMPageEng", profile.MaxSSMPageEng);
    archive.Int("MaxSSMPageDBC", profile.MaxSSMPageDBC);
    archive.Int("MaxLSMPageEng", profile.MaxLSMPageEng);
    archive.Int("MaxLSMPageDBC", profile.MaxLSMPageDBC);
    const auto resize = ResizerOf(profile.storageIds, profile.storageNames);
    archive.Rows("storages", profile.storageIds.size(), resize, [&](auto& row, std::size_t i) {
        row.SignedInt("id", profile.storageIds[i]);
        row.Text("name", profile.storageNames.at(i));
    });
    archive.List("boxes", profile.boxes, [](auto& entry, auto& box) { VisitSmsBox(entry, box); });
    archive.Text("handset", profile.handset);
    archive.Text("dllname", profile.dllname);
}

template <class Archive, PossiblyConst<CEmailProfile> Email>
void VisitJson(Archive& archive, Email& profile) {
    archive.Text("handset", profile.handset);
    archive.Text("dllname", profile.dllname);
    archive.Int("config", profile.config);
    archive.Int("capacity", profile.capacity);
    archive.List("devices", profile.devices, [](auto& entry, auto& device) {
        entry.Int("id", device.id);
        entry.Text("name", device.name);
        entry.Int("config", device.config);
        entry.Int("capacity", device.capacity);
    });
    archive.List("accounts", profile.accounts, [](auto& entry, auto& account) {
        entry.Int("id", account.id);
        entry.Text("name", account.name);
        entry.Int("config", account.config);
        entry.Int("capacity", account.capacity);
        entry.Password("password", account.password);
        entry.Text("Address", account.Address);
        entry.List("boxes", account.boxes, [](auto& inner, auto& box) {
            inner.Int("type", box.type);
            inner.Text("name", box.name);
            inner.Int("config", box.config);
            inner.Int("capacity", box.capacity);
            inner.Texts("subfolders", box.subfolders);
        });
    });
}

// ---- the ways through them

template <class Object>
SharedProfile Read(const Json& value, std::string_view file, std::string place) {
    Object profile;
    JsonReader reader(value, file, std::move(place));
    VisitJson(reader, profile);
    reader.Finish();
    return std::make_shared<const Profile>(std::move(profile));
}

// Gathers the values under their paths.
class PathWriter {
 public:
    PathWriter(std::vector<Fact>& facts, std::string path, bool withPasswords)
        : facts_(facts), path_(std::move(path)), withPasswords_(withPasswords) {}

    void Int(const char* key, std::int32_t member) { Add(key, Format(u"%d", member)); }
    void SignedInt(const char* key, std::uint32_t member) { Int(key, static_cast<std::int32_t>(member)); }
    void Text(const char* key, const std::u16string& member) { Add(key, member); }
    void Password(const char* key, const std::u16string& member) {
        Add(key, withPasswords_ || member.empty() ? member : std::u16string(u"(hidden)"));
    }
    void Texts(const char* key, const std::vector<std::u16string>& member) {
        for (std::size_t i = 0; i < member.size(); ++i)
            Add(Numbered(key, i), member[i]);
    }
    template <class Visit>
    void Object(const char* key, Visit visit) {
        PathWriter inner(facts_, Path(key) + ".", withPasswords_);
        visit(inner);
    }
    template <class Resize, class Visit>
    void Rows(const char* key, std::size_t size, Resize, Visit visit) {
        for (std::size_t i = 0; i < size; ++i) {
            PathWriter row(facts_, Path(Numbered(key, i)) + ".", withPasswords_);
            visit(row, i);
        }
    }
    template <class T, class Visit>
    void List(const char* key, const std::vector<std::unique_ptr<T>>& member, Visit visit) {
        for (std::size_t i = 0; i < member.size(); ++i) {
            if (!member[i]) continue;
            PathWriter entry(facts_, Path(Numbered(key, i)) + ".", withPasswords_);
            visit(entry, *member[i]);
        }
    }

 private:
    static std::string Numbered(const char* key, std::size_t i) { return key + ("[" + std::to_string(i)) + "]"; }
    std::string Path(const std::string& key) const { return path_ + key; }
    void Add(const std::string& key, std::u16string value) { facts_.push_back({Path(key), std::move(value), true}); }

    std::vector<Fact>& facts_;
    std::string path_;
    bool withPasswords_;
};

SharedProfile ReadColumns(const Json& value, std::string_view file, const std::string& place) {
    SharedProfile profile = Read<CCSVProfile>(value, file, place);
    if (std::get<CCSVProfile>(*profile).captions.empty())
        FailFile(file, place.empty() ? "columns" : place + ".columns", "a file of columns has at least one");
    return profile;
}

}  // namespace

SharedProfile ReadProfile(const Json& value, Kind kind, std::string_view file, std::string place) {
    if (value.is_null()) return nullptr;
    if (!value.is_object()) FailFile(file, place, "expected an object or null");
    switch (kind) {
        case Kind::kContacts:
            if (value.contains("columns")) return ReadColumns(value, file, place);
            return Read<CPhonebookProfile>(value, file, std::move(place));
        case Kind::kCalendar:
            return Read<CCalendarProfile>(value, file, std::move(place));
        case Kind::kSms:
            return Read<CSMSProfile>(value, file, std::move(place));
        case Kind::kEmail:
            return Read<CEmailProfile>(value, file, std::move(place));
    }
    return nullptr;
}

void WriteProfile(std::string& out, std::size_t indent, const SharedProfile& profile, JsonNotes& notes) {
    if (!profile) {
        out += "null";
        return;
    }
    JsonWriter writer(out, indent, notes);
    std::visit([&](const auto& each) { VisitJson(writer, each); }, *profile);
    writer.Finish();
}

SharedProfile ReadProfileFile(const std::string& file, Kind kind) {
    JsonText text(file, file);
    const std::size_t line = text.Line();
    const JsonPointer value = ParseJson(text.TakeValue(), file, "", line);
    if (text.Peek() != JsonText::kNothing) text.Fail("something stands behind the profile");
    const bool isDocument = value->is_object() && (value->contains("records") || value->contains("kind"));
    if (!isDocument) return ReadProfile(*value, kind, file, "");
    const auto found = value->find("profile");
    return found != value->end() ? ReadProfile(*found, kind, file, "profile") : nullptr;
}

std::vector<Fact> FactsOf(const SharedProfile& profile, bool withPasswords) {
    std::vector<Fact> facts;
    if (!profile) return facts;
    PathWriter writer(facts, "", withPasswords);
    std::visit([&](const auto& each) { VisitJson(writer, each); }, *profile);
    return facts;
}

}  // namespace orvale
