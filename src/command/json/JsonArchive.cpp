#include "command/json/JsonArchive.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "command/console/CommandError.h"
#include "command/console/Screen.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr const char* kOutOfRange = "out of range";

// A date told as text, or none where the text doesn't give back the very same number.
std::optional<std::u16string> DateText(const DateValue& date) {
    const std::optional<CalendarFields> f = DateValue(date.Value()).Fields();
    if (!f ||
        std::bit_cast<std::uint64_t>(DateValue::FromFields(*f).Value()) != std::bit_cast<std::uint64_t>(date.Value()))
        return std::nullopt;
    return Format(u"%04d-%02d-%02dT%02d:%02d:%02d", f->year, f->month, f->day, f->hour, f->minute, f->second);
}

std::optional<DateValue> ParseDateText(const std::string& text) {
    constexpr std::string_view kForm = "dddd-dd-ddTdd:dd:dd";
    if (text == "nan") return DateValue(std::numeric_limits<double>::quiet_NaN());
    if (text == "inf") return DateValue(std::numeric_limits<double>::infinity());
    if (text == "-inf") return DateValue(-std::numeric_limits<double>::infinity());
    if (text.size() != kForm.size()) return std::nullopt;
    for (std::size_t i = 0; i < kForm.size(); ++i)
        if (kForm[i] == 'd' ? text[i] < '0' || text[i] > '9' : text[i] != kForm[i]) return std::nullopt;
    const auto number = [&](std::size_t first, std::size_t count) { return std::stoi(text.substr(first, count)); };
    const DateValue date =
        DateValue::FromFields({number(0, 4), number(5, 2), number(8, 2), number(11, 2), number(14, 2), number(17, 2)});
    return date.GetStatus() == DateValue::kValid ? std::optional(date) : std::nullopt;
}

}  // namespace

JsonReader::JsonReader(const Json& value, std::string_view file, std::string path)
    : object_(value), file_(file), path_(std::move(path)) {
    if (!value.is_object()) FailFile(file_, path_, "expected an object");
    taken_.reserve(value.size());
}

JsonReader::JsonReader(const Json& value, const JsonReader& parent, const char* key, std::size_t entry)
    : object_(value), file_(parent.file_), parent_(&parent), key_(key), entry_(entry) {
    if (!value.is_object()) FailFile(file_, OwnPath(), "expected an object");
    taken_.reserve(value.size());
}

void JsonReader::Int(const char* key, std::int32_t& member) {
    if (const Json* value = Take(key)) member = static_cast<std::int32_t>(Integer(key, *value, INT32_MIN, INT32_MAX));
}

void JsonReader::NamedInt(const char* key, std::int32_t& member, NameOfNumber) {
    const Json* const value = Take(key);
    if (value == nullptr) return;
    member = static_cast<std::int32_t>(Integer(key, *value, INT32_MIN, INT32_MAX));
    Take((std::string(key) + "Name").c_str());
}

void JsonReader::UInt(const char* key, std::uint32_t& member) {
    if (const Json* value = Take(key)) member = static_cast<std::uint32_t>(Integer(key, *value, 0, UINT32_MAX));
}

void JsonReader::Text(const char* key, std::u16string& member) {
    if (const Json* value = Take(key)) member = TextOf(key, *value);
}

void JsonReader::Date(const char* key, DateValue& member) {
    const Json* const value = Take(key);
    if (value == nullptr) return;
    if (value->is_null()) {
        member = DateValue();
    } else if (value->is_number()) {
        member = DateValue(value->get<double>());
    } else if (value->is_string()) {
        const std::optional<DateValue> date = ParseDateText(value->get_ref<const std::string&>());
        if (!date) Fail(key, "no date; it reads like 2010-07-26T06:00:15");
        member = *date;
    } else {
        Fail(key, "expected a date");
    }
}

void JsonReader::Texts(const char* key, std::vector<std::u16string>& member) {
    const Json* const list = TakeList(key);
    if (list == nullptr) return;
    member.clear();
    for (const Json& entry : *list)
        member.push_back(TextOf(key, entry));
}

void JsonReader::OptionalGroups(const char* key, HashMap<std::u16string>& member) {
    std::vector<std::pair<std::int32_t, std::u16string>> pairs;
    ForEach(key, [&](JsonReader& entry) {
        auto& [id, name] = pairs.emplace_back();
        entry.Int("id", id);
        entry.Text("name", name);
    });
    std::vector<std::int32_t> ids;
    ids.reserve(pairs.size());
    for (const auto& pair : pairs)
        ids.push_back(pair.first);
    std::sort(ids.begin(), ids.end());
    if (std::adjacent_find(ids.begin(), ids.end()) != ids.end()) Fail(key, "an id stands twice");
    // The newest entry of a bucket iterates first, so the list is entered from its end.
    std::reverse(pairs.begin(), pairs.end());
    for (auto& [id, name] : pairs)
        member.Set(id, std::move(name));
}

void JsonReader::Finish() const {
    if (taken_.size() == object_.size()) return;
    for (const auto& member : object_.items())
        if (std::find(taken_.begin(), taken_.end(), &member.value()) == taken_.end()) Fail(member.key(), "unknown key");
}

