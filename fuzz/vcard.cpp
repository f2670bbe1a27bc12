#include <algorithm>
#include <iterator>

#include "platform/Text.h"
#include "support/RecordFiles.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

constexpr std::size_t kLongestLine = 2048;  // with its line end

// Types that are written quoted where they need it; all else goes out as it is.
constexpr std::int32_t kQuoted[] = {3002, 4000, 4006, 4007};

// Types of which each has a key of its own: what is written under it is read under it.
constexpr std::int32_t kOwnKey[] = {102,  103,  104,  105,  106,  107,  108,  109,  110,  111,
                                    112,  113,  114,  115,  116,  117,  118,  119,  120,  121,
                                    3002, 4000, 4003, 4005, 4006, 4007, 4008, 4009, 4032, 4035};

bool IsOneOf(std::int32_t type, const auto& types) {
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

// What contacts say in the types that keep their key, blanks around a value aside.
struct Said {
    void operator()(const CContactItem& contact) {
        auto& values = contacts.emplace_back();
        for (auto& [type, value] : FieldsOf(contact)) {
            const bool raw = !IsOneOf(type, kQuoted);
            breaksLine = breaksLine || (raw && value.find(u"\r\n") != std::u16string::npos);
            // What is written raw and has a "=" in it is decoded.
            const bool keeps = IsOneOf(type, kOwnKey) && !(raw && value.find(u'=') != std::u16string::npos);
            if (const std::u16string_view trimmed = Trim(value); keeps && !trimmed.empty())
                values.emplace_back(type, trimmed);
        }
    }

    std::vector<std::vector<std::pair<std::int32_t, std::u16string>>> contacts;
    bool breaksLine = false;
};

}  // namespace

// A contact that is written and read says the same in every type that has a key of its own, unless a value breaks a
// line or a line is too long for a reader. The other types shift by the format's own rules: names, addresses, numbers
// that count.
ORVALE_FUZZ_TARGET("vcard") {
    const Scratch copy("copy");
    Said first;
    CopyInput<CContactItem>(FileFormat::kVCard, input, FileFormat::kVCard, copy,
                            [&](const auto& each) { first(each); });
    if (first.contacts.empty()) return;
    MustTellFormat(copy, FileFormat::kVCard);
    if (first.breaksLine || LongestLine(copy.Get()) > kLongestLine) return;
    Said second;
    Read<CContactItem>(FileFormat::kVCard, copy.Path(), kNothing, [&](const auto& each) { second(each); });
    Must(second.contacts == first.contacts, "contacts say what they said before");
}
