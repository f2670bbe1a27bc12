// Messages and mails in a listing.
#include "command/show/RecordPrinter.h"
#include "command/show/Titles.h"
#include "command/show/Wording.h"
#include "host/Facts.h"
#include "platform/Format.h"
#include "platform/Terminal.h"
#include "platform/Text.h"

namespace orvale {

void RecordPrinter<CSMSItem>::Print(const CSMSItem& sms) {
    if (count_++ != 0) screen_.EndLine();
    constexpr std::size_t kTimeWidth = 20;  // any text may stand here; the usual one has 19 characters
    const bool fits = DisplayWidth(sms.time) <= kTimeWidth;
    screen_.Put(fits ? Screen::Fit(sms.time, kTimeWidth) : Visible(sms.time), Screen::Style::kQuiet);
    screen_.Put(" ");
    const NamedValue* const box = FindValue(kSmsBoxTypes, sms.listtype);
    screen_.Put(Screen::Fit(box != nullptr ? FromUtf8(box->caption) : Format(u"box %d", sms.listtype), 11),
                Screen::Style::kLabel);
    screen_.Put(" ");
    screen_.Put(OtherParty(sms), Screen::Style::kTitle);
    std::u16string marks;
    if (sms.status != 0) marks += Format(u"  status %d", sms.status);
    if (sms.storageid != 0) marks += u"  " + FromUtf8(ValueCaption(kSmsStorages, sms.storageid));
    if (sms.smstype != 0) marks += Format(u"  type %d", sms.smstype);
    screen_.Put(marks, Screen::Style::kQuiet);
    screen_.EndLine();
    if (sms.content.empty()) return;
    screen_.Put("    ");
    screen_.PutBlock(sms.content, 4);
}

void RecordPrinter<CEmailItem>::Print(const CEmailItem& email) {
    if (count_++ != 0) screen_.EndLine();
    screen_.Put(TitleOf(email), Screen::Style::kTitle);
    screen_.EndLine();
    const auto row = [&](const char* label, std::u16string_view value) {
        if (!value.empty()) screen_.Row(label, value);
    };
    row("from", email.from);
    row("to", email.to);
    row("cc", email.cc);
    row("bcc", email.bcc);
    if (!email.sent.IsNone()) row("sent", DateText(email.sent));
    if (!email.received.IsNone()) row("received", DateText(email.received));
    std::u16string box = email.box;
    if (email.type != 0) box += (box.empty() ? u"" : u", ") + FromUtf8(ValueCaption(kEmailBoxTypes, email.type));
    if (!email.folder.empty()) box += (box.empty() ? u"" : u", ") + email.folder;
    row("box", box);
    if (email.status != 0) row("status", FromUtf8(FlagsCaption(kEmailStatus, email.status)));
    if (email.device != 0) row("storage", FromUtf8(ValueCaption(kEmailDevices, email.device)));
    row("account", email.account);
    if (email.importance != 0) row("importance", FromUtf8(ValueCaption(kEmailImportances, email.importance)));
    if (email.symbol != 0) row("flag", FromUtf8(ValueCaption(kEmailSymbols, email.symbol)));
    if (email.sensitivity != 0) row("sensitivity", FromUtf8(ValueCaption(kEmailSensitivities, email.sensitivity)));
    row("attachments", Joined(email.accessory));
    row("identifier", email.entryid);
    if (email.body.empty()) return;
    screen_.EndLine();
    screen_.Put("    ");
    screen_.PutBlock(email.body, 4);
}

}  // namespace orvale
