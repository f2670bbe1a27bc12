#pragma once

// Reading a file as far as it is whole: the end of its records told from a damaged one.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "host/Flatten.h"
#include "host/RecordFile.h"

namespace orvale {

/// The records of a file, up to its end or to where it is damaged; which of the two it was is judged by the EndRule of
/// the format.
///
///     file.Open(path, OpenMode::kRead);
///     if (!file.ReadHeader()) ...
///     RecordReader reader(file);
///     while (const CContactItem* contact = reader.Next<CContactItem>()) ...
///     if (const auto offset = reader.BrokenAt()) ...
class RecordReader {
 public:
    /// The header of the file was read, and none of its records. The file must outlive the reader. Throws
    /// std::runtime_error where the file can't be looked through.
    explicit RecordReader(RecordFile& file);
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

    /// The next whole record, good until the next call; null at the end and behind it. Throws std::runtime_error where
    /// a suite ended for want of memory.
    template <class Record>
    const Record* Next() {
        if (ended_) return nullptr;
        const auto* record = file_.Read<Record>();
        if (format_.endRule == EndRule::kAskAgain) record = AskAgain(record);
        if (record == nullptr) RequireEnd();
        ended_ = record == nullptr || IsCutRecord(*record);
        if (ended_) return nullptr;
        wholeEnd_ = file_.Position();
        return record;
    }

    /// How many records that could not be read were passed over so far, in a format that goes on behind them.
    std::size_t PassedOver() const { return passedOver_; }

    /// Once Next gave null: the offset at which a damaged record begins; none if the file is whole. Throws
    /// std::runtime_error where the file can't be looked through.
    std::optional<std::uint64_t> BrokenAt() const;

 private:
    void RequireEnd();

    // Tells the end from records that can't be read, of which the file object gives 0 as well: it is asked until a
    // record comes. Behind the end that is the first one again.
    template <class Record>
    const Record* AskAgain(const Record* record) {
        std::size_t zeros = 0;
        while (record == nullptr) {
            if (++zeros > mostZeros_) return nullptr;  // no record at all
            record = file_.Read<Record>();
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

    RecordFile& file_;
    const FormatInfo& format_;
    std::uint64_t length_;
    std::uint64_t wholeEnd_;  // where the last whole record ends
    bool ended_ = false;
    std::u16string firstRecord_;  // as one text; empty before there is one
    std::size_t leadingZeros_ = 0;
    std::size_t mostZeros_ = 1;  // more than the file has records
    std::size_t passedOver_ = 0;
};

}  // namespace orvale
