#pragma once

#include <ctime>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Clock.h"
#include "records/ContactItem.h"

namespace orvale {

/// The field objects of the contact that was read last, for the one that is read next: making and freeing them and
/// their texts costs as much as all the rest of a reading.
class FieldStock {
 public:
    /// Clears a contact and keeps its fields: as many as people's contacts have, and none with a huge text.
    void Clear(CContactItem& contact) {
        constexpr std::size_t kMost = 64;
        constexpr std::size_t kLongest = 1024;
        for (auto& field : contact.fields)
            if (field && stock_.size() < kMost && field->Data.capacity() + field->extraText.capacity() <= kLongest)
                stock_.push_back(std::move(field));
        contact.Clear(PresentDate());
    }

    /// A field like a new one.
    std::unique_ptr<CContactField> Take() {
        if (stock_.empty()) return std::make_unique<CContactField>();
        std::unique_ptr<CContactField> field = std::move(stock_.back());
        stock_.pop_back();
        field->Clear();
        return field;
    }

 private:
    // A contact is cleared with the present date, for which the zone is asked when the second changes.
    const DateValue& PresentDate() {
        const std::time_t moment = Now();
        if (moment != moment_) {
            moment_ = moment;
            date_ = DateValue::Now();
        }
        return date_;
    }

    std::vector<std::unique_ptr<CContactField>> stock_;
    std::optional<std::time_t> moment_;
    DateValue date_;
};

}  // namespace orvale
