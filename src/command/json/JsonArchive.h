#pragma once

// One object of the JSON document, read and written by the same description of its keys.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "command/json/JsonValue.h"
#include "host/RecordValues.h"
#include "platform/DateValue.h"
#include "platform/HashMap.h"

/// The objects of the JSON document, each told once: a VisitValues function of the records, or a VisitJson function of
/// the profiles, names an object's keys in their order, and a reader or a writer passes through it. On input a missing
/// key leaves the member as it was, which is its default.
namespace orvale {

/// Takes values out of one JSON object. All failures name the path of what is wrong.
class JsonReader {
 public:
    /// The value must be an object. `path` is where it stands in the document.
    JsonReader(const Json& value, std::string_view file, std::string path);

    void Int(const char* key, std::int32_t& member);
    void Int(const char* key, std::int32_t& member, std::int32_t /*leftOutAt*/) { Int(key, member); }
    /// Output writes the name of such a number beside it, for people; input passes over it.
    void NamedInt(const char* key, std::int32_t& member, NameOfNumber);
    void UInt(const char* key, std::uint32_t& member);
    void UInt(const char* key, std::uint32_t& member, std::uint32_t /*leftOutAt*/) { UInt(key, member); }
    void Text(const char* key, std::u16string& member);
    void OptionalText(const char* key, std::u16string& member) { Text(key, member); }
    void Date(const char* key, DateValue& member);
    void Texts(const char* key, std::vector<std::u16string>& member);

    /// A list of pairs, id and name, in the map's order of iteration.
    void OptionalGroups(const char* key, HashMap<std::u16string>& member);

    /// `visit` is called with a reader and a new item for each entry.
    template <class T, class Visit>
    void List(const char* key, std::vector<std::unique_ptr<T>>& member, Visit visit) {
        ForEach(key, [&](JsonReader& entry) {
            auto item = std::make_unique<T>();
            visit(entry, *item);
            member.push_back(std::move(item));
        });
    }

    /// Whether the key is there; `visit` is called with a reader of its object then.
    template <class Visit>
    bool Object(const char* key, Visit visit) {
        const Json* value = Take(key);
        if (value == nullptr) return false;
        JsonReader inner(*value, *this, key);
        visit(inner);
        inner.Finish();
        return true;
    }

    /// `visit` is called with a reader of each object in the list under the key.
    template <class Visit>
    void ForEach(const char* key, Visit visit) {
        const Json* list = TakeList(key);
        for (std::size_t i = 0; i < CountOf(list); ++i) {
            JsonReader entry(EntryOf(*list, i), *this, key, i);
            visit(entry);
            entry.Finish();
        }
    }

    /// A list of objects whose members stand in parallel lists: `resize` makes room for as many as there are, `visit`
    /// is called with a reader and the place of each.
    template <class Resize, class Visit>
    void Rows(const char* key, std::size_t, Resize resize, Visit visit) {
        std::size_t place = 0;
        resize(place);
        ForEach(key, [&](JsonReader& entry) {
            resize(place + 1);
            visit(entry, place++);
        });
    }

    /// A number that the record holds unsigned and the document as signed.
    void SignedInt(const char* key, std::uint32_t& member) {
        auto number = static_cast<std::int32_t>(member);
        Int(key, number);
        member = static_cast<std::uint32_t>(number);
    }

    void Password(const char* key, std::u16string& member) { Text(key, member); }

    /// Fails if the object has a key that nobody took.
    void Finish() const;

 private:
    static constexpr std::size_t kNoEntry = static_cast<std::size_t>(-1);

    // An object within another, or of a list in it.
    JsonReader(const Json& value, const JsonReader& parent, const char* key, std::size_t entry = kNoEntry);

