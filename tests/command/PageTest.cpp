#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "command/Program.h"
#include "command/html/EmbeddedPage.h"
#include "command/html/Page.h"
#include "platform/Text.h"
#include "support/PageScan.h"

namespace orvale::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::string PageOf(const std::function<void(Page&)>& fill) {
    Page page;
    fill(page);
    std::ostringstream out;
    page.Write(out);
    return std::move(out).str();
}

// The text in every place of a record that holds text.
CContactItem ContactOf(const std::u16string& text) {
    CContactItem contact;
    for (const ContactFieldType& type : kContactFieldTypes) {
        CContactField field;
        field.Type = type.id;
        field.Data = text;
        field.extraText = text;
        field.SetGroup(1, text);
        contact.AddField(field);
    }
    return contact;
}

CCalendarItem EntryOf(const std::u16string& text) {
    CCalendarItem item;
    item.itemType = PHONE_EVENT_TYPE;
    item.dtstart = DateValue::FromFields({2008, 2, 29, 10, 0, 0});
    for (const std::int32_t type : {3000, 3000, 3002, 3003, 3004, 3012, 4711}) {
        auto field = std::make_unique<CCalendarField>();
        field->Type = type;
        field->Data = text;
        item.fields.push_back(std::move(field));
    }
    item.ring = text;
    return item;
}

CSMSItem MessageOf(const std::u16string& number, const std::u16string& name, const std::u16string& time,
                   const std::u16string& content, std::int32_t box = SMS_BOX_INBOX) {
    CSMSItem sms;
    sms.phonenumber = number;
    sms.name = name;
    sms.time = time;
    sms.content = content;
    sms.listtype = box;
    return sms;
}

CEmailItem MailOf(const std::u16string& text) {
    CEmailItem email;
    for (std::u16string CEmailItem::*member :
         {&CEmailItem::box, &CEmailItem::account, &CEmailItem::folder, &CEmailItem::from, &CEmailItem::to,
          &CEmailItem::cc, &CEmailItem::bcc, &CEmailItem::subject, &CEmailItem::body, &CEmailItem::entryid})
        email.*member = text;
    email.accessory.push_back(text);
    return email;
}

std::string PageOfText(const std::u16string& text) {
    return PageOf([&](Page& page) {
        page.Put(ContactOf(text));
        page.Put(EntryOf(text));
        page.Put(MessageOf(text, text, text, text));
        page.Put(MailOf(text));
    });
}

TEST(PageTest, NoTextBecomesMarkup) {
    const std::u16string kTexts[] = {
        u"<script>alert(1)</script>",
        u"</script><b>",
        u"\"><img src=x onerror=alert(1)>",
        u"' onclick='x",
        u"x\" onclick=\"x",
        u"`<b>`",
        u"<!-- -->",
        u"]]><p>",
        u"<b>bold</b>",
        u"<li>",
        u"&lt<b&#60b>",
        u"{{title}}<i>",
        u"javascript:alert(1)",
        u"data:text/html,<b>",
        u"http://a.example/\" x=\"<b>",
        u"http://a.example/'><b>",
        u"tel:*#06#<b>",
        std::u16string(u"\0<b>\x1b\x7f\x85", 7),
        u"<\xD800>",
        u"\xDC00<b>",
    };
    // The same page of a text that is no more than text; both begin with a letter, which gives the avatar.
    const std::vector<std::string> harmless = TagsOf(PageOfText(u"x plain"));
    EXPECT_EQ(MarkupBeyondTemplate(PageOfText(u"x plain")), "");
    for (const std::u16string& text : kTexts) {
        const std::string page = PageOfText(u"x " + text);
        EXPECT_EQ(MarkupBeyondTemplate(page), "") << ToUtf8(text);
        EXPECT_TRUE(TagsOf(page) == harmless) << ToUtf8(text);
        EXPECT_EQ(MarkupBeyondTemplate(PageOfText(text)), "") << ToUtf8(text);
    }
}

