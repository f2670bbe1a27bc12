#include "Contacts.h"

#include <stdlib.h>
#include <unistd.h>

#include <stdexcept>

#include "platform/Format.h"

namespace orvale::bench {

void MakeContact(std::size_t number, CContactItem& contact) {
    static constexpr const char16_t* kGiven[] = {u"John", u"J\u00FCrgen", u"\u0418\u0432\u0430\u043D", u"Mary Anne"};
    static constexpr const char16_t* kFamily[] = {u"Smith", u"M\u00FCller", u"\u041F\u0435\u0442\u0440\u043E\u0432",
                                                  u"O'Neill"};
    CContactField field;
    const auto add = [&](std::int32_t type, std::u16string data) {
        field.Clear();
        field.Type = type;
        field.Data = std::move(data);
        if (type == CF_GIVEN_NAME) field.SetGroup(static_cast<std::int32_t>(number % 5), u"Friends");
        contact.AddField(field);
    };
    contact.Clear();
    contact.Storage = static_cast<std::int32_t>(number % 2);
    add(CF_GIVEN_NAME, kGiven[number % 4]);
    add(CF_FAMILY_NAME, Format(u"%s-%u", kFamily[number / 4 % 4], number));
    add(CF_TEL_CELL_VOICE, Format(u"+49 171 %07u", number));
    add(CF_TEL_HOME_VOICE, Format(u"+49 89 %06u", number));
    add(CF_EMAIL_PREF, Format(u"someone.%u@mail.example.org", number));
    add(CF_ADR_HOME_STREET, Format(u"Long Street %u", number % 300));
    add(CF_ADR_HOME_CITY, u"Springfield");
    add(CF_ADR_HOME_POSTCODE, Format(u"%05u", number % 100000));
    add(CF_ORG, u"Example Trading Company Ltd");
    if (number % 4 == 0) add(CF_NOTE, u"met at the fair; call back\r\nafter the holidays");
}

std::vector<CContactItem> MakeContacts(std::size_t count) {
    std::vector<CContactItem> contacts(count);
    for (std::size_t i = 0; i < count; ++i)
        MakeContact(i, contacts[i]);
    return contacts;
}

ScratchFile::ScratchFile() : path_((std::filesystem::temp_directory_path() / "orvale-bench-XXXXXX").string()) {
    const int descriptor = mkstemp(path_.data());
    if (descriptor == -1) throw std::runtime_error("no scratch file " + path_);
    close(descriptor);
}

ScratchFile::~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

}  // namespace orvale::bench
