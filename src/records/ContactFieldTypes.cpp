#include "records/ContactFieldTypes.h"

#include <algorithm>
#include <iterator>

const ContactFieldType* FindContactFieldType(std::int32_t id) {
    const auto* const found =
        std::lower_bound(std::begin(kContactFieldTypes), std::end(kContactFieldTypes), id,
                         [](const ContactFieldType& row, std::int32_t key) { return row.id < key; });
    return found != std::end(kContactFieldTypes) && found->id == id ? found : nullptr;
}

std::string ContactFieldCaption(std::int32_t id) {
    const ContactFieldType* const row = FindContactFieldType(id);
    return row != nullptr ? std::string(row->caption) : "type " + std::to_string(id);
}