TEST(PageTest, ATextIsEscapedForContentAndForAttributes) {
    constexpr char16_t kText[] = u"<a b=\"c\" d='e'>&`\r\n\r\n\r-\t\0\x1b\x7f\x85\xD800😀";
    std::string html;
    AppendEscaped(html, {kText, std::size(kText) - 1});
    EXPECT_EQ(html, "&lt;a b=&quot;c&quot; d=&#39;e&#39;&gt;&amp;&#96;\n\n\n-\t␀␛␡\xEF\xBF\xBD\xEF\xBF\xBD😀");
}

TEST(PageTest, TheScanSeesMarkupThatTheTemplateDoesNotHave) {
    const std::string good = PageOfText(u"(plain)");
    for (const char* const bad : {"<img>", "<p onclick=\"x\">", "<!-- x -->", "<script>", "<a href=\"javascript:x\">",
                                  "<p dir=\"auto\" x>", "<article class=\"card u\" id=\"a\"b\">", "<"}) {
        std::string page = good;
        page.insert(page.find("(plain)"), bad);
        EXPECT_NE(MarkupBeyondTemplate(page), "") << bad;
    }
}

TEST(PageTest, OnlyWhatIsALinkBeyondDoubtBecomesOne) {
    const Pieces& pieces = Pieces::OfPage();
    const struct {
        Markup (*link)(const Pieces&, std::u16string_view);
        const char16_t* text;
        const char* address;  // null for text alone
    } kCases[] = {
        {PhoneLink, u"+49 (30) 231/25-014", "tel:+493023125014"},
        {PhoneLink, u"110", "tel:110"},
        {PhoneLink, u"*#06#", nullptr},
        {PhoneLink, u"12+34", nullptr},
        {PhoneLink, u"12", nullptr},
        {PhoneLink, u"call me", nullptr},
        {PhoneLink, u"٠١٢٣", nullptr},
        {MailLink, u"ann.lee+x@example.com", "mailto:ann.lee+x@example.com"},
        {MailLink, u"a@b?bcc=c@d", nullptr},
        {MailLink, u"a@b@c", nullptr},
        {MailLink, u"a%0Ab@c", nullptr},
        {MailLink, u"@b", nullptr},
        {MailLink, u"a@.b", nullptr},
        {WebLink, u"http://www.example.com/a?b=c&d#e", "http://www.example.com/a?b=c&amp;d#e"},
        {WebLink, u"HTTPS://example.com:8080", "https://example.com:8080"},
        {WebLink, u"www.example.com", nullptr},
        {WebLink, u"http://user@example.com/", nullptr},
        {WebLink, u"http://a.example:x@b.example/", nullptr},
        {WebLink, u"http://a b/", nullptr},
        {WebLink, u"http:///x", nullptr},
        {WebLink, u"http://ex\u0430mple.com/", nullptr},
        {WebLink, u"javascript://example.com/%0Aalert(1)", nullptr},
        {WebLink, u"http://example.com/\nx", nullptr},
    };
    for (const auto& each : kCases) {
        const std::string html = each.link(pieces, each.text).Html();
        if (each.address == nullptr)
            EXPECT_THAT(html, Not(HasSubstr("<"))) << ToUtf8(each.text);
        else
            EXPECT_THAT(html, HasSubstr("<a href=\"" + std::string(each.address) + "\" rel=\"noopener noreferrer"));
    }
}

