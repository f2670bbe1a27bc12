#include "command/RecordOutput.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>

#include "command/CommandError.h"

namespace orvale {

RecordOutput::RecordOutput(const LoadedLibrary& library, const Format& format, Kind kind,
                           const std::filesystem::path& path, std::string shownName)
    : path_(path), shownName_(std::move(shownName)) {
    try {
        if (format.type) {
            file_.emplace(library, *format.type);
            file_->Open(path, OpenMode::kCreate);
            if (!file_->WriteHeader()) FailWrite();
        } else {
            stream_.open(path, std::ios::binary | std::ios::trunc);
            if (!stream_) throw std::system_error(errno, std::generic_category());
            document_.emplace(stream_, kind);
        }
    } catch (const std::system_error& error) {
        FailFile(shownName_, "", error.code().message());
    }
}

void RecordOutput::Finish() {
    if (file_) file_->Close();
    if (!document_) return;
    document_->Finish();
    stream_.close();
    if (!stream_) FailWrite();
}

// The native file turns around the order of groups that share a bucket, and so does a copy of the contact: a copy comes
// out of the file in the order that its source had.
bool RecordOutput::WriteToFile(const CContactItem& contact) {
    const bool hasOrder = std::any_of(contact.fields.begin(), contact.fields.end(),
                                      [](const auto& field) { return field && field->groups.size() > 1; });
    return hasOrder ? file_->Write(CContactItem(contact)) : file_->Write(contact);
}

// The slots tell no reason for a failed write: the one that people meet is looked for.
void RecordOutput::FailWrite() const {
    std::error_code error;
    const std::filesystem::space_info space = std::filesystem::space(path_.parent_path(), error);
    const bool full = !error && space.available < 64 * 1024;
    FailFile(shownName_, count_ == 0 ? "" : "record " + std::to_string(count_),
             full ? "the disk is full" : "can't be written");
}

}  // namespace orvale
