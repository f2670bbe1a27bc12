#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Limits.h"
#include "command/Program.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

class MboxTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words, const std::string& before = "TZ=Europe/Berlin") {
        return RunOrvale(folder, words, before);
    }

    void PutMailbox(const std::string& message) { folder.Put("in.mbox", kBegin + message); }

    static constexpr const char* kBegin = "From zoe@example.com Mon Mar 17 06:02:11 2008\n";
    ScratchFolder folder;
};

// Emails as a phone may hold them. All come back, to the last bit.
TEST_F(MboxTest, WhatAPhoneHoldsComesBack) {
    const char* const kValues[] = {
        R"("from": "Müller, Jürgen <a@b>; c@d", "to": " x\r\ny ", "cc": "nobody", "bcc": "\"Lee, A\" <b@c>")",
        (R"("from": "Zoë <z@x>", "to": "a@b, c@d", "subject": "Grüße 山田 😀, sehr lang: )"
         R"(und noch ein wenig länger, damit die Zeile gewiss gebrochen werden muss, auch mitten darin")"),
        R"("subject": "a  b =?utf-8?Q?x?= \u0001 ü", "entryid": "<a@b>")",
        R"("subject": " ", "entryid": "a@b.c")",
        R"("subject": "x\nBcc: y", "entryid": "4711")",
        R"("body": "From x\r\n>From y\r\n\r\nFrom z\r\n")",
        R"("body": "lf\nonly\u0001\r\r\n"}, {"body": ""}, {"body": "\r\n"}, {"body": "x\r\n\r\n\r\n"}, {"body": "x ")",
        R"("body": "trail  \r\nü .\r\n.\r\n--b\r\n=3D ")",
        R"("sent": "2010-03-28T02:30:00", "received": "2010-10-31T02:30:00")",
        R"("sent": 1e300, "received": 40000.123456)",
        R"("sent": "1850-01-01T00:00:00", "received": "9999-12-31T00:00:00")",
        R"("type": 53, "box": "Póst", "folder": "a%20b?", "account": "<id>1</id>", "device": -1)",
        R"("importance": 1, "symbol": 7, "sensitivity": 2, "status": 1)",
        R"("importance": 9, "symbol": -7, "sensitivity": 1, "status": 65541)",
        R"("status": 2, "sensitivity": 4, "accessory": ["a b%.jpg", "", "ü"])",
    };
    std::string records;
    for (const char* const values : kValues)
        records += (records.empty() ? "{" : ",\n{") + std::string(values) + "}";
    records += R"(, {"body": ")" + std::string(1000, 'x') + R"("})";
    folder.Put("in.json", R"({"orvale": 1, "kind": "email", "records": [)" + records + "]}");
    ASSERT_EQ(Run("convert in.json in.eml").errors, "");
    EXPECT_EQ(Run("convert --strict in.eml a.mbox").errors, "");
    EXPECT_EQ(Run("convert --strict a.mbox out.eml").errors, "");
    EXPECT_EQ(Run("diff in.eml out.eml").exitCode, 0);
    const std::string box = folder.Get("a.mbox");
    for (std::size_t begin = 0, end = 0; begin < box.size(); begin = end + 1) {
        end = box.find('\n', begin);
        ASSERT_LE(end - begin, 998U) << box.substr(begin, end - begin);
    }
    EXPECT_THAT(Run("info a.mbox").output, HasSubstr("a.mbox: mbox (email)"));
}