TEST(PageTest, EverythingThatARecordSaysStandsInThePage) {
    CCalendarItem item = EntryOf(u"text");
    item.dtend = DateValue::FromFields({2008, 3, 1, 11, 30, 0});
    item.recurtype = RECURS_YEARNTH;
    std::int32_t number = 70001;
    for (std::int32_t CCalendarItem::*member :
         {&CCalendarItem::ringid, &CCalendarItem::vibration, &CCalendarItem::duration, &CCalendarItem::recurday,
          &CCalendarItem::recurmonth, &CCalendarItem::recurinstance, &CCalendarItem::recurweekday,
          &CCalendarItem::recurweekmask, &CCalendarItem::recurinterval, &CCalendarItem::recurrepeat,
          &CCalendarItem::remindermin, &CCalendarItem::priority, &CCalendarItem::reserve1, &CCalendarItem::reserve2,
          &CCalendarItem::category})
        item.*member = number++;
    CSMSItem sms = MessageOf(u"+15550100", u"Zoë", u"2008-03-17 18:04:12", u"Hi\r\nthere", 70016);
    sms.storageid = 70017;
    sms.status = 70018;
    sms.smstype = 70019;
    CEmailItem email = MailOf(u"mail");
    email.type = 70020;
    email.device = 70021;
    email.importance = 70022;
    email.symbol = 70023;
    email.sensitivity = 70024;
    email.status = 0x100;
    email.sent = DateValue::FromFields({2008, 3, 17, 7, 2, 11});
    CContactItem contact;
    contact.Storage = 70025;
    for (const ContactFieldType& type : kContactFieldTypes) {
        CContactField field;
        field.Type = type.id;
        field.Data = u"value" + FromUtf8(std::to_string(type.id)) + u".";
        field.extraNumber = static_cast<std::uint32_t>(80000 + type.id);
        contact.AddField(field);
    }
    const std::string page = PageOf([&](Page& all) {
        all.Put(contact);
        all.Put(item);
        all.Put(sms);
        all.Put(email);
    });
    for (std::int32_t each = 70001; each <= 70025; ++each)
        EXPECT_THAT(page, HasSubstr(std::to_string(each)));
    for (const ContactFieldType& type : kContactFieldTypes) {
        EXPECT_THAT(page, HasSubstr("value" + std::to_string(type.id) + ".")) << type.name;
        EXPECT_THAT(page, HasSubstr(std::to_string(80000 + type.id))) << type.name;
    }
    for (const char* const part : {"2008-02-29", "10:00 – 1 March 2008, 11:30", "Hi\nthere", "2008-03-17T18:04:12",
                                   "Monday, 17 March 2008, 07:02:11", "0x100", "Assistant"})
        EXPECT_THAT(page, HasSubstr(part));
}

// A card says once what its title or the line below it says.
TEST(PageTest, ACardDoesNotSayItsNameTwice) {
    CContactItem contact;
    for (const auto& [type, text] :
         {std::pair(CF_FULL_NAME, u"Dr Ann Lee"), {CF_GIVEN_NAME, u"Ann"}, {CF_FAMILY_NAME, u"Leeds"}}) {
        CContactField field;
        field.Type = type;
        field.Data = text;
        contact.AddField(field);
    }
    const std::string page = PageOf([&](Page& all) { all.Put(contact); });
    const std::string quiet = "<div class=\"x\"><dt><span>";  // beside the phone's own numbers
    EXPECT_THAT(page, HasSubstr(quiet + "Given name"));
    EXPECT_THAT(page, AllOf(HasSubstr("Family name"), Not(HasSubstr(quiet + "Family name"))));
}

// The threads of a page: a title with its messages, in the page's order.
std::vector<std::string> ThreadsOf(const std::string& page) {
    std::vector<std::string> threads;
    const auto textBehind = [&](std::size_t place) {
        const std::size_t start = page.find('>', place) + 1;
        return page.substr(start, page.find('<', start) - start);
    };
    for (std::size_t at = page.find("<h3 id=\"th"); at != std::string::npos; at = page.find("<h3 id=\"th", at + 1)) {
        std::string thread = textBehind(at) + ":";
        const std::size_t end = page.find("</article>", at);
        for (std::size_t p = page.find("<p dir=\"auto\">", at); p < end; p = page.find("<p dir=\"auto\">", p + 1))
            thread += " " + textBehind(p);
        threads.push_back(thread);
    }
    return threads;
}

