#pragma once

// One open file that gives its records, whatever its format.

#include <any>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "command/files/InputName.h"
#include "host/RecordReader.h"
#include "platform/Interrupt.h"

namespace orvale {

/// An open file that gives its records one after the other, whatever its format. What can't be opened or read ends the
/// work with an error line.
class RecordInput {
 public:
    RecordInput(const LoadedLibrary& library, const InputName& input);

    Kind GetKind() const { return own_ ? own_->GetKind() : *input_.format->kind; }
    const InputName& Name() const { return input_; }

    /// The profile that the file carries, or none.
    const SharedProfile& GetProfile() const { return profile_; }

    /// How many records that could not be read were passed over so far, in a format that goes on behind them.
    std::size_t PassedOver() const { return reader_ ? reader_->PassedOver() : 0; }

    // A format of the command's own answers like a native file that is in order.
    std::int32_t FileVersion() { return file_ ? file_->FileVersion() : 1; }
    bool HeaderRead() const { return own_ || reader_; }
    std::int32_t Verify() const { return verifyCode_; }

    /// The next record, good until the next call; null at the end, which may be a damaged one.
    template <class Record>
    const Record* Next() {
        ThrowIfInterrupted();
        const Record* const record = own_ ? NextOfOwn<Record>() : NextOfFile<Record>();
        if (record != nullptr) ++count_;
        return record;
    }

    /// How many records came whole so far.
    std::size_t Count() const { return count_; }

    /// Once Next gave null: the offset at which a damaged record begins; none if the file is whole.
    std::optional<std::uint64_t> BrokenAt() const;

    /// Once Next gave null: what of the file found no place in a record, as far as its format tells.
    std::vector<Note> Notes() const { return own_ ? own_->Notes() : std::vector<Note>(); }

 private:
    template <class Record>
    const Record* NextOfOwn() {
        auto& record = record_.emplace<Record>();
        return own_->Next(record) ? &record : nullptr;
    }

    template <class Record>
    const Record* NextOfFile() try {
        return reader_ ? reader_->Next<Record>() : nullptr;
    } catch (const std::runtime_error& error) {
        FailRecord(error.what());
    }
    [[noreturn]] void FailRecord(std::string_view reason) const;

    void OpenFile(const LoadedLibrary& library);

    InputName input_;
    std::unique_ptr<RecordSource> own_;  // of a format of the command's own, whose records stand in record_
    std::any record_;
    std::optional<RecordFile> file_;      // of a format of the module
    std::optional<RecordReader> reader_;  // once its header was read
    SharedProfile profile_;
    std::int32_t verifyCode_ = VERIFY_OK;
    std::size_t count_ = 0;
};

/// Where a damaged record begins, in words.
std::string PlaceOfDamage(const RecordInput& input, std::uint64_t offset);

/// "2 records could not be read and were passed over".
std::string PassedOverText(std::size_t count);

/// Why a header that couldn't be read could not be, as far as its format and the verify code tell.
std::string HeaderReason(const RecordInput& input);

/// Ends the work with the reason where the header couldn't be read.
void RequireHeader(const RecordInput& input);

/// The same, and where the verify code is a bad one and the format wasn't named; a bad code of a named format is told.
void RequireReadable(const RecordInput& input);

}  // namespace orvale