TEST_F(MboxTest, PartsGiveTheirTextAndTheirNames) {
    const struct {
        const char* name;
        std::string message;
        std::vector<const char*> shown;  // in the JSON document
        const char* told;
    } kCases[] = {
        {"Mixed",
         "Subject: =?iso-8859-1?Q?gr=FC=DFe?= =?utf-8?B?IPCfmIA=?=\nMIME-Version: 1.0\n"
         "Content-Type: multipart/mixed; boundary=b\n\n--b\nContent-Type: multipart/alternative; boundary=c\n\n--c\n"
         "Content-Type: text/html\n\n<p>no\n--c\nContent-Type: text/plain; charset=iso-8859-1\n"
         "Content-Transfer-Encoding: quoted-printable\n\nGr=FC=DFe=\n!\n>From here\n--c--\n--b\nContent-Type: "
         "image/png\n"
         "Content-Disposition: attachment; filename*=utf-8''gr%C3%BC.png\nContent-Transfer-Encoding: "
         "base64\n\niVBO\n--b\n"
         "Content-Type: message/rfc822\n\nSubject: inner\n\ninner\n--b--\n",
         {"\"subject\": \"grüße 😀\"", "\"body\": \"Grüße!\\r\\nFrom here\"", "\"grü.png\"", "\"message/rfc822\"",
          "\"received\": \"2008-03-17T07:02:11\"", "\"sent\": null"},
         "orvale: a.eml: lost: HTML texts beside the plain ones: 1, first in in.mbox, line 1\n"
         "orvale: a.eml: lost: data of attachments: 2, first in in.mbox, line 1\n"},
        {"HtmlAlone",
         "Content-Type: text/html; charset=utf-8\n\n<html><head><title>t</title><style>p{}</style></head><body>\n"
         "<p>One &amp; two</p><p>Zw&ouml;lf &#252; &#x1F600; &unknown; a\n<!-- no > no "
         "-->b<br/>end</p><script>x()</script>",
         {"\"body\": \"One & two\\r\\nZwölf ü 😀 &unknown; a b\\r\\nend\""},
         "orvale: a.eml: lost: the looks of HTML texts: 1, first in in.mbox, line 1\n"},
        {"AnotherCharsetThanNamed",
         "Content-Type: multipart/mixed; boundary=b\n\n--b\nContent-Type: text/plain; charset=us-ascii\n\nGr\xFC\xDF"
         "e\n"
         "--b\nContent-Type: text/plain; charset=us-ascii\n\nGrüße\n"
         "--b\nContent-Type: text/plain; charset=x-unknown\n\nGr\xFC\xDF"
         "e\n--b--\n",
         {"\"body\": \"Grüße\\r\\n\\r\\nGrüße\\r\\n\\r\\nGrüße\""},
         "orvale: a.eml: lost: texts that aren't in the charset that they name: 2, first in in.mbox, line 1\n"},
        {"Head",
         "Received: x\nDate: Mon, 17 Mar 2008 07:02:11 -0800\nFrom: =?utf-8?B?WsO2ZQ==?= <z@x>\nTo: \"Lee, A\" <b@c>,\n"
         " d@e\nMessage-ID: <x@y>\nImportance: High\nSensitivity: Private\nStatus: RO\nX-Spam: no\n\nText\n",
         {"\"sent\": \"2008-03-17T16:02:11\"", "\"from\": \"Zöe <z@x>\"", "\"to\": \"\\\"Lee, A\\\" <b@c>, d@e\"",
          "\"entryid\": \"x@y\"", "\"importance\": 3", "\"sensitivity\": 3", "\"status\": 1", "\"body\": \"Text\""},
         "orvale: a.eml: lost: lines of a head that a phone has no place for: 2, first in in.mbox, line 1\n"},
        {"Base64",
         "Content-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n\nw7wKYgo=\n",
         {"\"body\": \"ü\\r\\nb\""},
         ""},
        {"Base64WithLineEndsOfTheNet",
         "Content-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n\nw7wNCmINCg==\n",
         {"\"body\": \"ü\\r\\nb\""},
         ""},
        {"Text",
         "no line of a head\n\nbut text\n",
         {"\"body\": \"no line of a head\\r\\n\\r\\nbut text\"", "\"received\": \"2008-03-17T07:02:11\""},
         "orvale: a.eml: lost: messages without a head, which became texts: 1, first in in.mbox, line 1\n"},
        {"Bytes", "Subject: \xFF\xFE\n\n\xC3\n", {"\"body\": \""}, ""},
        {"NoBoundary", "Content-Type: multipart/mixed\n\n--b\n\ntext\n", {"\"body\": \""}, ""},
        {"NoHead", "\n\n", {"\"body\": \""}, ""},
        {"Nothing", "", {"\"body\": \"\""}, ""},
        {"HeadWithoutEnd", "Subject: a", {"\"subject\": \"a\""}, ""},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.name);
        PutMailbox(each.message);
        const std::string shown = Run("show --json --format mbox in.mbox").output;
        for (const char* const value : each.shown)
            EXPECT_THAT(shown, HasSubstr(value));
        const std::string errors = Run("convert --force --from mbox in.mbox a.eml").errors;
        if (*each.told != '\0') {
            EXPECT_EQ(errors, each.told);
        }
        EXPECT_EQ(Run("convert --force --from mbox in.mbox b.mbox").exitCode, 0);
    }
    folder.Put("two.mbox",
               "From a Mon Mar 17 06:02:11 2008\r\nSubject: 1\r\n\r\nText\r\nFrom inside\r\n\r\nFrom b x\r\n"
               "Subject: 2\r\n\r\n");
    EXPECT_THAT(Run("info two.mbox").output, HasSubstr("2 records"));
    folder.Put("empty.json", R"({"orvale": 1, "kind": "email", "records": []})");
    EXPECT_EQ(Run("convert --strict empty.json empty.mbox").exitCode, 0);
    folder.Put("bad.mbox", "Subject: x\n\nno mailbox\n");
    EXPECT_EQ(Run("info --format mbox bad.mbox").errors, "orvale: bad.mbox: doesn't begin with a line 'From '\n");
}