TEST(PageTest, MessagesAreThreadsByTheOtherParty) {
    const std::string page = PageOf([](Page& all) {
        CContactItem contact;
        CContactField field;
        field.Type = CF_FULL_NAME;
        field.Data = u"Ann";
        contact.AddField(field);
        field.Type = CF_TEL_CELL;
        field.Data = u"0049 171-555";
        contact.AddField(field);
        all.Put(contact);
        all.Put(MessageOf(u"+49171555", u"", u"2008-03-17 18:04:12", u"second"));
        all.Put(MessageOf(u"+49 (171) 555", u"", u"2008-03-17 18:06", u"third", SMS_BOX_SENT));
        all.Put(MessageOf(u"0049171555", u"", u"2008/3/9", u"first"));
        all.Put(MessageOf(u"+49171555", u"", u"yesterday", u"undated"));
        all.Put(MessageOf(u"+491713920055", u"Bo", u"2008-03-18 10:00:00", u"whole"));
        all.Put(MessageOf(u"01713920055", u"", u"2008-03-18 09:00:00", u"national"));
        all.Put(MessageOf(u"+431715550001", u"", u"2008-01-01 00:00:00", u"one"));
        all.Put(MessageOf(u"+491715550001", u"", u"2008-01-02 00:00:00", u"other"));
        all.Put(MessageOf(u"01715550001", u"", u"2008-01-03 00:00:00", u"either"));
        all.Put(MessageOf(u"INFO", u"", u"2007-01-01 00:00:00", u"service"));
        all.Put(MessageOf(u"", u"", u"", u"draft", SMS_BOX_DRAFT));
    });
    EXPECT_THAT(ThreadsOf(page),
                ElementsAre("Bo: national whole", "Ann: first second third undated", "01715550001: either",
                            "+491715550001: other", "+431715550001: one", "INFO: service", "Without a number: draft"));
    EXPECT_THAT(page, HasSubstr("<h4>Monday, 17 March 2008</h4>"));
    EXPECT_THAT(page, HasSubstr("<li class=\"m u o p\">"));
    EXPECT_THAT(page, HasSubstr("<bdi>yesterday</bdi>"));
}

struct RepeatCase {
    const char* name;
    CalendarFields start;
    std::int32_t type, day, month, instance, mask, interval, repeat;
    int until;               // the day of May 2008 that ends it; 0 for none
    std::vector<int> inMay;  // on which days of May 2008 it is drawn
};

class RepeatTest : public testing::TestWithParam<RepeatCase> {};

TEST_P(RepeatTest, IsDrawn) {
    const RepeatCase& each = GetParam();
    CCalendarItem item;
    item.dtstart = DateValue::FromFields(each.start);
    item.recurtype = each.type;
    item.recurday = each.day;
    item.recurmonth = each.month;
    item.recurinstance = each.instance;
    item.recurweekmask = each.mask;
    item.recurinterval = each.interval;
    item.recurrepeat = each.repeat;
    item.recurhasenddate = each.until != 0;
    if (each.until != 0) item.recurenddate = DateValue::FromFields({2008, 5, each.until, 0, 0, 0});
    CCalendarItem other;  // makes 2008 a year that is drawn, wherever the entry begins
    other.dtstart = DateValue::FromFields({2008, 12, 1, 9, 0, 0});
    MonthMarks marks;
    marks.Put(item);
    marks.Put(other);
    marks.Spread();
    const std::string may = marks.Month(2008 * 12 + 4).Html();
    std::vector<int> days;
    for (int day = 1; day <= 31; ++day)
        if (may.find("<span class=\"d\">" + std::to_string(day) + "</span><a") != std::string::npos)
            days.push_back(day);
    EXPECT_EQ(days, each.inMay);
    EXPECT_TRUE(marks.IsWhole());
}

