#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "command/FormatTable.h"
#include "command/json/JsonDocument.h"
#include "host/RecordFile.h"

namespace orvale {

/// A file being written, whatever its format. What can't be written ends the work with an error line.
class RecordOutput {
 public:
    /// `path` is where the bytes go, `shownName` what the user calls it.
    RecordOutput(const LoadedLibrary& library, const Format& format, Kind kind, const std::filesystem::path& path,
                 std::string shownName);

    template <class Record>
    void Put(const Record& record) {
        ++count_;
        if (document_)
            document_->Put(record);
        else if (!WriteToFile(record))
            FailWrite();
        if (document_ && !stream_) FailWrite();
    }

    /// Ends the file; it is whole only then.
    void Finish();

    std::size_t Count() const { return count_; }

    /// How many surrogate halves a JSON document could not tell.
    std::size_t Replaced() const { return document_ ? document_->Replaced() : 0; }

 private:
    template <class Record>
    bool WriteToFile(const Record& record) {
        return file_->Write(record);
    }
    bool WriteToFile(const CContactItem& contact);
    [[noreturn]] void FailWrite() const;

    std::filesystem::path path_;
    std::string shownName_;
    std::optional<RecordFile> file_;
    std::ofstream stream_;
    std::optional<JsonDocumentWriter> document_;
    std::size_t count_ = 0;
};

}  // namespace orvale
