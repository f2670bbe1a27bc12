#include "text/CSVColumns.h"

#include <algorithm>

#include "platform/Text.h"

namespace orvale {

CSVColumns::CSVColumns(const CCSVProfile& profile) {
    const std::size_t count = std::min(profile.typeIds.size(), profile.captions.size());
    columns_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::u16string_view caption = profile.captions[i];
        const auto type = static_cast<std::int32_t>(profile.typeIds[i]);
        columns_.push_back({std::u16string(caption.substr(0, caption.find(u'\0'))), type});
        if (typePlaces_.Find(type) == nullptr) {
            typePlaces_.Set(type, types_.size());
            types_.emplace_back();
        }
        types_[*typePlaces_.Find(type)].places.push_back(i);
    }
}

std::int32_t CSVColumns::TypeOf(std::u16string_view caption) const {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const Column& column) { return EqualsNoCase(column.caption, caption); });
    return found != columns_.end() ? found->type : -1;
}

void CSVColumns::StartRow() {
    for (ColumnsOfType& type : types_)
        type.taken = 0;
}

std::optional<std::size_t> CSVColumns::Take(std::int32_t type) {
    const std::size_t* const place = typePlaces_.Find(type);
    if (place == nullptr) return std::nullopt;
    ColumnsOfType& columns = types_[*place];
    if (columns.taken == columns.places.size()) {
        columns.places.push_back(columns_.size());
        columns_.push_back({columns_[columns.places.front()].caption, type});
    }
    return columns.places[columns.taken++];
}

}  // namespace orvale
