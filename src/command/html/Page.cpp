#include "command/html/Page.h"

#include <utility>

#include "command/formats/FormatTable.h"
#include "command/formats/Kinds.h"
#include "command/html/EmbeddedPage.h"
#include "command/json/ProfileJson.h"
#include "platform/Text.h"

namespace orvale {
namespace {

struct SectionRow {
    Kind kind;
    const char* id;
    const char* name;
};

// In the order of the tabs.
constexpr SectionRow kSections[] = {
    {Kind::kContacts, "contacts", "Contacts"},
    {Kind::kCalendar, "calendar", "Calendar"},
    {Kind::kSms, "sms", "Messages"},
    {Kind::kEmail, "email", "Mail"},
};

// Counts halves of characters in the texts of a record.
class HalfCounter {
 public:
    std::size_t count = 0;

    void Int(const char*, std::int32_t) {}
    void Int(const char*, std::int32_t, std::int32_t) {}
    void UInt(const char*, std::uint32_t, std::uint32_t) {}
    void NamedInt(const char*, std::int32_t, NameOfNumber) {}
    void Date(const char*, const DateValue&) {}
    void Text(const char*, const std::u16string& text) {
        if (!IsWellFormed(text)) ToUtf8(text, &count);
    }
    void OptionalText(const char* key, const std::u16string& text) { Text(key, text); }
    void OptionalGroups(const char* key, const HashMap<std::u16string>& groups) {
        for (const auto& group : groups)
            Text(key, group.value);
    }
    void Texts(const char* key, const std::vector<std::u16string>& texts) {
        for (const std::u16string& text : texts)
            Text(key, text);
    }
    template <class Fields, class Visit>
    void List(const char*, const Fields& fields, Visit visit) {
        for (const auto& field : fields)
            if (field) visit(*this, std::as_const(*field));
    }
};

template <class Record>
std::size_t HalvesIn(const Record& record) {
    HalfCounter counter;
    VisitValues(counter, record);
    return counter.count;
}

}  // namespace

void Page::Put(const CContactItem& contact) {
    halves_ += HalvesIn(contact);
    contacts_.Put(contact);
}

void Page::Put(const CCalendarItem& item) {
    halves_ += HalvesIn(item);
    calendar_.Put(item);
}

void Page::Put(const CSMSItem& sms) {
    halves_ += HalvesIn(sms);
    messages_.Put(sms);
}

void Page::Put(const CEmailItem& email) {
    halves_ += HalvesIn(email);
    mails_.Put(email);
}

void Page::AddProfile(const SharedProfile& profile, bool withPasswords) {
    if (!profile) return;
    const Pieces& pieces = Pieces::OfPage();
    Rows rows(pieces);
    for (const Fact& fact : FactsOf(profile, withPasswords))
        rows.AddQuiet(fact.what, fact.value);
    profiles_.push_back(pieces.Make("profile", {{"rows", rows.Html()}}));
}

void Page::Write(std::ostream& out) {
    const Pieces& pieces = Pieces::OfPage();
    const std::array counts{contacts_.Count(), calendar_.Count(), messages_.Count(), mails_.Count()};
    Markup tabs;
    std::string title;
    for (const SectionRow& row : kSections) {
        const auto place = static_cast<std::size_t>(row.kind);
        if (!expected_.at(place) && counts.at(place) == 0) continue;
        pieces.Add(tabs, "tab", {{"id", row.id}, {"name", row.name}, {"count", CountText(counts.at(place))}});
        title += (title.empty() ? "" : ", ") + std::string(row.name);
    }
    orvale::Write(out, pieces.Make("page-begin", {{"policy", kPagePolicy},
                                                  {"title", title},
                                                  {"style", Pieces::Style()},
                                                  {"script", Pieces::Script()},
                                                  {"tabs", tabs}}));
    const auto has = [&](Kind kind) {
        const auto place = static_cast<std::size_t>(kind);
        return expected_.at(place) || counts.at(place) != 0;
    };
    if (has(Kind::kContacts)) contacts_.Write(out);
    if (has(Kind::kCalendar)) calendar_.Write(out);
    if (has(Kind::kSms)) messages_.Write(out, contacts_);
    if (has(Kind::kEmail)) mails_.Write(out);
    for (const Markup& profile : profiles_)
        orvale::Write(out, profile);
    orvale::Write(out, pieces.Make("page-end"));
}

}  // namespace orvale
