// The contacts on the page: a card each, by letters.
#include <algorithm>
#include <iterator>

#include "command/html/Sections.h"
#include "command/show/Titles.h"
#include "command/show/Wording.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// How a value is shown: where it stands in the card, and its icon.
enum class Look { kPhone, kMail, kWeb, kAddress, kBirthday, kWork, kNote, kOther };

constexpr std::string_view kIcons[] = {"tel", "email", "web", "place", "day", "work", "note", "more"};

// The parts of an address, whose whole has an id of its own.
struct AddressParts {
    std::int32_t whole;
    std::int32_t street, postcode, city, region, regionAgain, country;
    const char* caption;
};

constexpr AddressParts kAddresses[] = {
    {CF_ADR_HOME, CF_ADR_HOME_STREET, CF_ADR_HOME_POSTCODE, CF_ADR_HOME_CITY, CF_ADR_HOME_REGION, CF_ADR_HOME_REGION_2,
     CF_ADR_HOME_COUNTRY, "home address"},
    {CF_ADR_WORK, CF_ADR_WORK_STREET, CF_ADR_WORK_POSTCODE, CF_ADR_WORK_CITY, CF_ADR_WORK_REGION, CF_ADR_WORK_REGION_2,
     CF_ADR_WORK_COUNTRY, "work address"},
    {CF_ADR_POSTAL, CF_ADR_POSTAL_STREET, CF_ADR_POSTAL_POSTCODE, CF_ADR_POSTAL_CITY, CF_ADR_POSTAL_REGION,
     CF_ADR_POSTAL_REGION_2, CF_ADR_POSTAL_COUNTRY, "postal address"},
};

bool IsPartOf(const AddressParts& a, std::int32_t type) {
    return type == a.street || type == a.postcode || type == a.city || type == a.region || type == a.regionAgain ||
           type == a.country || (type == CF_ADR_WORK_EXTENDED && a.whole == CF_ADR_WORK);
}

Look LookOf(std::int32_t type) {
    if (type >= CF_TEL_WORK_VOICE && type <= CF_TEL_TTYTDD) return Look::kPhone;
    if (type >= CF_EMAIL_PREF && type < CF_URL_1) return Look::kMail;
    if (type >= CF_URL_1 && type <= CF_URL_3) return Look::kWeb;
    if (type >= CF_ADR_HOME && type <= CF_ADR_POSTAL) return Look::kAddress;
    switch (type) {
        case CF_ADR_GENERAL:
        case CF_LABEL_HOME:
        case CF_LABEL_WORK:
        case CF_ADR_WORK_EXTENDED:
            return Look::kAddress;
        case CF_BIRTHDAY:
            return Look::kBirthday;
        case CF_ORG:
        case CF_ORG_NAME:
        case CF_ORG_UNIT:
        case CF_TITLE:
        case CF_ROLE:
            return Look::kWork;
        case CF_NOTE:
            return Look::kNote;
        default:
            return Look::kOther;
    }
}

// The parts that a semicolon separates, empty ones too.
std::vector<std::u16string> SemicolonParts(std::u16string_view text) {
    std::vector<std::u16string> parts;
    for (std::size_t end = 0; end != std::u16string_view::npos;) {
        end = text.find(u';');
        parts.emplace_back(Trim(text.substr(0, end)));
        text.remove_prefix(std::min(end, text.size() - 1) + 1);
    }
    return parts;
}

std::u16string WithoutGaps(std::vector<std::u16string> texts, std::u16string_view separator) {
    std::erase(texts, std::u16string());
    return Joined(texts, separator);
}

// An address as it stands on an envelope. Its parts are post box, extension, street, city, region, postcode, country.
std::u16string AddressText(const std::u16string& text) {
    std::vector<std::u16string> parts = SemicolonParts(text);
    if (parts.size() < 6 || parts.size() > 7) return WithoutGaps(std::move(parts), u"\n");
    const std::u16string city = WithoutGaps({parts[5], parts[3]}, u" ");
    return WithoutGaps({parts[0], parts[1], parts[2], city, parts[4], parts.size() == 7 ? parts[6] : u""}, u"\n");
}

// "14 March 1965" of "19650314", also with dashes; any other text as it is.
std::u16string BirthdayText(const std::u16string& text) {
    std::u16string dashed = text;
    if (text.size() == 8 && text.find_first_not_of(u"0123456789") == std::u16string::npos)
        dashed = text.substr(0, 4) + u"-" + text.substr(4, 2) + u"-" + text.substr(6);
    const auto day = MomentOf(dashed);
    return day ? Format(u"%d %s %d", day->day, MonthName(day->month), day->year) : text;
}

