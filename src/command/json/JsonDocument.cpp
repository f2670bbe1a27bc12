#include "command/json/JsonDocument.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "command/console/CommandError.h"
#include "command/formats/Kinds.h"
#include "command/json/ProfileJson.h"

namespace orvale {
namespace {

constexpr std::array kKinds{Kind::kContacts, Kind::kCalendar, Kind::kSms, Kind::kEmail};
constexpr int kVersion = 1;

bool LooksLikeJson(const std::filesystem::path&, std::string_view head, const FormatRow* found) {
    if (found != nullptr) return false;
    if (head.starts_with("\xEF\xBB\xBF")) head.remove_prefix(3);
    const std::size_t first = head.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && head[first] == '{';
}

}  // namespace

constexpr OwnFormat kJsonFormat{
    [](const std::filesystem::path& path, const std::string& shownName) -> std::unique_ptr<RecordSource> {
        return std::make_unique<JsonDocument>(path, shownName);
    },
    [](std::ostream& out, Kind kind, const SharedProfile& profile,
       const OutputOptions& options) -> std::unique_ptr<RecordSink> {
        return std::make_unique<JsonDocumentWriter>(out, kind, profile, options.withPasswords);
    },
    &LooksLikeJson,
};

template <class Record>
bool JsonDocument::Fill(Record& record) {
    const JsonPointer value = NextValue();
    if (!value) return false;
    JsonReader reader(*value, text_.ShownName(), Place());
    VisitValues(reader, record);
    reader.Finish();
    return true;
}

bool JsonDocument::Next(CContactItem& record) {
    return Fill(record);
}
bool JsonDocument::Next(CCalendarItem& record) {
    return Fill(record);
}
bool JsonDocument::Next(CSMSItem& record) {
    return Fill(record);
}
bool JsonDocument::Next(CEmailItem& record) {
    return Fill(record);
}

JsonDocument::JsonDocument(const std::filesystem::path& path, std::string shownName)
    : text_(path, std::move(shownName)) {
    ReadHead();
    if (profileValue_) profile_ = ReadProfile(*profileValue_, *kind_, text_.ShownName(), "profile");
    profileValue_.reset();
}

void JsonDocument::ReadHead() {
    text_.Expect('{');
    if (!text_.TakeIf('}')) {
        do {
            const std::string key = TakeKey();
            if (key == "records") {
                if (!kind_) text_.Fail(R"("kind" has to stand before "records")");
                text_.Expect('[');
                inRecords_ = true;
                wholeEnd_ = text_.Offset();
                return;
            }
            TakeHeadValue(key);
        } while (text_.TakeIf(','));
        text_.Expect('}');
    }
    if (!kind_) FailFile(text_.ShownName(), "kind", "the key is missing");
    if (text_.Peek() != JsonText::kNothing) text_.Fail("something stands behind the document");
}

std::string JsonDocument::TakeKey() {
    if (text_.Peek() != '"') text_.Fail("expected a key");
    const JsonPointer key = TakeJson("");
    text_.Expect(':');
    const auto& name = key->get_ref<const std::string&>();
    if (std::find(keys_.begin(), keys_.end(), name) != keys_.end())
        FailFile(text_.ShownName(), Quote(name), "the key stands twice");
    keys_.push_back(name);
    return name;
}

void JsonDocument::TakeHeadValue(const std::string& key) {
    if (key != "orvale" && key != "kind" && key != "profile") FailFile(text_.ShownName(), Quote(key), "unknown key");
    const JsonPointer pointer = TakeJson(key);
    const Json& value = *pointer;
    if (key == "orvale") {
        if (!value.is_number_integer() || value != kVersion)
            FailFile(text_.ShownName(), key, "only documents of version 1 are known");
    } else if (key == "kind") {
        const auto* const found =
            std::find_if(kKinds.begin(), kKinds.end(), [&](Kind kind) { return value == KindWord(kind); });
        if (found == kKinds.end())
            FailFile(text_.ShownName(), key, "no kind of data; contacts, calendar, sms and email are");
        kind_ = *found;
    } else if (!value.is_null()) {
        profileValue_ = pointer;
    }
}

JsonPointer JsonDocument::NextValue() {
    if (!inRecords_) return nullptr;
    try {
        JsonPointer value = TakeNextValue();
        wholeEnd_ = text_.Offset();
        return value;
    } catch (const JsonEndsEarly&) {
        inRecords_ = false;
        brokenAt_ = wholeEnd_;
        return nullptr;
    }
}

JsonPointer JsonDocument::TakeNextValue() {
    if (count_ == 0 ? text_.TakeIf(']') : !text_.TakeIf(',')) {
        if (count_ != 0) text_.Expect(']');
        ReadTail();
        return nullptr;
    }
    ++count_;
    return TakeJson(Place());
}

void JsonDocument::ReadTail() {
    inRecords_ = false;
    while (text_.TakeIf(',')) {
        const std::string key = TakeKey();
        if (key == "orvale" || key == "kind" || key == "profile")
            FailFile(text_.ShownName(), key, "has to stand before \"records\"");
        FailFile(text_.ShownName(), Quote(key), "unknown key");
    }
    text_.Expect('}');
    if (text_.Peek() != JsonText::kNothing) text_.Fail("something stands behind the document");
}

JsonPointer JsonDocument::TakeJson(std::string_view place) {
    text_.Peek();
    const std::size_t line = text_.Line();
    return ParseJson(text_.TakeValue(), text_.ShownName(), place, line);
}

JsonDocumentWriter::JsonDocumentWriter(std::ostream& out, Kind kind, const SharedProfile& profile, bool withPasswords)
    : out_(out) {
    notes_.withPasswords = withPasswords;
    buffer_ = "{\n  \"orvale\": 1,\n  \"kind\": \"";
    buffer_ += KindWord(kind);
    buffer_ += "\",\n  \"profile\": ";
    WriteProfile(buffer_, 2, profile, notes_);
    buffer_ += ",\n  \"records\": [";
    Flush();
}

template <class Record>
void JsonDocumentWriter::Append(const Record& record) {
    Separate();
    JsonWriter writer(buffer_, 4, notes_);
    VisitValues(writer, record);
    writer.Finish();
    Flush();
}

void JsonDocumentWriter::Put(const CContactItem& record) {
    Append(record);
}
void JsonDocumentWriter::Put(const CCalendarItem& record) {
    Append(record);
}
void JsonDocumentWriter::Put(const CSMSItem& record) {
    Append(record);
}
void JsonDocumentWriter::Put(const CEmailItem& record) {
    Append(record);
}

std::vector<Note> JsonDocumentWriter::Losses() const {
    if (notes_.replaced == 0) return {};
    return {{"halves of characters that JSON can't tell", notes_.replaced, ""}};
}

std::vector<std::string> JsonDocumentWriter::Remarks() const {
    if (notes_.hiddenPasswords == 0) return {};
    return {"passwords are left out; --with-passwords keeps them"};
}

void JsonDocumentWriter::Separate() {
    buffer_ += empty_ ? "\n    " : ",\n    ";
    empty_ = false;
}

void JsonDocumentWriter::Finish() {
    buffer_ += empty_ ? "]\n}\n" : "\n  ]\n}\n";
    Flush();
}

void JsonDocumentWriter::Flush() {
    constexpr std::size_t kMostKept = 1024 * 1024;
    out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
    if (buffer_.capacity() > kMostKept) buffer_.shrink_to_fit();  // else it lies there through the reading back
}

}  // namespace orvale
