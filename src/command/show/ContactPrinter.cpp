// Contacts in a listing.
#include "command/show/RecordPrinter.h"
#include "command/show/Titles.h"
#include "platform/Format.h"

namespace orvale {
namespace {

std::u16string GroupsOf(const CContactItem& contact) {
    std::u16string groups;
    for (const auto& field : contact.fields) {
        if (!field) continue;
        for (const auto& group : field->groups) {
            if (!groups.empty()) groups += u", ";
            groups += group.value.empty() ? Format(u"group %d", group.key) : group.value;
        }
    }
    return groups;
}

// "(5 text)", or one of the two alone.
std::u16string ExtrasOf(const CContactField& field) {
    if (field.extraText.empty()) return Format(u"(%u)", field.extraNumber);
    return field.extraNumber == 0 ? u"(" + field.extraText + u")"
                                  : Format(u"(%u %s)", field.extraNumber, field.extraText);
}

}  // namespace

void RecordPrinter<CContactItem>::Print(const CContactItem& contact) {
    if (count_++ != 0) screen_.EndLine();
    const std::u16string title = TitleOf(contact);
    screen_.Put(title, Screen::Style::kTitle);
    if (const std::u16string groups = GroupsOf(contact); !groups.empty()) {
        screen_.Put("  ");
        screen_.Put(u"[" + groups + u"]", Screen::Style::kQuiet);
    }
    screen_.EndLine();
    if (contact.Storage != 0) screen_.Row("storage", Format(u"%d", contact.Storage));
    for (const auto& field : contact.fields) {
        if (!field) continue;
        const bool inTitle = field->Type == CF_FULL_NAME && (field->Data == title || field->Data.empty());
        if (!inTitle) screen_.Row(ContactFieldCaption(field->Type), field->Data);
        if (field->extraNumber != 0 || !field->extraText.empty())
            screen_.Row(inTitle ? "full name" : "", ExtrasOf(*field));
    }
}

}  // namespace orvale
