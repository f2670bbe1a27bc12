#include "command/files/RecordOutput.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>

#include "command/console/CommandError.h"
#include "platform/Text.h"

namespace orvale {
namespace {

namespace fs = std::filesystem;

// The name of a file of a folder: its number with five digits, or as many as it takes.
std::string NumberedName(std::size_t number, std::string_view extension) {
    std::string digits = std::to_string(number);
    digits.insert(0, digits.size() < 5 ? 5 - digits.size() : 0, '0');
    return digits.append(extension);
}

}  // namespace

RecordOutput::RecordOutput(const LoadedLibrary& library, const FormatRow& format, Kind kind, std::string target,
                           std::string shownName, bool replaces, SharedProfile profile, const OutputOptions& options)
    : library_(library),
      format_(format),
      target_(std::move(target)),
      shownName_(std::move(shownName)),
      replaces_(replaces),
      profile_(std::move(profile)) {
    // What may become a folder may be named as one.
    while (OneRecordAFile() && target_.size() > 1 && target_.ends_with('/'))
        target_.pop_back();
    try {
        HoldTarget();
        single_.emplace(target_);
        files_.push_back(single_->TemporaryPath());
        if (format.own == nullptr) {
            OpenFile(files_.back());
        } else {
            stream_.open(files_.back(), std::ios::binary | std::ios::trunc);
            if (!stream_) throw std::system_error(errno, std::generic_category());
            own_ = format.own->create(stream_, kind, profile_, options);
        }
    } catch (const std::system_error& error) {
        FailFile(shownName_, "", SystemReason(error.code()));
    }
}

// What can't be opened for another reason is judged by the writing.
void RecordOutput::HoldTarget() {
    std::error_code error;
    const bool there = fs::exists(fs::path(target_), error);
    if (there && held_.Open(FromUtf8(target_).c_str(), CFile::kModeRead | CFile::kShareExclusive, &error) == 0 &&
        error == std::errc::device_or_resource_busy)
        throw std::system_error(error);
}

void RecordOutput::OpenFile(const std::string& path) {
    file_.emplace(library_, *format_.type);
    file_->Open(path, OpenMode::kCreate);
    if (profile_) file_->Slots().SetProfile(AddressOf(profile_));
    if (!HeaderComesLast() && !file_->WriteHeader()) FailWrite();
}

void RecordOutput::NextFile() {
    try {
        file_.reset();
        if (!folder_) {
            if (fs::exists(fs::symlink_status(target_)))
                FailFile(shownName_, "", "is a file, and several records go to a new folder");
            folder_.emplace(target_);
            const fs::path first = folder_->Path() / NumberedName(1, format_.extension);
            fs::rename(files_.front(), first);
            files_.front() = first.string();
            single_.reset();
        }
        files_.push_back((folder_->Path() / NumberedName(count_ + 1, format_.extension)).string());
        OpenFile(files_.back());
    } catch (const std::system_error& error) {
        FailFile(shownName_, "record " + std::to_string(count_ + 1), SystemReason(error.code()));
    }
}

void RecordOutput::Finish() {
    if (count_ == 0 && OneRecordAFile())
        FailFile(shownName_, "",
                 "there is no record to write, and the format " + std::string(format_.name) + " needs one");
    if (file_ && HeaderComesLast() && !file_->WriteHeader()) FailWrite();
    if (file_ && !file_->Close()) FailWrite(false);
    if (!own_) return;
    own_->Finish();
    stream_.close();
    if (!stream_) FailWrite();
}

void RecordOutput::Commit() {
    try {
        if (folder_)
            folder_->Commit();
        else
            single_->Commit(replaces_ ? AtomicFile::Existing::kReplaced : AtomicFile::Existing::kKept);
    } catch (const std::system_error& error) {
        FailFile(shownName_, "", SystemReason(error.code()));
    }
}

// The native file turns around the order of groups that share a bucket, and so does a copy of the contact: a copy comes
// out of the file in the order that its source had.
bool RecordOutput::WriteToFile(const CContactItem& contact) {
    if (format_.profile == ProfileShape::kColumns) return WriteOnOneLine(contact);
    const bool hasOrder = std::any_of(contact.fields.begin(), contact.fields.end(),
                                      [](const auto& field) { return field && field->groups.size() > 1; });
    return hasOrder ? file_->Write(CContactItem(contact)) : file_->Write(contact);
}

// A CSV file has one line for a contact, whatever its quotes: a line end in a value would make two contacts of one. It
// becomes a blank, and the reading back tells that.
bool RecordOutput::WriteOnOneLine(const CContactItem& contact) {
    constexpr std::u16string_view kLineEnd = u"\r\n";
    const bool breaks = std::any_of(contact.fields.begin(), contact.fields.end(), [&](const auto& field) {
        return field && field->Data.find(kLineEnd) != std::u16string::npos;
    });
    if (!breaks) return file_->Write(contact);
    CContactItem copy(contact);
    for (const auto& field : copy.fields)
        if (field) field->Data = Replace(field->Data, kLineEnd, u" ");
    return file_->Write(copy);
}

// The slots tell no reason for a failed write: the one that people meet is looked for.
void RecordOutput::FailWrite(bool atRecord) const {
    std::error_code error;
    const fs::space_info space = fs::space(fs::path(files_.back()).parent_path(), error);
    const bool full = !error && space.available < 64 * 1024;
    FailFile(shownName_, count_ == 0 || !atRecord ? "" : "record " + std::to_string(count_),
             full ? "the disk is full" : "can't be written");
}

}  // namespace orvale
