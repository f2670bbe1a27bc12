#include <algorithm>

#include "support/RecordFiles.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

constexpr std::size_t kLongestLine = 2047;  // with its line end

// What contacts say, each one's fields in an order of their own, as columns have theirs. A name that is empty says
// nothing: every contact of a file with its column has it.
struct Said {
    void operator()(const CContactItem& contact) {
        auto& fields = contacts.emplace_back(FieldsOf(contact));
        std::erase_if(fields, [](const auto& field) { return field.second.empty(); });
        std::sort(fields.begin(), fields.end());
        for (const auto& [type, value] : fields)
            breaksLine = breaksLine || value.find(u"\r\n") != std::u16string::npos;
    }

    std::vector<std::vector<std::pair<std::int32_t, std::u16string>>> contacts;
    bool breaksLine = false;
};

}  // namespace

// A contact says the same when it was written and read, unless a value holds a line end (one that is a single quote
// does) or a line that was written is too long for a reader.
ORVALE_FUZZ_TARGET("csv") {
    const Scratch copy("copy");
    Said first;
    const Told told = CopyInput<CContactItem>(FileFormat::kCsv, input, FileFormat::kCsv, copy,
                                              [&](const auto& each) { first(each); });
    if (!told.header || first.breaksLine || LongestLine(copy.Get()) > kLongestLine) return;
    Said second;
    Read<CContactItem>(FileFormat::kCsv, copy.Path(), kNothing, [&](const auto& each) { second(each); });
    Must(second.contacts == first.contacts, "contacts say what they said before");
}