INSTANTIATE_TEST_SUITE_P(
    Page, RepeatTest,
    testing::Values(
        RepeatCase{"Never", {2008, 5, 7, 10, 0, 0}, RECURS_NONE, 0, 0, 0, 0, 1, 0, 0, {7}},
        RepeatCase{"EveryThirdDayUntil", {2008, 4, 29, 10, 0, 0}, RECURS_DAILY, 0, 0, 0, 0, 3, 0, 11, {2, 5, 8, 11}},
        RepeatCase{"ThreeTimesInAll", {2008, 5, 7, 10, 0, 0}, RECURS_DAILY, 0, 0, 0, 0, 1, 3, 0, {7, 8, 9}},
        RepeatCase{
            "Workdays", {2008, 5, 22, 7, 0, 0}, RECURS_WEEKLY, 0, 0, 0, 62, 0, 0, 0, {22, 23, 26, 27, 28, 29, 30}},
        RepeatCase{"EveryOtherWeek",
                   {2008, 5, 5, 7, 0, 0},
                   RECURS_WEEKLY,
                   0,
                   0,
                   0,
                   CAL_MONDAY | CAL_SUNDAY,
                   2,
                   0,
                   0,
                   {5, 11, 19, 25}},
        RepeatCase{"MonthlyOnADate", {2008, 1, 31, 7, 0, 0}, RECURS_MONTHLY, 31, 0, 0, 0, 1, 0, 0, {31}},
        RepeatCase{"MonthlyOnADay", {2008, 1, 15, 7, 0, 0}, RECURS_MONTHLY, 0, 0, 1, CAL_TUESDAY, 1, 0, 0, {20}},
        RepeatCase{"EveryThirdMonth", {2008, 1, 15, 7, 0, 0}, RECURS_MONTHLY, 15, 0, 0, 0, 3, 0, 0, {}},
        RepeatCase{"YearlyFromLongAgo", {1949, 5, 23, 0, 0, 0}, RECURS_YEARLY, 23, 5, 0, 0, 1, 0, 0, {23}},
        RepeatCase{"YearlyOnADay", {1949, 5, 9, 0, 0, 0}, RECURS_YEARLY, 0, 5, 1, CAL_MONDAY, 1, 0, 0, {12}},
        RepeatCase{"NobodyKnowsHow", {2008, 5, 7, 0, 0, 0}, RECURS_MONTHNTH, 7, 5, 1, 2, 1, 0, 0, {7}}),
    [](const auto& each) { return each.param.name; });

// A small calendar may ask for endless repetitions in any number of years.
TEST(PageTest, TheMonthsOfASmallCalendarStaySmall) {
    MonthMarks marks;
    CCalendarItem item;
    for (int year = 100; year <= 9999; year += 50) {
        item.dtstart = DateValue::FromFields({year, 1, 1, 0, 0, 0});
        item.dtend = DateValue::FromFields({9999, 12, 31, 0, 0, 0});
        item.recurtype = RECURS_DAILY;
        marks.Put(item);
    }
    marks.Spread();
    EXPECT_FALSE(marks.IsWhole());
    EXPECT_LT(marks.Months().size(), 50000U);
}

TEST(PageTest, NamesAreSortedAndHaveInitials) {
    const struct {
        const char16_t* name;
        const char16_t* initials;
        const char16_t* letter;
    } kCases[] = {
        {u"Ann Lee", u"AL", u"A"}, {u"émile zola", u"ÉZ", u"E"},  {u"Åberg", u"Å", u"A"},  {u"Ελένη Π", u"ΕΠ", u"Ε"},
        {u"анна и", u"АИ", u"А"},  {u"山田太郎", u"山", u"山"},   {u"+49 171", u"", u"#"}, {u"😀 Zoë", u"Z", u"#"},
        {u"", u"", u"#"},          {u"ŁukaszX Y Z", u"ŁZ", u"L"}, {u"(Anna)", u"A", u"#"}, {u"שרה כהן", u"ש", u"ש"},
    };
    for (const auto& each : kCases) {
        EXPECT_EQ(Initials(each.name), each.initials) << ToUtf8(each.name);
        EXPECT_EQ(LetterOf(SortKey(each.name)), each.letter) << ToUtf8(each.name);
    }
}