const Json* JsonReader::Take(const char* key) {
    const auto found = object_.find(key);
    if (found == object_.end()) return nullptr;
    taken_.push_back(&*found);
    return taken_.back();
}

const Json* JsonReader::TakeList(const char* key) {
    const Json* const value = Take(key);
    if (value != nullptr && !value->is_array()) Fail(key, "expected a list");
    return value;
}

std::size_t JsonReader::CountOf(const Json* list) {
    return list != nullptr ? list->size() : 0;
}

const Json& JsonReader::EntryOf(const Json& list, std::size_t place) {
    return list[place];
}

std::string JsonReader::OwnPath() const {
    if (parent_ == nullptr) return path_;
    return parent_->Path(key_) + (entry_ != kNoEntry ? "[" + std::to_string(entry_) + "]" : "");
}

std::string JsonReader::Path(std::string_view key) const {
    const std::string path = OwnPath();
    return path.empty() ? std::string(key) : path + "." + std::string(key);
}

void JsonReader::Fail(std::string_view key, std::string_view reason) const {
    FailFile(file_, Path(Quote(key)), reason);
}

std::int64_t JsonReader::Integer(const char* key, const Json& value, std::int64_t least, std::int64_t most) const {
    if (!value.is_number_integer()) Fail(key, "expected a whole number");
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX))
        Fail(key, kOutOfRange);
    const auto number = value.get<std::int64_t>();
    if (number < least || number > most) Fail(key, kOutOfRange);
    return number;
}

std::u16string JsonReader::TextOf(const char* key, const Json& value) const {
    if (!value.is_string()) Fail(key, "expected a text");
    return FromUtf8(value.get_ref<const std::string&>());
}

JsonWriter::JsonWriter(std::string& out, std::size_t indent, JsonNotes& notes)
    : out_(out), indent_(indent), notes_(notes) {
    out_ += '{';
}

void JsonWriter::NamedInt(const char* key, std::int32_t member, NameOfNumber nameOf) {
    Int(key, member);
    const std::string name = nameOf(member);
    if (!name.empty()) Member((std::string(key) + "Name").c_str(), "\"" + name + "\"");
}

void JsonWriter::Date(const char* key, const DateValue& member) {
    const double value = member.Value();
    if (std::bit_cast<std::uint64_t>(value) == 0)
        Member(key, "null");
    else if (std::isnan(value))
        Member(key, "\"nan\"");
    else if (std::isinf(value))
        Member(key, value > 0 ? "\"inf\"" : "\"-inf\"");
    else if (const auto text = DateText(member))
        Member(key, Quoted(*text));
    else
        Member(key, Json(value).dump());
}

void JsonWriter::Texts(const char* key, const std::vector<std::u16string>& member) {
    BeginList(key);
    for (const std::u16string& text : member) {
        BeginEntry();
        out_ += Quoted(text);
    }
    EndList();
}

void JsonWriter::OptionalGroups(const char* key, const HashMap<std::u16string>& member) {
    if (member.empty()) return;
    BeginList(key);
    for (const auto& pair : member) {
        Entry([&](JsonWriter& entry) {
            entry.Int("id", pair.key);
            entry.Text("name", pair.value);
        });
    }
    EndList();
}

void JsonWriter::Password(const char* key, const std::u16string& member) {
    const bool hidden = !notes_.withPasswords && !member.empty();
    notes_.hiddenPasswords += hidden;
    Text(key, hidden ? std::u16string() : member);
}

void JsonWriter::BeginList(const char* key) {
    Key(key);
    out_ += '[';
    emptyList_ = true;
}

void JsonWriter::BeginEntry() {
    if (!emptyList_) out_ += ',';
    emptyList_ = false;
    NewLine(indent_ + 4);
}

void JsonWriter::EndList() {
    if (!emptyList_) NewLine(indent_ + 2);
    out_ += ']';
}

void JsonWriter::Finish() {
    if (!empty_) NewLine(indent_);
    out_ += '}';
}

void JsonWriter::Key(const char* key) {
    if (!empty_) out_ += ',';
    empty_ = false;
    NewLine(indent_ + 2);
    out_.append("\"").append(key).append("\": ");
}

void JsonWriter::Member(const char* key, std::string_view value) {
    Key(key);
    out_ += value;
}

// As JSON has it, and what could steer a terminal escaped as well: that reads back the same.
std::string JsonWriter::Quoted(std::u16string_view text) {
    std::string quoted = ToUtf8(text, &notes_.replaced);
    const bool isPlain = std::none_of(quoted.begin(), quoted.end(), [](char byte) {
        return static_cast<unsigned char>(byte) < 0x20 || byte == '"' || byte == '\\';
    });
    quoted = isPlain ? '"' + quoted + '"' : Json(std::move(quoted)).dump();
    const auto steers = [](char16_t unit) { return unit >= 0x7F && SteersTerminal(unit); };
    if (std::none_of(text.begin(), text.end(), steers)) return quoted;
    std::u16string escaped;
    for (const char16_t unit : FromUtf8(quoted))
        escaped += steers(unit) ? Format(u"\\u%04x", unit) : std::u16string(1, unit);
    return ToUtf8(escaped);
}

void JsonWriter::NewLine(std::size_t indent) {
    out_ += '\n';
    out_.append(indent, ' ');
}

}  // namespace orvale