std::u16string AddressOfParts(const CContactItem& contact, const AddressParts& a) {
    const auto part = [&](std::int32_t type) { return TextOf(contact, type); };
    const std::u16string city = WithoutGaps({part(a.postcode), part(a.city)}, u" ");
    return WithoutGaps({part(a.street), city, part(a.region), part(a.country)}, u"\n");
}

// One contact's card being put together.
class CardMaker {
 public:
    explicit CardMaker(const CContactItem& contact)
        : contact_(contact),
          title_(TitleOf(contact)),
          workTitle_(TextOf(contact, CF_TITLE)),
          organisation_(TextOf(contact, CF_ORG)) {
        if (organisation_.empty()) organisation_ = TextOf(contact, CF_ORG_NAME);
        for (std::size_t i = 0; i < std::size(kAddresses); ++i) {
            std::u16string whole = TextOf(contact, kAddresses[i].whole);
            isWhole_[i] = !whole.empty();
            addresses_[i] = isWhole_[i] ? std::move(whole) : AddressOfParts(contact, kAddresses[i]);
        }
    }

    const std::u16string& Title() const { return title_; }

    Markup Make() {
        const std::u16string below = Below();
        for (const auto& field : contact_.fields)
            if (field) PutAside(*field);
        std::stable_sort(shown_.begin(), shown_.end(), [](const auto& a, const auto& b) { return a.look < b.look; });
        for (const Shown& each : shown_)
            rows_.Add(kIcons[static_cast<std::size_t>(each.look)], each.what, each.value);
        for (const auto& field : contact_.fields)
            if (field) AddQuietRows(*field);
        if (contact_.Storage != 0) rows_.AddQuiet("storage", contact_.Storage);
        const Markup groups = Groups();
        return pieces_.Make("contact",
                            {{"colour", ColourOf(title_)},
                             {"initials", Avatar(title_)},
                             {"title", title_},
                             {"below", below.empty() ? Markup() : pieces_.Make("contact-below", {{"text", below}})},
                             {"groups", groups},
                             {"rows", rows_.Html()}});
    }

 private:
    struct Shown {
        Look look;
        std::string what;
        Markup value;
    };

    // What a person does and where, in the line below the name.
    std::u16string Below() const {
        const std::u16string organisation = WithoutGaps(SemicolonParts(organisation_), u" · ");
        std::u16string below = WithoutGaps({workTitle_, organisation == workTitle_ ? u"" : organisation}, u" · ");
        return below == title_ ? std::u16string() : below;
    }

    // Whether the value stands in the card already: in the title, in the line below it, in a whole address.
    bool IsToldElsewhere(const CContactField& field) const {
        const auto stands = [&](const std::u16string& text) {
            constexpr std::size_t kMost = 500;  // a longer text isn't searched for each of perhaps very many values
            return text.size() <= kMost && text.find(field.Data) != std::u16string::npos;
        };
        if (field.Type == CF_FULL_NAME) return field.Data == title_;
        if (IsNameType(field.Type) || field.Type == CF_NAME_PREFIX || field.Type == CF_NAME_SUFFIX)
            return stands(title_);
        if (field.Type == CF_TITLE) return field.Data == workTitle_;
        if (field.Type == CF_ORG || field.Type == CF_ORG_NAME) return field.Data == organisation_;
        for (std::size_t i = 0; i < std::size(kAddresses); ++i)
            if (IsPartOf(kAddresses[i], field.Type)) return stands(addresses_[i]);
        return false;
    }

    void PutAside(const CContactField& field) {
        for (std::size_t i = 0; i < std::size(kAddresses); ++i) {
            if (!IsPartOf(kAddresses[i], field.Type) || isWhole_[i] || isMade_[i]) continue;
            isMade_[i] = true;
            Show(Look::kAddress, kAddresses[i].caption, TextMarkup(pieces_, addresses_[i]));
        }
        if (field.Data.empty() || IsToldElsewhere(field)) return;
        Show(LookOf(field.Type), ContactFieldCaption(field.Type), Value(field));
    }

    void Show(Look look, std::string what, Markup value) {
        if (!value.empty()) shown_.push_back({look, std::move(what), std::move(value)});
    }

    Markup Value(const CContactField& field) const {
        const auto plain = [&](const std::u16string& text) { return TextMarkup(pieces_, text); };
        switch (LookOf(field.Type)) {
            case Look::kPhone:
                return PhoneLink(pieces_, field.Data);
            case Look::kMail:
                return MailLink(pieces_, field.Data);
            case Look::kWeb:
                return WebLink(pieces_, field.Data);
            case Look::kBirthday:
                return plain(BirthdayText(field.Data));
            case Look::kAddress:
                return plain(AddressText(field.Data));
            default:
                return plain(field.Data);
        }
    }

