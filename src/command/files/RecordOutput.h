#pragma once

// One output, written beside its place, whatever its format.

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "command/formats/FormatTable.h"
#include "host/RecordFile.h"
#include "platform/AtomicFile.h"
#include "platform/PendingFolder.h"

namespace orvale {

/// An output being written, whatever its format, beside the place that it takes at Commit. A format whose files hold
/// one record gets a folder of files, "00001.vcs" and on, as soon as there is a second record. What can't be written
/// ends the work with an error line.
class RecordOutput {
 public:
    /// Failures call it `shownName`. A target that is there is replaced only where `replaces` says so, also one that
    /// comes into being meanwhile; it is held against other programs until then.
    RecordOutput(const LoadedLibrary& library, const FormatRow& format, Kind kind, std::string target,
                 std::string shownName, bool replaces, SharedProfile profile, const OutputOptions& options);

    template <class Record>
    void Put(const Record& record) {
        if (OneRecordAFile() && count_ != 0) NextFile();
        ++count_;
        const bool written = own_ ? (own_->Put(record), static_cast<bool>(stream_)) : WriteToFile(record);
        if (!written) FailWrite();
    }

    /// Ends the output; it is whole only then.
    void Finish();

    /// Where the whole output can be read, before it has its place: one file, or those of the folder in their order.
    const std::vector<std::string>& Files() const { return files_; }

    /// Puts the output in its place.
    void Commit();

    /// What was lost in writing that the reading back doesn't tell, and what else the user should know, a line each.
    std::vector<Note> Losses() const { return own_ ? own_->Losses() : std::vector<Note>(); }
    std::vector<std::string> Remarks() const { return own_ ? own_->Remarks() : std::vector<std::string>(); }

 private:
    // The captions of a file of columns come last: its writer adds columns as it goes.
    bool HeaderComesLast() const { return format_.profile == ProfileShape::kColumns; }
    bool OneRecordAFile() const { return format_.endRule == EndRule::kOneRecord; }
    void HoldTarget();
    void OpenFile(const std::string& path);
    void NextFile();
    template <class Record>
    bool WriteToFile(const Record& record) {
        return file_->Write(record);
    }
    bool WriteToFile(const CContactItem& contact);
    bool WriteOnOneLine(const CContactItem& contact);
    [[noreturn]] void FailWrite(bool atRecord = true) const;

    const LoadedLibrary& library_;
    const FormatRow& format_;
    std::string target_;
    std::string shownName_;
    bool replaces_;
    SharedProfile profile_;
    CFile held_;  // the target that is to be replaced
    std::optional<AtomicFile> single_;
    std::optional<PendingFolder> folder_;
    std::vector<std::string> files_;
    std::optional<RecordFile> file_;
    std::ofstream stream_;
    std::unique_ptr<RecordSink> own_;
    std::size_t count_ = 0;
};

}  // namespace orvale
