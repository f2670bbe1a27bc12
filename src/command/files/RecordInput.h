#pragma once

#include <any>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "command/formats/FormatTable.h"
#include "command/formats/Kinds.h"
#include "host/Flatten.h"
#include "host/RecordFile.h"
#include "platform/Interrupt.h"
#include "platform/TemporaryFile.h"

namespace orvale {

/// By this name standard input and standard output are meant.
constexpr std::string_view kStandardStream = "-";

/// A file to be read: what the user named, and the format that was named with it or found.
struct InputName {
    std::string name;  ///< what lines about it call it
    std::string path;
    const FormatRow* format;
    bool formatNamed;
    SharedProfile columns = nullptr;                       ///< of a file of columns; none for the built-in captions
    std::shared_ptr<const TemporaryFile> spool = nullptr;  ///< that holds what standard input gave
};

/// An open file that gives its records one after the other, whatever its format. What can't be opened ends the work
/// with an error line.
class RecordInput {
 public:
    RecordInput(const LoadedLibrary& library, const InputName& input);

    Kind GetKind() const { return own_ ? own_->GetKind() : *input_.format->kind; }
    const InputName& Name() const { return input_; }

    /// The profile that the file carries, or none.
    const SharedProfile& GetProfile() const { return profile_; }

    /// How many records that could not be read were passed over so far, in a format that goes on behind them.
    std::size_t PassedOver() const { return passedOver_; }

    // A format of the command's own answers like a native file that is in order.
    std::int32_t FileVersion() { return file_ ? file_->FileVersion() : 1; }
    bool HeaderRead() const { return headerRead_; }
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
    std::optional<std::uint64_t> BrokenAt();

    /// Once Next gave null: what of the file found no place in a record, as far as its format tells.
    std::vector<Note> Notes() const { return own_ ? own_->Notes() : std::vector<Note>(); }

 private:
    template <class Record>
    const Record* NextOfOwn() {
        auto& record = record_.emplace<Record>();
        return own_->Next(record) ? &record : nullptr;
    }

    template <class Record>
    const Record* NextOfFile() {
        const Record* record = headerRead_ && !ended_ ? file_->Read<Record>() : nullptr;
        if (input_.format->endRule == EndRule::kAskAgain && headerRead_ && !ended_) record = AskAgain(record);
        ended_ = record == nullptr || IsCutRecord(*record);
        if (record == nullptr) RequireEnd();
        if (ended_) return nullptr;
        wholeEnd_ = file_->Position();
        return record;
    }

    void RequireEnd();

    // Tells the end from records that can't be read, of which the file object gives 0 as well: it is asked until a
    // record comes. Behind the end that is the first one again.
    template <class Record>
    const Record* AskAgain(const Record* record) {
        std::size_t zeros = 0;
        while (record == nullptr) {
            if (++zeros > mostZeros_) return nullptr;  // no record at all
            record = file_->Read<Record>();
        }
        if (zeros == 0 && !firstRecord_.empty()) return record;
        std::u16string flat;
        Flatten(*record, flat);
        const bool isFirst = firstRecord_.empty();
        const bool startedOver = !isFirst && flat == firstRecord_;
        // Of the zeros before a record that comes again, one is the end and those before the first were counted.
        const std::size_t counted = startedOver ? 1 + leadingZeros_ : 0;
        passedOver_ += zeros > counted ? zeros - counted : 0;
        if (isFirst) {
            leadingZeros_ = zeros;
            firstRecord_ = std::move(flat);
        }
        return startedOver ? nullptr : record;
    }

    template <class Record>
    bool IsCutRecord(const Record&) const {
        return false;
    }
    bool IsCutRecord(const CSMSItem& sms) const;

    InputName input_;
    std::optional<RecordFile> file_;
    std::unique_ptr<RecordSource> own_;
    std::any record_;  // of a format of the command's own
    SharedProfile profile_;
    std::u16string firstRecord_;  // as one text; empty before there is one
    std::size_t leadingZeros_ = 0;
    std::size_t mostZeros_ = 1;  // more than the file has records
    std::size_t passedOver_ = 0;
    bool headerRead_ = true;
    std::int32_t verifyCode_ = VERIFY_OK;
    std::uint64_t length_ = 0;
    std::uint64_t wholeEnd_ = 0;  // where the last whole record ends
    bool ended_ = false;
    std::size_t count_ = 0;
};

/// Ends the work with a usage error where standard input is named more than once.
void RequireOneStandardInput(std::span<const std::string> names);

/// The inputs that names stand for, each with the format of `formatName` if that isn't empty, else with the one that is
/// found. A folder stands for the vCalendar files in it, in the order of their names, numbers in them by their value.
/// "-" is standard input, read to its end. Ends the work where a file isn't there or nothing tells its format.
std::vector<InputName> ResolveInputs(const std::vector<std::string>& names, const std::string& formatName);

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
