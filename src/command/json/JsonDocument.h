#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>

#include "command/Profile.h"
#include "command/json/JsonArchive.h"
#include "command/json/JsonText.h"
#include "host/Formats.h"

namespace orvale {

/// The JSON document, read as a stream: what stands before the records at once, then one record after the other.
class JsonDocument {
 public:
    JsonDocument(const std::filesystem::path& path, std::string shownName);

    Kind GetKind() const { return *kind_; }

    /// The profile of the document; none if it is null or missing.
    const SharedProfile& GetProfile() const { return profile_; }

    /// Once Next gave false: where the last whole record ends, if the document is cut off behind it.
    std::optional<std::uint64_t> BrokenAt() const { return brokenAt_; }

    /// Fills a record from the next one of the document. False at the end, which may be too early.
    template <class Record>
    bool Next(Record& record) {
        const JsonPointer value = NextValue();
        if (!value) return false;
        JsonReader reader(*value, text_.ShownName(), Place());
        VisitJson(reader, record);
        reader.Finish();
        return true;
    }

 private:
    void ReadHead();
    std::string TakeKey();
    void TakeHeadValue(const std::string& key);
    JsonPointer NextValue();
    JsonPointer TakeNextValue();
    void ReadTail();
    std::string Place() const { return "records[" + std::to_string(count_ - 1) + "]"; }
    JsonPointer TakeJson(std::string_view place);

    JsonText text_;
    std::optional<Kind> kind_;
    JsonPointer profileValue_;  // until the kind is known
    SharedProfile profile_;
    std::vector<std::string> keys_;
    bool inRecords_ = false;
    std::size_t count_ = 0;
    std::uint64_t wholeEnd_ = 0;
    std::optional<std::uint64_t> brokenAt_;
};

/// Writes the JSON document as a stream. Finish ends it; a failure of the stream is the caller's to look for.
class JsonDocumentWriter {
 public:
    JsonDocumentWriter(std::ostream& out, Kind kind, const SharedProfile& profile, bool withPasswords);

    template <class Record>
    void Put(const Record& record) {
        Separate();
        JsonWriter writer(buffer_, 4, notes_);
        VisitJson(writer, record);
        writer.Finish();
        Flush();
    }

    void Finish();

    /// What is to be told of what was written so far.
    const JsonNotes& Notes() const { return notes_; }

 private:
    void Separate();
    void Flush();

    std::ostream& out_;
    std::string buffer_;
    JsonNotes notes_;
    bool empty_ = true;
};

}  // namespace orvale