// A line that begins a message as the writers of mailboxes make it, and text that only looks so, behind an empty line.
TEST_F(MboxTest, TextThatLooksLikeABeginIsText) {
    const struct {
        const char* line;
        const char* next;
        const char* received;  // of the message that begins; empty where none does
    } kCases[] = {
        {"From zoe@example.com Mon Mar 17 06:02:11 2008", "", "\"2008-03-17T06:02:11\""},
        {"From zoe at example.com  Mon Mar  3 06:02:11 2008", "x", "\"2008-03-03T06:02:11\""},
        {"From - Mon Mar 17 06:02:11 2008", "Subject: x", "\"2008-03-17T06:02:11\""},
        {"From MAILER-DAEMON Mon Mar 17 06:02 2008", "", "\"2008-03-17T06:02:00\""},
        {"From nobody Mon Mar 17 06:02:11 PST 2008", "", "\"2008-03-17T06:02:11\""},
        {"From z@x Mon Mar 17 06:02:11 2008 -0830", "", "\"2008-03-17T14:32:11\""},
        {"From z@x Mon Mar 17 00:02:11 +0100 2008", "", "\"2008-03-16T23:02:11\""},
        {"From ???@??? Mon, 17 Mar 2008 06:02:11 +0000 (UTC)", "", "\"2008-03-17T06:02:11\""},
        {"From z@x Thu Jan  1 00:00:00 1970", "", "null"},
        {"From \"a b\"@x Mon Mar 17 06:02:60 2008 remote from x", "", "\"2008-03-17T06:02:59\""},
        {"From z", "Subject: x", "null"},
        {"From z", "X-Mailer: x", "null"},
        {"From here on it is text", "and so is this", ""},
        {"From here on: Mon Mar 77 06:02:11 2008", "Note: text", ""},
        {"From Bob, Mon Mar 17 10:00am, 2008", "", ""},
        {"From Monday Mar 17 06:02:11 2008 on", "", ""},
        {"From ", "", ""},
        {"From:", "Subject: x", ""},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.line);
        const std::string text = std::string(each.line) + "\n" + each.next + "\n\nend\n";
        PutMailbox("Subject: first\n\nbegin\n\n" + text);
        const std::string shown = Run("show --json in.mbox", "TZ=UTC").output;
        EXPECT_THAT(shown, HasSubstr("end\""));
        EXPECT_THAT(shown, HasSubstr("\"received\": " + std::string(each.received)));
        EXPECT_EQ(shown.find("\"body\": \"begin\"") == std::string::npos, *each.received == '\0');
    }
}

