#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "command/html/Page.h"
#include "platform/Text.h"
#include "support/PageScan.h"

namespace orvale::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::string PageOf(const std::function<void(Page&)>& fill) {
    Page page;
    fill(page);
    std::ostringstream out;
    page.Write(out);
    return std::move(out).str();
}

// A page of one record of each kind, with the text in every place that holds text.
std::string PageOfText(const std::u16string& text) {
    CContactItem contact;
    for (const ContactFieldType& type : kContactFieldTypes) {
        CContactField field;
        field.Type = type.id;
        field.Data = field.extraText = text;
        field.SetGroup(1, text);
        contact.AddField(field);
    }
    CCalendarItem entry;
    entry.itemType = PHONE_EVENT_TYPE;
    entry.dtstart = DateValue::FromFields({2008, 2, 29, 10, 0, 0});
    entry.ring = text;
    for (const std::int32_t type : {3000, 3000, 3002, 3003, 3004, 3012, 4711}) {
        entry.fields.push_back(std::make_unique<CCalendarField>());
        entry.fields.back()->Type = type;
        entry.fields.back()->Data = text;
    }
    CSMSItem sms;
    sms.listtype = SMS_BOX_INBOX;
    sms.phonenumber = sms.name = sms.time = sms.content = text;
    CEmailItem email;
    email.box = email.account = email.folder = email.from = email.to = email.cc = email.bcc = text;
    email.subject = email.body = email.entryid = text;
    email.accessory.push_back(text);
    return PageOf([&](Page& page) {
        page.Put(contact);
        page.Put(entry);
        page.Put(sms);
        page.Put(email);
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

TEST(PageTest, EverythingThatAContactSaysStandsInThePage) {
    CContactItem contact;
    contact.Storage = 70025;
    for (const ContactFieldType& type : kContactFieldTypes) {
        CContactField field;
        field.Type = type.id;
        field.Data = u"value" + FromUtf8(std::to_string(type.id)) + u".";
        field.extraNumber = static_cast<std::uint32_t>(80000 + type.id);
        contact.AddField(field);
    }
    const std::string page = PageOf([&](Page& all) { all.Put(contact); });
    EXPECT_EQ(MarkupBeyondTemplate(page), "");
    EXPECT_THAT(page, AllOf(HasSubstr("70025"), HasSubstr("Assistant")));
    for (const ContactFieldType& type : kContactFieldTypes) {
        EXPECT_THAT(page, HasSubstr("value" + std::to_string(type.id) + ".")) << type.name;
        EXPECT_THAT(page, HasSubstr(std::to_string(80000 + type.id))) << type.name;
    }
}

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

}  // namespace
}  // namespace orvale::test
