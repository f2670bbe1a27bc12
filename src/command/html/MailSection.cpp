// The mails on the page: a list and a reading pane.
#include <algorithm>

#include "command/html/Sections.h"
#include "command/show/Wording.h"
#include "host/Facts.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// "Sofia" of "Sofia <sofia@example.net>"; the whole where it isn't of that form.
std::u16string NameOfAddress(std::u16string_view address) {
    const std::size_t open = address.find(u'<');
    std::u16string_view name = Trim(address.substr(0, open));
    if (name.size() >= 2 && name.front() == u'"' && name.back() == u'"') name = Trim(name.substr(1, name.size() - 2));
    return std::u16string(name.empty() ? Trim(address) : name);
}

bool IsOwn(std::int32_t box) {
    return box == EMAILBOX_OUTBOX || box == EMAILBOX_SENT || box == EMAILBOX_DRAFT;
}

// The other party, as the list shows it.
std::u16string PartyOf(const CEmailItem& email) {
    const std::u16string& address = IsOwn(email.type) ? email.to : email.from;
    std::u16string name = NameOfAddress(Snippet(address, 80));
    if (!name.empty()) return name;
    return IsOwn(email.type) ? u"Nobody yet" : u"Unknown";
}

std::u16string BoxOf(const CEmailItem& email) {
    if (!email.box.empty()) return email.box;
    return email.type == 0 ? u"No box" : FromUtf8(Capitalised(ValueCaption(kEmailBoxTypes, email.type)));
}

std::u16string MomentText(const DateValue& date) {
    const auto fields = FieldsOf(date);
    return fields ? DayText(*fields) + u", " + ClockText(*fields) : DateText(date);
}

Markup Chips(const CEmailItem& email) {
    const Pieces& pieces = Pieces::OfPage();
    Markup chips;
    const auto add = [&](std::string_view what, ValueTable table, std::int32_t value) {
        pieces.Add(chips, "chip", {{"text", std::string(what) + ValueCaption(table, value)}});
    };
    if (!email.folder.empty()) pieces.Add(chips, "chip", {{"text", email.folder}});
    if (email.importance != EMAIL_IMPORTANCE_NONE && email.importance != EMAIL_IMPORTANCE_NORMAL)
        add("Importance: ", kEmailImportances, email.importance);
    if (email.symbol != EMAIL_SYMBOL_NONE) add("Flag: ", kEmailSymbols, email.symbol);
    if (email.sensitivity != EMAIL_SENSITIVTY_NONE && email.sensitivity != EMAIL_SENSITIVTY_NORMAL)
        add("Sensitivity: ", kEmailSensitivities, email.sensitivity);
    return chips.empty() ? chips : pieces.Make("chips", {{"label", "Marks"}, {"chips", chips}});
}

Markup HeadRows(const CEmailItem& email) {
    Rows rows(Pieces::OfPage());
    const auto row = [&](const char* what, std::u16string_view value) {
        if (!value.empty()) rows.Add("", what, value);
    };
    row("from", email.from);
    row("to", email.to);
    row("cc", email.cc);
    row("bcc", email.bcc);
    if (!email.sent.IsNone()) row("sent", MomentText(email.sent));
    if (!email.received.IsNone()) row("received", MomentText(email.received));
    rows.AddQuiet("box", email.box + FromUtf8(", box type " + std::to_string(email.type)));
    if (email.status != 0) rows.AddQuiet("status", FromUtf8(FlagsCaption(kEmailStatus, email.status)));
    if (email.device != 0) rows.AddQuiet("storage", FromUtf8(ValueCaption(kEmailDevices, email.device)));
    if (!email.account.empty()) rows.AddQuiet("account", email.account);
    if (email.importance == EMAIL_IMPORTANCE_NORMAL) rows.AddQuiet("importance", u"normal");
    if (email.sensitivity == EMAIL_SENSITIVTY_NORMAL) rows.AddQuiet("sensitivity", u"normal");
    if (!email.entryid.empty()) rows.AddQuiet("identifier", email.entryid);
    return rows.Html();
}

Markup Attachments(const CEmailItem& email) {
    const Pieces& pieces = Pieces::OfPage();
    Markup files;
    for (const std::u16string& name : email.accessory)
        pieces.Add(files, "attachment", {{"name", name}});
    return files.empty() ? files : pieces.Make("attachments", {{"files", files}});
}

Markup MarksInList(const CEmailItem& email) {
    const Pieces& pieces = Pieces::OfPage();
    Markup marks;
    const auto add = [&](const char* icon, const char* what) {
        pieces.Add(marks, "mail-mark", {{"what", what}, {"icon", pieces.Make("icon", {{"name", icon}})}});
    };
    if (!email.accessory.empty()) add("clip", "with attachments");
    if (email.importance == EMAIL_IMPORTANCE_HIGH) add("flag", "important");
    return marks;
}

}  // namespace

void MailSection::Put(const CEmailItem& email) {
    const Pieces& pieces = Pieces::OfPage();
    const std::size_t number = mails_.size();
    const std::u16string party = PartyOf(email);
    const std::u16string subject = email.subject.empty() ? u"(no subject)" : email.subject;
    const auto received = FieldsOf(email.received);
    const auto moment = received ? received : FieldsOf(email.sent);
    const bool unread = (email.status & EMAIL_UNREAD) != 0;
    Mail mail{email.type, BoxOf(email), moment ? OrderOf(*moment) : INT64_MIN, {}, {}};
    mail.link = pieces.Make("mail-link", {{"number", number},
                                          {"class", unread ? "unread" : "read"},
                                          {"colour", ColourOf(party)},
                                          {"initials", Avatar(party)},
                                          {"party", party},
                                          {"date", moment ? ShortDay(*moment) : std::string()},
                                          {"subject", Snippet(subject, 80)},
                                          {"snippet", Snippet(email.body, 80)},
                                          {"marks", MarksInList(email)}});
    const Markup body = email.body.empty() ? pieces.Make("no-text", {{"text", "This mail has no text."}})
                                           : TextMarkup(pieces, email.body);
    mail.html = pieces.Make("mail", {{"number", number},
                                     {"subject", subject},
                                     {"colour", ColourOf(party)},
                                     {"initials", Avatar(party)},
                                     {"rows", HeadRows(email)},
                                     {"chips", Chips(email)},
                                     {"body", body},
                                     {"attachments", Attachments(email)}});
    mails_.push_back(std::move(mail));
}

void MailSection::Write(std::ostream& out) {
    const Pieces& pieces = Pieces::OfPage();
    std::stable_sort(mails_.begin(), mails_.end(), [](const Mail& a, const Mail& b) {
        if (a.boxType != b.boxType) return a.boxType < b.boxType;
        return a.box != b.box ? a.box < b.box : a.order > b.order;
    });
    Markup boxes;
    for (std::size_t first = 0; first < mails_.size();) {
        Markup links;
        std::size_t end = first;
        for (; end < mails_.size() && mails_[end].boxType == mails_[first].boxType &&
               mails_[end].box == mails_[first].box;
             ++end)
            links += mails_[end].link;
        pieces.Add(boxes, "box", {{"name", mails_[first].box}, {"count", CountText(end - first)}, {"mails", links}});
        first = end;
    }
    orvale::Write(out, pieces.Make("email-begin", {{"boxes", boxes}}));
    if (mails_.empty())
        orvale::Write(out, pieces.Make("empty", {{"icon", "email"}, {"text", "There are no mails in here."}}));
    for (const Mail& mail : mails_)
        orvale::Write(out, mail.html);
    orvale::Write(out, pieces.Make("section-end"));
}

}  // namespace orvale
