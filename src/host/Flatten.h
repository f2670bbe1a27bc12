#pragma once

// All that a record says as one text, to see whether two are equal.

#include <bit>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "host/RecordValues.h"

namespace orvale {

/// Lines up all that a record says as one text, by its VisitValues function: two records say the same
/// exactly when their texts are equal. Costs no memory for a text that is filled again and again.
class FlatWriter {
 public:
    explicit FlatWriter(std::u16string& out) : out_(out) {}

    void Int(const char*, std::int32_t member) { Number(static_cast<std::uint32_t>(member)); }
    void Int(const char* key, std::int32_t member, std::int32_t) { Int(key, member); }
    void NamedInt(const char* key, std::int32_t member, NameOfNumber) { Int(key, member); }
    void UInt(const char*, std::uint32_t member) { Number(member); }
    void UInt(const char* key, std::uint32_t member, std::uint32_t) { UInt(key, member); }
    void Date(const char*, const DateValue& member) {
        const auto bits = std::bit_cast<std::uint64_t>(member.Value());
        Number(static_cast<std::uint32_t>(bits >> 32));
        Number(static_cast<std::uint32_t>(bits));
    }
    void Text(const char*, const std::u16string& member) {
        Number(static_cast<std::uint32_t>(member.size()));
        out_ += member;
    }
    void OptionalText(const char* key, const std::u16string& member) { Text(key, member); }
    void Texts(const char* key, const std::vector<std::u16string>& member) {
        Number(static_cast<std::uint32_t>(member.size()));
        for (const std::u16string& text : member)
            Text(key, text);
    }
    void OptionalGroups(const char* key, const HashMap<std::u16string>& member) {
        Number(static_cast<std::uint32_t>(member.size()));
        for (const auto& pair : member) {
            Int(key, pair.key);
            Text(key, pair.value);
        }
    }
    template <class T, class Visit>
    void List(const char*, const std::vector<std::unique_ptr<T>>& member, Visit visit) {
        Number(static_cast<std::uint32_t>(member.size()));
        for (const auto& item : member)
            if (item) visit(*this, *item);
    }

 private:
    void Number(std::uint32_t number) {
        const char16_t halves[] = {static_cast<char16_t>(number >> 16), static_cast<char16_t>(number)};
        out_.append(halves, std::size(halves));
    }

    std::u16string& out_;
};

/// Puts the record's text in place of what `out` held.
template <class Record>
void Flatten(const Record& record, std::u16string& out) {
    out.clear();
    FlatWriter writer(out);
    VisitValues(writer, record);
}

}  // namespace orvale
