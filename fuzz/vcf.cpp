#include "command/exchange/VcfFormat.h"

#include <algorithm>
#include <tuple>

#include "platform/Text.h"
#include "support/OwnFormats.h"
#include "support/RecordFiles.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

constexpr std::size_t kLongestLine = 75 + 2;  // with its line end

// A text as far as a vCard can hold it: of lines that end in CR LF, without control characters.
std::u16string Held(const std::u16string& text) {
    std::u16string held;
    const std::u16string whole = FromUtf8(ToUtf8(text));  // lone halves of characters are none
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const char16_t unit = whole[i];
        if (unit == u'\r' && i + 1 < whole.size() && whole[i + 1] == u'\n') continue;
        if (unit == u'\r' || unit == u'\n')
            held += u"\r\n";
        else if (unit == u'\t' || (unit >= u' ' && unit != 0x7F))
            held += unit;
    }
    return held;
}

using Group = std::pair<std::int32_t, std::u16string>;
using Field = std::tuple<std::int32_t, std::u16string, std::vector<Group>, std::uint32_t, std::u16string>;

// What a card says, its fields in an order of their own.
struct Card {
    explicit Card(const CContactItem& contact) : storage(contact.Storage) {
        for (const auto& field : contact.fields) {
            std::vector<Group> groups;
            for (const auto& group : field->groups)
                groups.emplace_back(group.key, Held(group.value));
            fields.emplace_back(field->Type, Held(field->Data), std::move(groups), field->extraNumber,
                                Held(field->extraText));
        }
        std::sort(fields.begin(), fields.end());
    }
    bool operator==(const Card&) const = default;

    std::int32_t storage;
    std::vector<Field> fields;
};

std::vector<Card> CardsOf(const OwnFile<CContactItem>& file) {
    std::vector<Card> cards;
    for (const auto& contact : file.records)
        cards.emplace_back(*contact);
    return cards;
}

}  // namespace

// Cards say the same when they were written, as 3.0 or as 4.0, and read, but for the order of a card's values and for
// control characters. No line is longer than one should be, and whether the module's reader takes a file can be asked
// of any.
ORVALE_FUZZ_TARGET("vcf") {
    const OwnFile<CContactItem> first = ReadOwnInput<CContactItem>(kVcfFormat, input);
    VCardReaderTakesAll(Scratch("input", input).Path());
    const std::vector<Card> cards = CardsOf(first);
    for (const char* const version : {"3.0", "4.0"}) {
        OutputOptions options;
        options.vcardVersion = version;
        const std::string bytes = WriteOwn(kVcfFormat, first.records, options);
        Must(LongestLine(bytes) <= kLongestLine, "no line is longer than it should be");
        Must(CardsOf(ReadWritten<CContactItem>(kVcfFormat, bytes)) == cards, "cards say what they said before");
    }
}
