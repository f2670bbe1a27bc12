// The messages on the page: a thread for each number.
#include <algorithm>

#include "command/html/Sections.h"
#include "command/show/Wording.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// Whether messages of a box came from the phone's owner.
bool IsOwn(std::int32_t box) {
    return box == SMS_BOX_OUTBOX || box == SMS_BOX_DRAFT || box == SMS_BOX_SENT || box == SMS_BOX_PRESET ||
           box == SMS_BOX_QUICK_TEXT;
}

Markup Marks(const CSMSItem& sms) {
    const Pieces& pieces = Pieces::OfPage();
    Markup marks;
    if (sms.listtype != SMS_BOX_INBOX && sms.listtype != SMS_BOX_SENT) {
        const NamedValue* const box = FindValue(kSmsBoxTypes, sms.listtype);
        pieces.Add(marks, "bubble-mark",
                   {{"text", box != nullptr ? Capitalised(box->caption) : "Box " + std::to_string(sms.listtype)}});
    }
    if (sms.storageid != SMS_STORAGE_NONE)
        pieces.Add(marks, "bubble-number", {{"text", ValueCaption(kSmsStorages, sms.storageid)}});
    if (sms.status != 0) pieces.Add(marks, "bubble-number", {{"text", "status " + std::to_string(sms.status)}});
    if (sms.smstype != 0) pieces.Add(marks, "bubble-number", {{"text", "type " + std::to_string(sms.smstype)}});
    return marks;
}

Markup Bubble(const CSMSItem& sms, const std::optional<CalendarFields>& moment) {
    const Pieces& pieces = Pieces::OfPage();
    const bool own = IsOwn(sms.listtype);
    const bool pending = sms.listtype == SMS_BOX_DRAFT || sms.listtype == SMS_BOX_OUTBOX;
    Markup time;
    if (moment)
        time = pieces.Make("bubble-time", {{"moment", IsoMoment(*moment)},
                                           {"clock", Format(u"%02d:%02d", moment->hour, moment->minute)}});
    else if (!sms.time.empty())
        time = pieces.Make("bubble-odd-time", {{"text", sms.time}});
    const Markup text =
        sms.content.empty() ? pieces.Make("no-text", {{"text", "No text"}}) : TextMarkup(pieces, sms.content);
    return pieces.Make("bubble", {{"side", !own      ? "i"
                                           : pending ? "o p"
                                                     : "o"},
                                  {"way", own ? "Sent" : "Received"},
                                  {"text", text},
                                  {"marks", Marks(sms)},
                                  {"time", time}});
}

// The number without the country and without what stands for it within the country.
std::u16string_view NationalNumber(std::u16string_view number) {
    constexpr std::size_t kShortest = 7;  // below, a number is one of a service
    return number.size() > kShortest && number[0] == u'0' && number[1] != u'0' ? number.substr(1)
                                                                               : std::u16string_view();
}

}  // namespace

std::u16string PlainNumber(std::u16string_view number) {
    std::u16string plain;
    for (const char16_t unit : number) {
        if ((unit >= u'0' && unit <= u'9') || (unit == u'+' && plain.empty()))
            plain += unit;
        else if (std::u16string_view(u" -./()\u00A0").find(unit) == std::u16string_view::npos)
            return std::u16string(number);  // no number, but the name of a service, or something else yet
    }
    if (plain.starts_with(u"00")) plain.replace(0, 2, u"+");
    return plain == u"+" ? std::u16string() : plain;
}

void MessageSection::Put(const CSMSItem& sms) {
    const std::u16string number = PlainNumber(sms.phonenumber);
    Thread& thread = threads_[number.empty() ? u" " + sms.name : number];
    if (!sms.phonenumber.empty()) thread.numbers.PlaceOf(sms.phonenumber);
    const auto moment = MomentOf(sms.time);
    const std::int64_t order = moment ? OrderOf(*moment) : INT64_MAX;
    const std::int64_t age = moment ? order : INT64_MIN;  // one without a moment doesn't stand for its thread
    if (thread.messages.empty() || age >= thread.latest) {
        thread.latest = age;
        thread.snippet = Snippet(sms.content, 80);
        if (!sms.name.empty()) thread.name = sms.name;
    }
    if (thread.name.empty()) thread.name = sms.name;
    thread.messages.push_back({order, count_++, thread.names.PlaceOf(sms.name), moment, Bubble(sms, moment)});
}

