#pragma once

// The JSON document as a format: head, profile, records, one at a time.

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "command/formats/FormatTable.h"
#include "command/formats/Profile.h"
#include "command/json/JsonArchive.h"
#include "command/json/JsonText.h"
#include "host/Formats.h"

namespace orvale {

/// The JSON document, read as a stream: what stands before the records at once, then one record after the other.
class JsonDocument : public RecordSource {
 public:
    JsonDocument(const std::filesystem::path& path, std::string shownName);

    Kind GetKind() const override { return *kind_; }

    /// The profile of the document; none if it is null or missing.
    SharedProfile GetProfile() const override { return profile_; }

    /// Once Next gave false: where the last whole record ends, if the document is cut off behind it.
    std::optional<std::uint64_t> BrokenAt() const override { return brokenAt_; }

    bool Next(CContactItem& record) override;
    bool Next(CCalendarItem& record) override;
    bool Next(CSMSItem& record) override;
    bool Next(CEmailItem& record) override;

 private:
    template <class Record>
    bool Fill(Record& record);
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

/// Writes the JSON document as a stream.
class JsonDocumentWriter : public RecordSink {
 public:
    JsonDocumentWriter(std::ostream& out, Kind kind, const SharedProfile& profile, bool withPasswords);

    void Put(const CContactItem& record) override;
    void Put(const CCalendarItem& record) override;
    void Put(const CSMSItem& record) override;
    void Put(const CEmailItem& record) override;
    void Finish() override;
    std::vector<Note> Losses() const override;
    std::vector<std::string> Remarks() const override;

 private:
    template <class Record>
    void Append(const Record& record);
    void Separate();
    void Flush();

    std::ostream& out_;
    std::string buffer_;
    JsonNotes notes_;
    bool empty_ = true;
};

extern const OwnFormat kJsonFormat;

}  // namespace orvale
