#include "command/verbs/ResultsJson.h"

#include <nlohmann/json.hpp>

#include "command/formats/FormatTable.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using OrderedJson = nlohmann::ordered_json;

std::string Dump(const OrderedJson& value) {
    return value.dump(2, ' ', false, OrderedJson::error_handler_t::replace) + "\n";
}

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

std::string FormatsJson() {
    OrderedJson list = OrderedJson::array();
    for (const FormatRow& row : FormatTable()) {
        OrderedJson object;
        object["name"] = row.name;
        object["kind"] = row.kind ? OrderedJson(KindWord(*row.kind)) : OrderedJson();
        object["extension"] = row.extension;
        object["type"] = row.type ? OrderedJson(static_cast<FileType>(*row.type)) : OrderedJson();
        object["reads"] = row.Reads();
        object["writes"] = row.writes;
        list.push_back(std::move(object));
    }
    return Dump(list);
}

std::string InfoJson(const std::vector<FileInfo>& infos, bool asList) {
    OrderedJson list = OrderedJson::array();
    for (const FileInfo& info : infos) {
        OrderedJson object;
        object["file"] = info.file;
        object["format"] = info.format;
        object["kind"] = info.kind;
        object["fileVersion"] = info.fileVersion;
        object["verify"] = {{"code", info.verifyCode}, {"name", info.verifyName}};
        object["header"] = info.header ? 1 : 0;
        object["records"] = info.records;
        object["truncated"] = info.truncated;
        list.push_back(std::move(object));
    }
    if (asList) return Dump(list);
    return list.empty() ? std::string() : Dump(list.front());
}

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
    return Dump(all);
}

}  // namespace orvale