// A number as it is dialled within a country belongs to the one that is the same with a country in front, if there is
// one such number alone.
void MessageSection::MergeNationalNumbers() {
    constexpr std::size_t kEnd = 7;      // digits by which candidates are found
    constexpr std::size_t kCountry = 4;  // the plus, and three digits at most
    constexpr std::size_t kMany = 8;     // so many that end alike tell nothing, and aren't looked through
    std::map<std::u16string, std::vector<std::u16string>> byEnd;
    for (const auto& [number, thread] : threads_)
        if (number.starts_with(u'+') && number.size() > kEnd)
            byEnd[number.substr(number.size() - kEnd)].push_back(number);
    const auto internationalOf = [&](std::u16string_view national) {
        const std::u16string* only = nullptr;
        if (national.size() < kEnd) return only;
        const auto found = byEnd.find(std::u16string(national.substr(national.size() - kEnd)));
        if (found == byEnd.end() || found->second.size() > kMany) return only;
        for (const std::u16string& each : found->second) {
            if (!each.ends_with(national) || each.size() > national.size() + kCountry) continue;
            if (only != nullptr) return static_cast<const std::u16string*>(nullptr);
            only = &each;
        }
        return only;
    };
    for (auto place = threads_.begin(); place != threads_.end();) {
        const std::u16string* const whole = internationalOf(NationalNumber(place->first));
        if (whole != nullptr) threads_[*whole].Take(place->second);
        place = whole != nullptr ? threads_.erase(place) : std::next(place);
    }
}

void MessageSection::Thread::Take(Thread& from) {
    for (std::size_t i = 0; i < from.numbers.size(); ++i)
        numbers.PlaceOf(from.numbers[i]);
    for (Message& message : from.messages) {
        message.name = names.PlaceOf(from.names[message.name]);
        messages.push_back(std::move(message));
    }
    if (name.empty()) name = from.name;
    if (from.latest <= latest) return;
    latest = from.latest;
    snippet = from.snippet;
    if (!from.name.empty()) name = from.name;
}

void MessageSection::Write(std::ostream& out, const ContactSection& contacts) {
    const Pieces& pieces = Pieces::OfPage();
    MergeNationalNumbers();
    std::vector<Thread*> order;
    for (auto& [number, thread] : threads_) {
        thread.title = thread.name.empty() ? contacts.NameOfNumber(number) : thread.name;
        if (thread.title.empty()) thread.title = thread.numbers.size() == 0 ? u"Without a number" : thread.numbers[0];
        std::sort(thread.messages.begin(), thread.messages.end(), [](const Message& a, const Message& b) {
            return a.order != b.order ? a.order < b.order : a.number < b.number;
        });
        order.push_back(&thread);
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const Thread* a, const Thread* b) { return a->latest > b->latest; });

    Markup links;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const Thread& thread = *order[i];
        const auto dated = std::find_if(thread.messages.rbegin(), thread.messages.rend(),
                                        [](const Message& message) { return message.moment.has_value(); });
        pieces.Add(links, "thread-link",
                   {{"number", i},
                    {"colour", ColourOf(thread.title)},
                    {"initials", Avatar(thread.title)},
                    {"title", thread.title},
                    {"date", dated == thread.messages.rend() ? std::string() : ShortDay(*dated->moment)},
                    {"snippet", thread.snippet},
                    {"count", CountText(thread.messages.size())}});
    }
    orvale::Write(out, pieces.Make("sms-begin", {{"threads", links}}));
    if (order.empty())
        orvale::Write(out, pieces.Make("empty", {{"icon", "sms"}, {"text", "There are no messages in here."}}));
    for (std::size_t i = 0; i < order.size(); ++i) {
        WriteThread(out, *order[i], i);
        order[i]->messages = {};
    }
    orvale::Write(out, pieces.Make("section-end"));
}

void MessageSection::WriteThread(std::ostream& out, const Thread& thread, std::size_t number) const {
    const Pieces& pieces = Pieces::OfPage();
    Markup below;
    for (std::size_t i = 0; i < thread.numbers.size(); ++i)
        if (thread.numbers[i] != thread.title) pieces.Add(below, "thread-number", {{"number", thread.numbers[i]}});
    const std::size_t count = thread.messages.size();
    below += TextMarkup(pieces, FromUtf8(CountText(count) + (count == 1 ? " message" : " messages")));
    orvale::Write(out, pieces.Make("thread-begin", {{"number", number},
                                                    {"colour", ColourOf(thread.title)},
                                                    {"initials", Avatar(thread.title)},
                                                    {"title", thread.title},
                                                    {"below", below}}));
    constexpr std::size_t kBlock = 100;  // so many at most are laid out together
    const Message* before = nullptr;
    std::size_t inBlock = 0;
    const std::u16string* who = &thread.title;
    for (const Message& message : thread.messages) {
        const bool sameDay = before != nullptr &&
                             (message.moment ? SameDay(*message.moment, *before->moment) : !before->moment.has_value());
        if (!sameDay || inBlock == kBlock) {
            if (before != nullptr) orvale::Write(out, pieces.Make("flow-end"));
            if (sameDay)
                orvale::Write(out, pieces.Make("flow-more"));
            else
                orvale::Write(
                    out, pieces.Make("flow-begin", {{"day", message.moment ? DayText(*message.moment) : u"No date"}}));
            inBlock = 0;
        }
        const std::u16string& name = thread.names[message.name];
        if (!name.empty() && name != *who) {
            orvale::Write(out, pieces.Make("who", {{"name", name}}));
            who = &name;
        }
        orvale::Write(out, message.html);
        before = &message;
        ++inBlock;
    }
    orvale::Write(out, pieces.Make("flow-end"));
    orvale::Write(out, pieces.Make("thread-end"));
}

}  // namespace orvale