// Mailboxes that cost nothing, whatever they say: the message behind is read.
TEST_F(MboxTest, EnormousMailboxesAreBounded) {
    const auto repeat = [](int times, auto piece) {
        std::string text;
        for (int i = 0; i < times; ++i)
            text += piece(i);
        return text;
    };
    const struct {
        const char* name;
        std::string message;
        const char* told;
    } kCases[] = {
        {"Depth",
         repeat(20000,
                [](int i) {
                    const std::string n = std::to_string(i);
                    return "Content-Type: multipart/mixed; boundary=b" + n + "\n\n--b" + n + "\n";
                }),
         ""},
        {"Attached", repeat(20000, [](int) { return "Content-Type: message/rfc822\n\n"; }), ""},
        {"Parts", "Content-Type: multipart/mixed; boundary=b\n\n" + repeat(30000, [](int) { return "--b\n\nx\n"; }),
         "parts of messages beyond 10000: 1"},
        {"Head", repeat(100000, [](int i) { return "X-" + std::to_string(i) + ": y\n"; }),
         "ends of heads of more than 262144 bytes: 1"},
        {"Fold", "Subject: x\n" + repeat(200000, [](int) { return " y\n"; }),
         "ends of heads of more than 262144 bytes: 1"},
        {"Line", "\n" + std::string(2 << 20, 'x') + "\n", "ends of lines of more than a mebibyte: 1"},
        {"Body", "\n" + repeat(300000, [](int) { return std::string(63, 'x') + "\n"; }),
         "ends of messages of more than 16 mebibytes: 1"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.name);
        PutMailbox(each.message + "\n\nFrom b Mon Mar 17 06:02:11 2008\nSubject: behind\n\n");
        const Outcome outcome = Run("convert --force --from mbox in.mbox a.json", Limits(600000, 60) + "TZ=UTC");
        EXPECT_THAT(outcome.errors, HasSubstr(each.told));
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_THAT(folder.Get("a.json"), HasSubstr("\"subject\": \"behind\""));
    }
}

// The mailbox of Python's standard library takes what is written, and what it writes is read.
TEST_F(MboxTest, AnotherProgramAgrees) {
    folder.Put("check.py", R"(import email.policy, mailbox
make = lambda f: email.message_from_binary_file(f, policy=email.policy.default)
box = mailbox.mbox('a.mbox', factory=make)
messages = list(box)
assert len(messages) == 3, messages
first = messages[0]
assert not first.defects, first.defects
assert first['Subject'] == 'Photos of Saturday' and first['To'] == 'juergen.mueller@example.com'
assert first['Date'].datetime.isoformat() == '2008-03-16T21:14:58+01:00', first['Date']
assert first.get_content().startswith('Here they are.\n\nThe second one is my favourite. Gr\u00fc\u00dfe!')
back = mailbox.mbox('back.mbox')
for message in mailbox.mbox('a.mbox'):
    back.add(message)
back.flush()
)");
    ASSERT_EQ(Run("convert --strict '" ORVALE_ROOT "/samples/mails.eml' a.mbox").errors, "");
    const int status = std::system(("cd '" + (folder / "").string() + "' && python3 check.py").c_str());
    if (WEXITSTATUS(status) == 127) GTEST_SKIP() << "python3 isn't installed";
    ASSERT_EQ(status, 0);
    EXPECT_EQ(Run("show back.mbox").output, Run("show a.mbox").output);
}

}  // namespace
}  // namespace orvale::test