class ViewTest : public testing::Test {
 protected:
    ViewTest() {
        folder.Put("a.json",
                   R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [{"type": 5, "data": "Ann"}]}]})");
        folder.Put("b.json", R"({"orvale": 1, "kind": "sms", "records": [{"phonenumber": "1", "content": "Hi"}]})");
    }
    ScratchFolder folder;
};

TEST_F(ViewTest, FilesOfSeveralKindsMakeOnePage) {
    EXPECT_EQ(RunOrvale(folder, "view --output all.html a.json b.json").exitCode, 0);
    const std::string page = folder.Get("all.html");
    EXPECT_THAT(page, HasSubstr("<title>Contacts, Messages</title>"));
    EXPECT_EQ(MarkupBeyondTemplate(page), "");
    const Outcome again = RunOrvale(folder, "view --output all.html a.json");
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_EQ(again.errors, "orvale: all.html: exists already; --force replaces it\n");
    EXPECT_EQ(RunOrvale(folder, "view --force --output all.html a.json").exitCode, 0);
    EXPECT_THAT(folder.Get("all.html"), HasSubstr("<title>Contacts</title>"));
    folder.Put("cut.json", R"({"orvale": 1, "kind": "sms", "records": [{"content": "whole"}, {"content": "cu)");
    const Outcome cut = RunOrvale(folder, "view --output cut.html cut.json");
    EXPECT_EQ(cut.exitCode, 1);
    EXPECT_THAT(cut.errors, HasSubstr("damaged from here on"));
    EXPECT_THAT(folder.Get("cut.html"), HasSubstr("whole"));
}

TEST_F(ViewTest, ColumnsAreKnownByAProfile) {
    folder.Put("in.csv", "Handy\r\n4711\r\n");
    folder.Put("columns.json", R"({"columns": [{"caption": "Handy", "type": 104}]})");
    const Outcome outcome = RunOrvale(folder, "view --output page.html --profile columns.json b.json in.csv");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(folder.Get("page.html"), HasSubstr("4711"));
}

TEST_F(ViewTest, ThePageOpensOnTheDesktopAndOutlivesTheCommand) {
    std::filesystem::create_directory(folder / "bin");
    folder.Put("bin/xdg-open", "#!/bin/sh\nprintf %s \"$1\" >opened\n");
    std::filesystem::permissions(folder / "bin/xdg-open", std::filesystem::perms::owner_all);
    const Outcome outcome = RunOrvale(folder, "view a.json", "TMPDIR=$PWD PATH=$PWD/bin:$PATH");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    const std::filesystem::path opened = folder.Get("opened");
    EXPECT_EQ(outcome.output, opened.string() + "\n");
    EXPECT_EQ(opened.extension(), ".html");
    EXPECT_THAT(folder.Get(opened.filename().string()), HasSubstr("Ann"));
    using std::filesystem::perms;
    EXPECT_EQ(status(folder / opened.filename().string()).permissions(), perms::owner_read | perms::owner_write);

    const Outcome none = RunOrvale(folder, "view a.json", "TMPDIR=$PWD PATH=$PWD/none");
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_THAT(none.errors, testing::MatchesRegex("orvale: .*/orvale-[A-Za-z0-9]+\\.html: the page is here; there is "
                                                   "no xdg-open to open it with\n"));
    folder.Put("bin/xdg-open", "#!/bin/sh\nexit 3\n");
    EXPECT_THAT(RunOrvale(folder, "view a.json", "TMPDIR=$PWD PATH=$PWD/bin:$PATH").errors,
                HasSubstr("the page is here; xdg-open found no browser to open it with"));
}

