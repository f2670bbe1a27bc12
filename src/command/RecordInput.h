#pragma once

#include <any>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "command/FormatTable.h"
#include "command/json/JsonDocument.h"
#include "host/RecordFile.h"

namespace orvale {

/// A file to be read: what the user named, and the format that was named with it or found.
struct InputName {
    std::string name;
    const Format* format;
    bool formatNamed;
};

/// An open file that gives its records one after the other, whatever its format. What can't be opened ends the work
/// with an error line.
class RecordInput {
 public:
    RecordInput(const LoadedLibrary& library, const InputName& input);

    Kind GetKind() const { return document_ ? document_->GetKind() : *input_.format->kind; }
    const InputName& Name() const { return input_; }

    // A JSON document answers like a native file that is in order.
    std::int32_t FileVersion() { return file_ ? file_->FileVersion() : 1; }
    bool HeaderRead() const { return headerRead_; }
    std::int32_t Verify() const { return verifyCode_; }

    /// The next record, good until the next call; null at the end, which may be a damaged one.
    template <class Record>
    const Record* Next() {
        const Record* const record = document_ ? NextOfDocument<Record>() : NextOfFile<Record>();
        if (record != nullptr) ++count_;
        return record;
    }

    /// How many records came whole so far.
    std::size_t Count() const { return count_; }

    /// Once Next gave null: the offset at which a damaged record begins; none if the file is whole.
    std::optional<std::uint64_t> BrokenAt();

 private:
    template <class Record>
    const Record* NextOfDocument() {
        auto& record = record_.emplace<Record>();
        return document_->Next(record) ? &record : nullptr;
    }

    template <class Record>
    const Record* NextOfFile() {
        const Record* const record = headerRead_ ? file_->Read<Record>() : nullptr;
        if (record != nullptr) wholeEnd_ = file_->Position();
        return record;
    }

    InputName input_;
    std::optional<RecordFile> file_;
    std::optional<JsonDocument> document_;
    std::any record_;  // of a document
    bool headerRead_ = true;
    std::int32_t verifyCode_ = VERIFY_OK;
    std::uint64_t wholeEnd_ = 0;  // where the last whole record ends
    std::size_t count_ = 0;
};

/// The input of a name: its format is the one of `formatName` if that isn't empty, else the one that is found. Ends the
/// work where the file isn't there or nothing tells its format.
InputName ResolveInput(const std::string& name, const std::string& formatName);

/// Ends the work with the code where the header couldn't be read, or the verify code is a bad one and the format wasn't
/// named; a bad code of a named format is told.
void RequireReadable(const RecordInput& input);

}  // namespace orvale