    const Json* Take(const char* key);
    const Json* TakeList(const char* key);
    static std::size_t CountOf(const Json* list);
    static const Json& EntryOf(const Json& list, std::size_t place);
    std::string OwnPath() const;
    std::string Path(std::string_view key) const;
    [[noreturn]] void Fail(std::string_view key, std::string_view reason) const;
    std::int64_t Integer(const char* key, const Json& value, std::int64_t least, std::int64_t most) const;
    std::u16string TextOf(const char* key, const Json& value) const;

    const Json& object_;
    std::string_view file_;
    std::string path_;                    // of the outermost object
    const JsonReader* parent_ = nullptr;  // of an inner one, whose path is told only where something is wrong
    const char* key_ = nullptr;           // in the parent
    std::size_t entry_ = kNoEntry;        // in the list under the key
    std::vector<const Json*> taken_;      // values of the object that were asked for, or that may stand there
};

/// What a writer of JSON does with passwords, and what is to be told of what it wrote.
struct JsonNotes {
    bool withPasswords = false;
    std::size_t replaced = 0;         ///< halves of characters that stand alone, which JSON can't tell: now U+FFFD
    std::size_t hiddenPasswords = 0;  ///< passwords that were left out
};

/// Puts values into one JSON object, with two blanks of indent.
class JsonWriter {
 public:
    /// Writes behind `out`, whose last line is indented by `indent`. `notes` keeps what is to be
    /// told of it.
    JsonWriter(std::string& out, std::size_t indent, JsonNotes& notes);

    void Int(const char* key, std::int32_t member) { Member(key, std::to_string(member)); }
    void Int(const char* key, std::int32_t member, std::int32_t leftOutAt) {
        if (member != leftOutAt) Int(key, member);
    }
    void NamedInt(const char* key, std::int32_t member, NameOfNumber nameOf);
    void UInt(const char* key, std::uint32_t member) { Member(key, std::to_string(member)); }
    void UInt(const char* key, std::uint32_t member, std::uint32_t leftOutAt) {
        if (member != leftOutAt) UInt(key, member);
    }
    void Text(const char* key, const std::u16string& member) { Member(key, Quoted(member)); }
    void OptionalText(const char* key, const std::u16string& member) {
        if (!member.empty()) Text(key, member);
    }
    void Date(const char* key, const DateValue& member);
    void Texts(const char* key, const std::vector<std::u16string>& member);
    void OptionalGroups(const char* key, const HashMap<std::u16string>& member);

    template <class T, class Visit>
    void List(const char* key, const std::vector<std::unique_ptr<T>>& member, Visit visit) {
        BeginList(key);
        for (const auto& item : member)
            if (item) Entry([&](JsonWriter& entry) { visit(entry, *item); });
        EndList();
    }

    template <class Visit>
    bool Object(const char* key, Visit visit) {
        Key(key);
        JsonWriter inner(out_, indent_ + 2, notes_);
        visit(inner);
        inner.Finish();
        return true;
    }

    template <class Resize, class Visit>
    void Rows(const char* key, std::size_t size, Resize, Visit visit) {
        BeginList(key);
        for (std::size_t i = 0; i < size; ++i)
            Entry([&](JsonWriter& entry) { visit(entry, i); });
        EndList();
    }
    void SignedInt(const char* key, std::uint32_t member) { Int(key, static_cast<std::int32_t>(member)); }
    void Password(const char* key, const std::u16string& member);

    void BeginList(const char* key);
    template <class Visit>
    void Entry(Visit visit) {
        BeginEntry();
        JsonWriter entry(out_, indent_ + 4, notes_);
        visit(entry);
        entry.Finish();
    }
    void EndList();

    /// Closes the object.
    void Finish();

 private:
    void Key(const char* key);
    void Member(const char* key, std::string_view value);
    void BeginEntry();
    std::string Quoted(std::u16string_view text);
    void NewLine(std::size_t indent);

    std::string& out_;
    std::size_t indent_;
    JsonNotes& notes_;
    bool empty_ = true;
    bool emptyList_ = true;
};

}  // namespace orvale