TEST_F(ViewTest, APageIsAFormatThatIsOnlyWritten) {
    EXPECT_EQ(RunOrvale(folder, "convert --strict a.json a.html").exitCode, 0);
    EXPECT_THAT(folder.Get("a.html"), HasSubstr("Ann"));
    EXPECT_EQ(RunOrvale(folder, "show a.html").errors, "orvale: a.html: the format html is only written, never read\n");
    const Outcome named = RunOrvale(folder, "convert --from html a.html x.json");
    EXPECT_EQ(named.exitCode, 2);
    EXPECT_THAT(named.errors, HasSubstr("the format html is only written, never read"));
    EXPECT_EQ(RunOrvale(folder, "info - --format html </dev/null").exitCode, 2);
}

// The words that a person sees of a page's records, with bars for the marks between them.
std::string WordsOf(const std::string& page) {
    std::string words;
    const std::size_t end = page.rfind("</main>");
    for (std::size_t at = page.find("<main"); at < end; ++at) {
        const bool isGap = page[at] == '<' || (page[at] == '\n' && page[at + 1] == '<');
        if (page[at] == '<') at = page.find('>', at);
        if (!isGap)
            words += page[at];
        else if (!words.ends_with('|'))
            words += '|';
    }
    return words;
}

// Records that lack something, or hold what nobody would expect.
TEST_F(ViewTest, OddRecordsAreToldAllTheSame) {
    std::string many;
    for (int i = 0; i < 101; ++i)
        many +=
            std::string(i == 0 ? "" : ",") + R"({"phonenumber": "110", "time": "2008-03-17 18:04:12", "content": "x"})";
    const struct {
        const char* kind;
        std::string records;
        std::vector<const char*> words;
    } kCases[] = {
        {"contacts", "", {"|There are no contacts in here.|"}},
        {"sms", "", {"|There are no messages in here.|"}},
        {"email", "", {"|There are no mails in here.|"}},
        {"calendar",
         "",
         {"|No entry of this calendar has a date.|Agenda|There are no events in here.|To do|There is nothing to do in "
          "here.|"}},
        {"calendar",
         R"({"fields": [{"type": 3000, "data": "", "number": 70001}], "operation": 4, "complete": 1})",
         {"|No entry of this calendar has a date.|", "|Without a day|No date|No description|",
          "|Completed|A date of this entry could not be read|Description, number|70001|Description|(empty)|", "|-1|"}},
        {"calendar",
         R"({"dtstart": 1e300}, {"dtend": "2008-03-01T11:30:00"}, {"itemType": 1})",
         {"|Without a day|Out of range: 1.0000000000000001e+300|No description|", "|No date|No description|until ",
          "|To do|Open|No description|"}},
        {"calendar",
         R"({"recurtype": 4, "recurday": 23, "recurmonth": 5, "dtstart": "1949-05-23T00:00:00"},
            {"recurtype": 4, "recurday": 1, "recurmonth": 2, "dtstart": "1950-02-01T00:00:00"},
            {"dtstart": "2008-03-01T11:30:00"})",
         {"|Agenda|March 2008|1|Sat|", "|Every year|1|Feb 1950|", "|23|May 1949|"}},
        {"calendar",
         R"({"itemType": 1, "dtstart": "2010-07-26T00:00:00", "complete": 1},
            {"itemType": 0, "dtstart": "2010-07-26T00:00:00", "dtend": "2010-07-28T00:00:00"},
            {"itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": 1e300},
            {"itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T06:00:00"})",
         {"|26|Mon|, Monday, 26 July 2010|No description|All day – 28 July 2010|No description|06:00 – "
          "1.0000000000000001e+300|No description|06:00|",
          "|To do|Done|No description|due 26 July 2010|"}},
        {"email",
         R"({}, {"type": 2, "sensitivity": 1}, {"type": 1, "from": "\"Lee, Ann\" <a@b>", "sent": 1e300,
            "sensitivity": 4}, {"box": "A"}, {"box": "A", "subject": "s"})",
         {"|A| |2|U|Unknown|(no subject)|U|Unknown|s|No box| |1|U|Unknown|", "|Lee, Ann|", "|Outbox| |1|NY|Nobody yet|",
          "|Sensitivity|normal|", "|Sensitivity: confidential|", "|Sent|1.0000000000000001e+300|",
          "|This mail has no text.|"}},
        {"sms",
         R"({"phonenumber": "+491715550001", "name": "Bo", "time": "2008-03-17 18:04:12"},
            {"phonenumber": "+491715550001", "name": "Robert", "time": "2008-03-17 19:04:12", "content": "c"},
            {"phonenumber": "01715550001", "time": "2008-03-18 18:04:12", "name": "Rob"},
            {"listtype": 77, "phonenumber": "+", "time": "2008"})",
         {"|Rob|18 Mar 2008|", "|Monday, 17 March 2008|Bo|", "|No text|", "|Robert|", "|Tuesday, 18 March 2008|Rob|",
          "|No date|", "|Box 77|"}},
        {"sms", many, {"|101 messages|"}},
        {"contacts",
         R"({"fields": [{"type": 2000, "data": "PO 1;Back;Way 1;Town;Region;123;Land"},
            {"type": 5, "data": "", "groups": [{"id": 7, "name": ""}]}, {"type": 4003, "data": "1965-03-14"}]},
            {"fields": [{"type": 5, "data": "B"}, {"type": 2010, "data": "Street"}, {"type": 2012, "data": "Town"},
            {"type": 2014, "data": "9"}]}, {"fields": [{"type": 5, "data": "C"}, {"type": 2000, "data": "a;b;c"}]})",
         {"|Work address|Street\n9 Town|", "|Home address|a\nb\nc|", "|group 7|",
          "|Home address|PO 1\nBack\nWay 1\n123 Town\nRegion\nLand|", "|Birthday|14 March 1965|", "|(empty)|"}},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.records.substr(0, 200));
        folder.Put("in.json",
                   R"({"orvale": 1, "kind": ")" + std::string(each.kind) + R"(", "records": [)" + each.records + "]}");
        ASSERT_EQ(RunOrvale(folder, "convert --force in.json out.html").exitCode, 0);
        EXPECT_EQ(MarkupBeyondTemplate(folder.Get("out.html")), "");
        for (const char* const words : each.words)
            EXPECT_THAT(WordsOf(folder.Get("out.html")), HasSubstr(words));
    }
}

// The hashes are of what the browser sees: the text between the tags.
TEST_F(ViewTest, ThePolicyNamesTheStyleAndTheScriptOfThePage) {
    ASSERT_EQ(RunOrvale(folder, "view --output a.html a.json").exitCode, 0);
    const std::string page = folder.Get("a.html");
    for (const std::string name : {"style", "script"}) {
        const std::size_t start = page.find("<" + name + ">") + name.size() + 2;
        folder.Put(name, page.substr(start, page.find("</" + name + ">") - start));
        const std::string hash =
            "set -- $(sha256sum " + name + "); printf \"$(printf %s $1 | sed 's/../\\\\x&/g')\" | base64";
        folder.Put("hash.sh", hash);
        const std::string line = "cd '" + (folder / "").string() + "' && bash hash.sh >hash";
        ASSERT_EQ(std::system(line.c_str()), 0);
        std::string base64 = folder.Get("hash");
        base64.pop_back();
        EXPECT_THAT(page, HasSubstr(name + "-src &#39;sha256-" + base64 + "&#39;"));
    }
    EXPECT_THAT(page, HasSubstr("content=\"default-src &#39;none&#39;;"));
}

}  // namespace
}  // namespace orvale::test
