#include "command/verbs/DiffJson.h"

#include <nlohmann/json.hpp>

#include "command/formats/FormatTable.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using OrderedJson = nlohmann::ordered_json;

OrderedJson OrNull(const std::optional<std::u16string>& text) {
    return text ? OrderedJson(ToUtf8(*text)) : OrderedJson();
}

OrderedJson OrNull(const std::optional<std::size_t>& number) {
    return number ? OrderedJson(*number) : OrderedJson();
}

OrderedJson ListOf(const std::vector<Change>& changes) {
    OrderedJson list = OrderedJson::array();
    for (const Change& change : changes)
        list.push_back({{"what", change.what}, {"before", OrNull(change.before)}, {"after", OrNull(change.after)}});
    return list;
}

}  // namespace

std::string DiffJson(const FileDifferences& differences) {
    OrderedJson records = OrderedJson::array();
    for (const RecordDifference& each : differences.records)
        records.push_back({{"numbers", {OrNull(each.numbers[0]), OrNull(each.numbers[1])}},
                           {"title", ToUtf8(each.title)},
                           {"changes", ListOf(each.changes)}});
    const OrderedJson all = {{"kind", KindWord(differences.kind)},
                             {"files", differences.files},
                             {"same", differences.same},
                             {"moved", differences.moved},
                             {"profile", ListOf(differences.profile)},
                             {"records", std::move(records)}};
    return all.dump(2, ' ', false, OrderedJson::error_handler_t::replace) + "\n";
}

}  // namespace orvale