    void AddQuietRows(const CContactField& field) {
        const std::string caption = ContactFieldCaption(field.Type);
        if (field.Data.empty())
            rows_.AddQuiet(caption, u"(empty)");
        else if (IsToldElsewhere(field) && field.Type != CF_FULL_NAME)
            rows_.AddQuiet(caption, field.Data);
        if (field.extraNumber != 0) rows_.AddQuiet(caption + ", extra number", field.extraNumber);
        if (!field.extraText.empty()) rows_.AddQuiet(caption + ", extra text", field.extraText);
    }

    Markup Groups() {
        DistinctTexts names;
        for (const auto& field : contact_.fields) {
            if (!field) continue;
            for (const auto& group : field->groups) {
                names.PlaceOf(group.value.empty() ? Format(u"group %d", group.key) : group.value);
                rows_.AddQuiet("group", Format(u"%d %s", group.key, group.value));
            }
        }
        Markup chips;
        for (std::size_t i = 0; i < names.size(); ++i)
            pieces_.Add(chips, "chip", {{"text", names[i]}});
        return chips.empty() ? chips : pieces_.Make("chips", {{"label", "Groups"}, {"chips", chips}});
    }

    const Pieces& pieces_ = Pieces::OfPage();
    const CContactItem& contact_;
    std::u16string title_;
    std::u16string workTitle_;
    std::u16string organisation_;
    std::vector<Shown> shown_;
    std::u16string addresses_[std::size(kAddresses)];  // as the contact has them, or made of their parts
    bool isWhole_[std::size(kAddresses)] = {};
    bool isMade_[std::size(kAddresses)] = {};
    Rows rows_{pieces_};
};

// The names by which a contact is sorted: as it is called, without a doctor in front.
std::u16string SortedName(const CContactItem& contact, const std::u16string& title) {
    const std::u16string names = WithoutGaps(
        {TextOf(contact, CF_GIVEN_NAME), TextOf(contact, CF_MIDDLE_NAME), TextOf(contact, CF_FAMILY_NAME)}, u" ");
    return SortKey(names.empty() ? title : names);
}

}  // namespace

void ContactSection::Put(const CContactItem& contact) {
    CardMaker maker(contact);
    cards_.push_back({SortedName(contact, maker.Title()), maker.Make()});
    for (const auto& field : contact.fields) {
        if (!field || LookOf(field->Type) != Look::kPhone) continue;
        const std::u16string number = PlainNumber(field->Data);
        if (number.empty() || maker.Title() == field->Data) continue;
        const auto [place, isNew] = names_.try_emplace(number, maker.Title());
        if (!isNew && place->second != maker.Title()) place->second.clear();
    }
}

std::u16string ContactSection::NameOfNumber(std::u16string_view plainNumber) const {
    const auto found = names_.find(plainNumber);
    return found == names_.end() ? std::u16string() : found->second;
}

void ContactSection::Write(std::ostream& out) {
    const Pieces& pieces = Pieces::OfPage();
    std::stable_sort(cards_.begin(), cards_.end(), [](const Card& a, const Card& b) {
        const bool aLast = LetterOf(a.key) == u"#";
        const bool bLast = LetterOf(b.key) == u"#";
        return aLast != bLast ? bLast : a.key < b.key;
    });
    Markup letters;
    std::size_t number = 0;
    for (std::size_t i = 0; i < cards_.size(); ++i) {
        const std::u16string letter = LetterOf(cards_[i].key);
        if (i == 0 || letter != LetterOf(cards_[i - 1].key))
            pieces.Add(letters, "letter-link", {{"number", number++}, {"letter", letter}});
    }
    orvale::Write(out, pieces.Make("contacts-begin", {{"letters", letters}}));
    if (cards_.empty())
        orvale::Write(out, pieces.Make("empty", {{"icon", "contacts"}, {"text", "There are no contacts in here."}}));
    number = 0;
    for (std::size_t i = 0; i < cards_.size(); ++i) {
        const std::u16string letter = LetterOf(cards_[i].key);
        if (i == 0 || letter != LetterOf(cards_[i - 1].key)) {
            if (i != 0) orvale::Write(out, pieces.Make("letter-end"));
            orvale::Write(out, pieces.Make("letter-begin", {{"number", number++}, {"letter", letter}}));
        }
        orvale::Write(out, cards_[i].html);
        cards_[i].html = Markup();
    }
    if (!cards_.empty()) orvale::Write(out, pieces.Make("letter-end"));
    orvale::Write(out, pieces.Make("section-end"));
}

}  // namespace orvale
