#pragma once

// Several inputs, read as one; where each ends and what is wrong with it is judged here.

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "command/files/Fingerprint.h"
#include "command/files/RecordInput.h"

namespace orvale {

/// Several inputs of one kind, opened one after the other and read as one.
class JoinedInputs {
 public:
    /// The names must outlive the object.
    JoinedInputs(const LoadedLibrary& library, const std::vector<InputName>& names)
        : library_(library), names_(names), brokenAt_(names.size()) {}

    template <class Record>
    const Record* Next() {
        while (place_ < names_.size()) {
            if (!input_) OpenNext();
            if (const auto* record = input_->Next<Record>()) {
                if (onlyUnique && !IsNew(*record)) continue;
                ++count_;
                return record;
            }
            JudgeEnd();
            ++place_;
            input_.reset();
        }
        return nullptr;
    }

    /// How many records came so far.
    std::size_t Count() const { return count_; }

    /// Whether a record that equals an earlier one is left out. Takes some 80 bytes of memory a record.
    bool onlyUnique = false;

    /// How many of them were left out.
    std::size_t LeftOut() const { return leftOut_; }

    /// Where each input that was read is damaged; none for one that is whole.
    const std::vector<std::optional<std::uint64_t>>& BrokenAt() const { return brokenAt_; }

    /// The profile of the first input that has one, of those that were opened.
    const SharedProfile& FirstProfile() const { return profile_; }

    /// How many records that could not be read were passed over.
    std::size_t PassedOver() const { return passedOver_; }

    /// The name of the first input that had such records.
    const std::string& PassedOverIn() const { return passedOverIn_; }

    /// What of the inputs found no place in a record, as far as their formats tell.
    const std::vector<Note>& Notes() const { return notes_; }

    /// Called at each file that holds no record where one is due; without it such a file ends the work.
    std::function<void(const std::string& line)> onEmpty;

    /// Called at each damaged end with the file and its place, "record 18, byte 2045".
    std::function<void(const std::string& file, const std::string& place)> onDamage;

 private:
    template <class Record>
    bool IsNew(const Record& record) {
        const bool isNew = seen_.insert(FingerprintOf(record, buffer_)).second;
        leftOut_ += isNew ? 0 : 1;
        return isNew;
    }
    void OpenNext();
    void JudgeEnd();

    const LoadedLibrary& library_;
    const std::vector<InputName>& names_;
    std::vector<std::optional<std::uint64_t>> brokenAt_;
    SharedProfile profile_;
    std::size_t passedOver_ = 0;
    std::string passedOverIn_;
    std::vector<Note> notes_;
    std::size_t place_ = 0;
    std::size_t count_ = 0;
    std::size_t leftOut_ = 0;
    std::set<Fingerprint> seen_;
    std::u16string buffer_;
    std::unique_ptr<RecordInput> input_;
};

/// What inputs have in common.
struct InputsInfo {
    Kind kind;
    SharedProfile profile;  ///< of the first that has one
    std::string profileOf;  ///< the name of that input
};

/// Opens each input once to see that it can be read and that all hold one kind, `kind` if that is given. Ends the work
/// with an error line where one doesn't.
InputsInfo RequireReadable(const LoadedLibrary& library, const std::vector<InputName>& names, std::optional<Kind> kind);

}  // namespace orvale
