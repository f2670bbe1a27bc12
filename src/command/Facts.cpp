#include "command/Facts.h"

#include "platform/Format.h"

namespace orvale {

std::vector<Fact> FactsOf(const CContactItem& contact) {
    std::vector<Fact> facts;
    if (contact.Storage != 0) facts.push_back({"storage", Format(u"%d", contact.Storage)});
    for (const auto& field : contact.fields) {
        if (!field) continue;
        const std::string caption = ContactFieldCaption(field->Type);
        facts.push_back({caption, field->Data});
        if (field->extraNumber != 0) facts.push_back({"extra numbers", Format(u"%u", field->extraNumber)});
        if (!field->extraText.empty()) facts.push_back({"extra texts", field->extraText});
        for (const auto& group : field->groups)
            facts.push_back({"groups", Format(u"%d %s", group.key, group.value)});
    }
    return facts;
}

}  // namespace orvale
