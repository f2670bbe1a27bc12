#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Program.h"
#include "command/exchange/VcfReader.h"
#include "platform/Text.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

std::string Card(const std::string& lines, const std::string& version = "3.0") {
    return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lines + "END:VCARD\r\n";
}

// What a file says, a line each: "104 +49170" for a field, its groups behind it, what has no place, where it breaks.
std::string Told(const ScratchFolder& folder, const std::string& file) {
    VcfReader reader(folder / file, file);
    std::string told;
    for (CContactItem contact; reader.Next(contact); contact.Clear()) {
        if (!told.empty()) told += "\n";
        for (const auto& field : contact.fields) {
            told += std::to_string(field->Type) + " " + ToUtf8(Replace(field->Data, u"\r\n", u"|")) + "\n";
            for (const auto& group : field->groups)
                told += "  group " + std::to_string(group.key) + " " + ToUtf8(group.value) + "\n";
        }
    }
    for (const Note& note : reader.Notes())
        told += "lost " + note.what + ": " + std::to_string(note.count) + ", " + note.firstPlace + "\n";
    if (reader.BrokenAt()) told += "broken at " + std::to_string(*reader.BrokenAt()) + "\n";
    return told;
}

struct Habit {
    const char* name;
    std::string file;
    std::string told;
};

std::ostream& operator<<(std::ostream& out, const Habit& habit) {
    return out << habit.name;
}

class VcfHabitTest : public testing::TestWithParam<Habit> {};

TEST_P(VcfHabitTest, ReadsAsAPersonWouldWriteItDown) {
    const ScratchFolder folder;
    folder.Put("a.vcf", GetParam().file);
    EXPECT_EQ(Told(folder, "a.vcf"), GetParam().told);
}

const Habit kHabits[] = {
    {"PhoneWithKeysQuotedPrintable",
     Card(
         "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=\r\n=BCller;J=C3=BCr=\r\ngen=3B;;;\r\nTEL;CELL;PREF:+49170\r\n"
         "TEL;WORK:1\r\nTEL;VOICE;WORK:2\r\nTEL;WORK;VOICE:3\r\nNOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab=3D=\r\n\r\n"
         "REV:20040101T000000Z\r\n",
         "2.1"),
     "2 Müller\n1 Jürgen;\n104 +49170\n100 1\n101 2\n101 3\n3002 a|b=\n"},
    {"PhoneWithTurnedParameters",
     Card("FN:Ann\r\nTEL;PREF;VOICE;CELL:1\r\nTEL;VOICE;CELL;HOME:2\r\nTEL;CELL:3\r\nTEL;FAX;WORK:4\r\nTEL;FAX:5\r\n"
          "TEL;PAGER:6\r\nTEL;CAR;VOICE:7\r\nTEL;PREF:8\r\nTEL:9\r\nTEL;MSG:10\r\nEMAIL;PREF;INTERNET:a@b\r\n"
          "EMAIL;INTERNET;HOME:c@d\r\nEMAIL;TLX:11\r\nX-WAB-GENDER:2\r\n",
          "2.1"),
     "5 Ann\n104 1\n105 2\n105 3\n112 4\n110 5\n106 6\n114 7\n118 8\n108 9\n107 10\n1000 a@b\n1001 c@d\n120 11\n"
     "4008 2\n"},
    {"PhoneOfTheFarEastInTwoByteBytes",
     Card("N;CHARSET=SHIFT_JIS:\x8E\x52\x93\x63;\x91\xBE\x98\x59\r\nSOUND;X-READING;CHARSET=SHIFT_JIS:\xD4\xCF\xC0\r\n"
          "ADR;HOME;CHARSET=SHIFT_JIS:;;\x95\x5C;\x93\x8C\x8B\x9E;;100-0001\r\nNOTE;CHARSET=X-NOBODY:a\r\n",
          "2.1"),
     "2 山田\n1 太郎\n2002 表\n2004 東京\n2006 100-0001\n3002 a\nlost SOUND: 1, line 4\n"
     "lost values in a charset that isn't known: 1, line 6\n"},
    {"PhoneOfChinaQuotedPrintable",
     Card("N;CHARSET=GB2312;ENCODING=QUOTED-PRINTABLE:=CD=F5;=D0=A1=\r\n=C3=\r\n=F7\r\nTEL;HOME;VOICE:1\r\n", "2.1"),
     "2 王\n1 小明\n102 1\n"},
    {"OfficeProgramOfTheDesktop",
     Card("N;LANGUAGE=de:O\\;Neil;J\xF6rg;;Dr.\r\nFN;CHARSET=Windows-1252:J\xF6rg O;Neil\r\nORG:Acme;Sales;East\r\n"
          "TITLE:Head\r\nADR;WORK;ENCODING=QUOTED-PRINTABLE:PO 1;Floor 3;Main=0D=0A=\r\nStreet 5;Town;BE;1;Land\r\n"
          "LABEL;WORK;ENCODING=QUOTED-PRINTABLE:Main 5=0D=0A=\r\nTown\r\nURL;WORK:http://a.example/?b=41;c\r\n"
          "BDAY:19650314\r\nNOTE:C:\\new\\;x\r\nKEY;X509;ENCODING=BASE64:\r\n    MIIB\r\n    AAA=\r\n\r\n"
          "EMAIL;PREF;INTERNET:a@b\r\n",
          "2.1"),
     "2 O;Neil\n1 J\xEF\xBF\xBDrg\n4010 Dr.\n5 Jörg O;Neil\n4032 Acme\n4002 Sales, East\n4035 Head\n4012 Floor 3\n"
     "2010 PO 1, Main|Street 5\n2012 Town\n2013 BE\n2014 1\n2016 Land\n4006 Main 5|Town\n"
     "1500 http://a.example/?b=41;c\n4003 19650314\n3002 C:\\new;x\n1000 a@b\nlost KEY: 1, line 14\n"
     "lost bytes that are no text in their charset: 1, line 3\n"},
    {"MailProgramOf30",
     "begin:vcard\nversion:3.0\nn:Doe;Jane;Mary,Ann;;\nfn:Jane Doe\nnickname:Jay\\, J\ntel;type=\"work,voice\":1\n"
     "tel;type=fax,home:2\nemail;type=internet:a@b\nadr;type=work,postal:;;High St 1;Town;;;\n"
     "note:first\\nsecond\\, wi\n th a fold\\; and\n  a blank\\\\n\ncategories:Friends,Work\\, old\nuid:4711\n"
     "photo;encoding=b;type=jpeg:AAAA\n BBBB\nx-empty:\nprodid:-//x\nend:vcard\n",
     "2 Doe\n1 Jane\n  group 1 Friends\n  group 2 Work, old\n3 Mary,Ann\n5 Jane Doe\n4005 Jay, J\n100 1\n111 2\n"
     "1000 a@b\n2010 High St 1\n2012 Town\n3002 first|second, with a fold; and a blank\\n\nlost PHOTO: 1, line 15\n"
     "lost UID: 1, line 14\n"},
    {"PhoneOf2010WithGroupedLines",
     Card("N:Doe;John;;;\r\nORG:Acme;\r\nitem1.EMAIL;type=INTERNET;type=pref:a@b\r\nitem1.X-LABEL:Club\r\n"
          "TEL;type=CELL;type=VOICE;type=pref:1\r\nTEL;type=MAIN:2\r\n"
          "item2.ADR;type=HOME;type=pref:;;Way 1\\nBack;Town;CA;90210;USA\r\nitem3.URL;type=pref:http\\://a.example\r\n"
          "BDAY;value=date:1980-05-06\r\nIMPP;X-SERVICE-TYPE=Chat;type=HOME:chat:me\r\n"),
     "2 Doe\n1 John\n4032 Acme\n1000 a@b\n104 1\n108 2\n2002 Way 1|Back\n2004 Town\n2005 CA\n2006 90210\n2008 USA\n"
     "1500 http://a.example\n4003 19800506\nlost IMPP: 1, line 12\nlost X-LABEL: 1, line 6\n"},
    {"PhoneOfTodayIn21WithAPicture",
     Card(
         "N:Doe;Jane;;;\r\nFN:Jane Doe\r\nTEL;CELL:1\r\nTEL;X-Custom(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=41):2\r\n"
         "PHOTO;ENCODING=BASE64;JPEG:/9j/4AAQ\r\n SkZJRg==\r\n\r\nNOTE:one\r\n",
         "2.1"),
     "2 Doe\n1 Jane\n5 Jane Doe\n104 1\n108 2\n3002 one\nlost PHOTO: 1, line 7\n"},
    {"PictureWithoutIndents",
     Card("FN:A\r\nPHOTO;BASE64:\r\n/9j/4AAQ\r\nSkZJRg==\r\n\r\nNOTE;ENCODING=B:R3LDvMOfZQ==\r\n", "2.1"),
     "5 A\n3002 Grüße\nlost PHOTO: 1, line 4\n"},
    {"WebAddressBookOf40",
     Card("FN:Jane\r\nN:Doe;Jane;;;\r\nTEL;VALUE=uri;PREF=1;TYPE=\"voice,cell\":tel:+1-555\r\nTEL;TYPE=textphone:2\r\n"
          "EMAIL;TYPE=work:mailto:a@b\r\nADR;TYPE=home;LABEL=\"Way 1^nTown: ^'T^'\":;;Way 1;Town;;;\r\nGENDER:F\r\n"
          "KIND:individual\r\nBDAY:--0314\r\nORG;SORT-AS=\"Acme\":Acme\r\n",
          "4.0"),
     "5 Jane\n2 Doe\n1 Jane\n104 +1-555\n121 2\n1000 a@b\n4007 Way 1|Town: \"T\"\n2002 Way 1\n2004 Town\n4008 F\n"
     "4003 --0314\n4032 Acme\nlost KIND: 1, line 10\n"},
    {"VersionBehindTheRest",
     "BEGIN:VCARD\r\nFN:Ann\r\nNOTE:a fo\r\n ld\\n\r\nPHOTO:x\r\nVERSION:3.0\r\nTEL:1\r\nEND:VCARD\r\n"
     "BEGIN:VCARD\r\nNOTE:by\r\n  words\\n\r\nVERSION:2.1\r\nEND:VCARD\r\nBEGIN:VCARD\r\nFN:C\r\nEND:VCARD\r\n",
     "5 Ann\n3002 a fold|\n108 1\n\n3002 by words\\n\n\n5 C\nlost PHOTO: 1, line 5\n"},
    {"CardsWithinACard",
     Card("FN:A\r\nAGENT:\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nFN:B\r\nAGENT:\r\nBEGIN:VCARD\r\nEND:VCARD\r\nEND:VCARD\r\n"
          "TEL:1\r\n",
          "2.1"),
     "5 A\n108 1\nlost AGENT: 1, line 5\n"},
    {"CardWithinACardOnTheSameLine",
     Card("FN:A\r\nitem1.AGENT;TYPE=VCARD: BEGIN:VCARD\r\nVERSION:2.1\r\nFN:B\r\nTEL:2\r\nEND:VCARD\r\nTEL:1\r\n",
          "2.1"),
     "5 A\n108 1\nlost AGENT: 1, line 4\n"},
    {"SoftBreakBeforeTheNextCard",
     "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:A\r\nNOTE;ENCODING=QUOTED-PRINTABLE:b=\r\n" + Card("FN:C\r\n", "2.1"),
     "5 A\n3002 b\n\n5 C\nlost ends of cards: 1, line 5\n"},
    {"StraySoftBreaks",
     Card("NOTE;ENCODING=QUOTED-PRINTABLE:a=\r\nitem1.TEL;CELL:1\r\nROLE;QUOTED-PRINTABLE:c=\r\nUID:x\r\n"
          "TITLE;ENCODING=QUOTED-PRINTABLE:b=0D=0A=\r\nTEL: 2\r\nNICKNAME;QUOTED-PRINTABLE:see =\r\nUrl: x\r\n",
          "2.1"),
     "3002 a\n104 1\n4009 c\n4035 b|TEL: 2\n4005 see Url: x\nlost UID: 1, line 6\n"},
    {"NotesWithBareLineEnds", "text before\r\n" + Card("FN:A\r\nNOTE:one\r\ntwo\r\n\r\nTEL:1\r\n", "2.1"),
     "5 A\n3002 one|two\n108 1\nlost lines outside of cards: 1, line 1\n"},
    {"SeveralAddressesOfAKind",
     Card("FN:A\r\nADR;TYPE=HOME:;;One;;;;\r\nADR;TYPE=HOME:;;Two;;;;\r\nADR:;;Three;Town;;;\r\nADR;TYPE=WORK:;;"
          "Four\r\n"),
     "5 A\n2002 One\n2032 Two\n4000 Three, Town\n2010 Four\n"},
    {"Base64OfEveryKindOfSign", Card("FN;ENCODING=B:Pz8/Pj4+YWJj TVla\r\n"), "5 \?\?\?>>>abcMYZ\n"},
    {"WhatIsNoValue",
     Card("FN:A\r\nN:Doe;J\r\nN:Roe;R\r\nADR:;;;;;;\r\nCATEGORIES:\r\nCATEGORIES: , x,\r\nORG:\r\n"
          "BDAY:1965-03-14T00:00:00Z\r\nBDAY:1965-03-14T08:00:00\r\nX-ORVALE-FIELD;X-ORVALE-ID=x:y\r\n"
          "X-ORVALE-EXTRA:1;2;3\r\nX-ORVALE-EXTRA:5;0;3;text\r\nX-ORVALE-GROUP:5;9;3;text\r\n"),
     "5 A\n2 Doe\n1 J\n  group 1 x\n4003 19650314\n4003 1965-03-14T08:00:00\nlost N behind the first: 1, line 5\n"
     "lost X-ORVALE-EXTRA: 1, line 13\nlost X-ORVALE-FIELD: 1, line 12\n"},
    {"ControlsInParameters",
     Card("FN:A\r\nADR;TYPE=home;LABEL=\"a^nb^^c^'d^x\":;;Way 1\r\nNOTE;CHARSET=X-NONE:b\r\n", "4.0"),
     "5 A\n4007 a|b^c\"d^x\n2002 Way 1\n3002 b\nlost values in a charset that isn't known: 1, line 5\n"},
    {"CardWithoutItsEndBeforeTheNext",
     "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\n" + Card("FN:B\r\n") + "\xEF\xBB\xBF" + Card("FN:C\r\n") +
         "BEGIN:VCARD\r\nFN:D\r\nX-A:1\r\n",
     "5 A\n\n5 B\n\n5 C\nlost ends of cards: 1, line 4\nbroken at 121\n"},
};

INSTANTIATE_TEST_SUITE_P(Vcf, VcfHabitTest, testing::ValuesIn(kHabits),
                         [](const auto& each) { return each.param.name; });

class VcfTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words) { return RunOrvale(folder, words); }
    ScratchFolder folder;
};

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

TEST_F(VcfTest, LineEndsAndEncodingsOfTheFileDontMatter) {
    const std::string file = Card("FN:Jürgen 😀\r\nNOTE:a\r\n b\r\nx-a:1\r\n") + Card("FN:B\r\n") + "BEGIN:VCARD\r\n";
    const std::string told = "5 Jürgen 😀\n3002 ab\n\n5 B\nlost X-A: 1, line 6\nbroken at ";
    const auto wide = [&](bool little, std::string bytes) {
        for (const char16_t unit : FromUtf8(file)) {
            const char high = static_cast<char>(unit >> 8);
            const char low = static_cast<char>(unit & 0xFF);
            bytes += {little ? low : high, little ? high : low};
        }
        return bytes;
    };
    const std::size_t end = file.size() - 13;
    const std::size_t wideEnd = 2 * (FromUtf8(file).size() - 13);
    const struct {
        std::string bytes;
        std::size_t brokenAt;
    } kCases[] = {
        {file, end},
        {Replaced(file, "\r\n", "\n"), end - 11},
        {Replaced(file, "\r\n", "\r"), end - 11},
        {"\xEF\xBB\xBF" + file, end + 3},
        {wide(true, "\xFF\xFE"), wideEnd + 2},
        {wide(false, "\xFE\xFF"), wideEnd + 2},
        {wide(true, ""), wideEnd},
        {wide(false, ""), wideEnd},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(testing::PrintToString(each.bytes.substr(0, 24)));
        folder.Put("a.vcf", each.bytes);
        EXPECT_EQ(Told(folder, "a.vcf"), told + std::to_string(each.brokenAt) + "\n");
        EXPECT_THAT(Run("info --json a.vcf").output, HasSubstr("\"format\": \"vcf\""));
    }
}

// Without a charset of their own, values that are no UTF-8 are in the code page of the work.
TEST_F(VcfTest, AValueIsInTheCodePageUnlessItIsUtf8) {
    folder.Put("a.vcf", Card("FN:M\xFCller\r\nADR;TYPE=home:;;Stra\xDF"
                             "e;K\xF6ln\r\nNOTE:Grüße\r\n"));
    const std::string shown = Run("show --codepage 1252 a.vcf").output;
    for (const char* const text : {"Müller\n", "Straße\n", "Köln\n", "Grüße\n"})
        EXPECT_THAT(shown, HasSubstr(text));
}

TEST_F(VcfTest, AFileCutAnywhereGivesItsWholeCards) {
    const std::string first = Card("FN:A\r\nPHOTO;ENCODING=b:AA\r\n A=\r\n");
    const std::string file = first + Card("NOTE;ENCODING=QUOTED-PRINTABLE:=C3=\r\n=BC\r\n", "2.1");
    for (std::size_t length = 1; length < file.size() - 2; ++length) {
        folder.Put("a.vcf", file.substr(0, length));
        const std::string told = Told(folder, "a.vcf");
        const bool hasFirst = length >= first.size() - 2;
        ASSERT_EQ(told.substr(0, 4) == "5 A\n", hasFirst) << length;
        ASSERT_THAT(told, testing::Not(HasSubstr("3002"))) << length;
    }
}

std::string FieldJson(std::int32_t type, const std::string& data, const std::string& more = "") {
    return R"({"type": )" + std::to_string(type) + R"(, "data": ")" + data + "\"" + more + "},";
}

// A rich contact comes back whole from both versions: only the order of its values is another one. Every line fits.
TEST_F(VcfTest, EveryTypeOfFieldComesBackFromBothVersions) {
    std::string all;
    for (int round = 0; round < 2; ++round)
        for (const ContactFieldType& type : kContactFieldTypes)
            all += FieldJson(type.id, R"(Ann;Müller, \\n\r\nΕλένη 山田 😀 \"^n\" )" + std::to_string(type.id));
    const std::string extras = R"(, "extraNumber": 4294967295, "extraText": "x;\ty",
        "groups": [{"id": 273, "name": "A,B"}, {"id": 3, "name": ""}, {"id": -5, "name": "C;D"}])";
    folder.Put("in.json", R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [)" + all +
                              FieldJson(-7, "", extras) + FieldJson(1, "A", extras) + FieldJson(-1, "label") +
                              R"({"type": 5, "data": ""}]}, {"storage": -3, "fields": [)" +
                              FieldJson(4032, "Acme;Sales") + FieldJson(2000, "Street 1") + FieldJson(2007, "BE") +
                              FieldJson(4003, "19650314") + FieldJson(4008, "F") +
                              R"({"type": 105, "data": "1"}]}, {"fields": [)" + FieldJson(4003, "1965-03-14") +
                              FieldJson(4004, "Acme") + FieldJson(4002, "Sales") + FieldJson(1, "A", extras) +
                              FieldJson(2007, "BE") + R"({"type": 5, "data": "B"}]}, {"fields": []}]})");
    ASSERT_EQ(Run("convert --strict in.json in.qzs").exitCode, 0);
    for (const std::string version : {"3.0", "4.0"}) {
        SCOPED_TRACE(version);
        const Outcome out = Run("convert --force --strict --vcard-version " + version + " in.qzs a.vcf");
        EXPECT_EQ(out.exitCode, 0);
        EXPECT_EQ(out.errors, "orvale: a.vcf: moved: order of the values: 2, first in contact 1\n");
        EXPECT_EQ(Run("convert --force --strict a.vcf b.qzs").errors, "");
        EXPECT_EQ(Run("convert --force --strict --vcard-version " + version + " b.qzs c.vcf").exitCode, 0);
        EXPECT_THAT(Run("diff in.qzs b.qzs").output, testing::Not(HasSubstr("lost")));

        const std::string card = folder.Get("a.vcf");
        EXPECT_THAT(card, HasSubstr("VERSION:" + version + "\r\n"));
        for (std::size_t start = 0, end = 0; start < card.size(); start = end + 2) {
            end = card.find("\r\n", start);
            ASSERT_NE(end, std::string::npos);
            const std::string line = card.substr(start, end - start);
            std::size_t bad = line.find_first_of("\r\n") == std::string::npos ? 0 : 1;
            FromUtf8(line, &bad);
            EXPECT_TRUE(bad == 0 && line.size() <= 75) << line;
        }
    }
}

// Values that a card can't hold, or not as they stand, leave those beside them what they are.
TEST_F(VcfTest, OddValuesComeBackInTheirPlace) {
    const std::string group = R"(, "groups": [{"id": 1, "name": "x"}])";
    folder.Put("in.json", R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [)" + FieldJson(104, "TEL:1") +
                              FieldJson(105, "tel:") + FieldJson(1000, "mail\\u0001to:a@b") +
                              FieldJson(3002, "\\u0001") + FieldJson(3002, "b", group) + FieldJson(2, "\\u007F") +
                              R"({"type": 4007, "data": "\u0002"}]}]})");
    for (const char* const version : {"3.0", "4.0"}) {
        Run(std::string("convert --force --vcard-version ") + version + " in.json a.vcf");
        EXPECT_EQ(Told(folder, "a.vcf"),
                  "104 TEL:1\n105 tel:\n1000 mailto:a@b\n3002 \n3002 b\n  group 1 x\n2 \n4007 \n")
            << version;
    }
}

// What today's phones get to see.
TEST_F(VcfTest, WritesWhatTheStandardsSay) {
    folder.Put("in.json", R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [)" + FieldJson(2, "Doe") +
                              FieldJson(1, "Jane") + FieldJson(5, "Jane Doe") + FieldJson(104, "+1,2") +
                              FieldJson(111, "2") + FieldJson(113, "3") + FieldJson(118, "4") + FieldJson(103, "5") +
                              FieldJson(1000, "a@b") + FieldJson(1500, "http://a.example/;,") +
                              FieldJson(2002, "Way 1") + FieldJson(2008, "Land") + FieldJson(4007, "Way 1") +
                              FieldJson(4003, "19650314") + FieldJson(4008, "F") + FieldJson(4032, "Acme;Sales") +
                              FieldJson(3002, "a;b\\\\c\\r\\nd", R"(, "groups": [])") +
                              R"({"type": 4, "data": "x"}]}]})");
    Run("convert --to vcf in.json a.vcf");
    EXPECT_EQ(Replaced(folder.Get("a.vcf"), "\r\n", "\n"),
              "BEGIN:VCARD\nVERSION:3.0\nN:Doe;Jane;;;\nFN:Jane Doe\nTEL;TYPE=CELL:+1\\,2\nTEL;TYPE=HOME,FAX:2\n"
              "TEL;TYPE=X-CALLBACK:3\nTEL;TYPE=PREF:4\nTEL;TYPE=HOME;X-ORVALE-ID=103:5\nEMAIL;TYPE=INTERNET:a@b\n"
              "URL:http://a.example/;,\nADR;TYPE=HOME:;;Way 1;;;;Land\nLABEL;TYPE=HOME:Way 1\nBDAY:1965-03-14\n"
              "X-GENDER:F\nORG;X-ORVALE-ID=4032:Acme;Sales\nNOTE:a\\;b\\\\c\\nd\nX-ORVALE-FIELD;X-ORVALE-ID=4:x\n"
              "END:VCARD\n");
    Run("convert --vcard-version 4.0 in.json b.vcf");
    EXPECT_EQ(Replaced(folder.Get("b.vcf"), "\r\n", "\n"),
              "BEGIN:VCARD\nVERSION:4.0\nN:Doe;Jane;;;\nFN:Jane Doe\nTEL;TYPE=cell:+1\\,2\nTEL;TYPE=home,fax:2\n"
              "TEL;TYPE=x-callback:3\nTEL;PREF=1:4\nTEL;TYPE=home;X-ORVALE-ID=103:5\nEMAIL:a@b\n"
              "URL:http://a.example/;,\nADR;TYPE=home;LABEL=\"Way 1\":;;Way 1;;;;Land\nBDAY:19650314\nGENDER:F\n"
              "ORG;X-ORVALE-ID=4032:Acme;Sales\nNOTE:a\\;b\\\\c\\nd\nX-ORVALE-FIELD;X-ORVALE-ID=4:x\nEND:VCARD\n");
    EXPECT_EQ(Run("convert --vcard-version 4.0 in.json c.qzs").exitCode, 2);
    EXPECT_EQ(Run("convert --vcard-version 2.1 in.json d.vcf").exitCode, 2);
    Run("convert in.json e.vcf");
    EXPECT_THAT(folder.Get("e.vcf"), HasSubstr("VERSION:2.1\r\n"));
}

// Values that have a form of their own, as a card says them, as a contact has them, and as they are written.
TEST_F(VcfTest, DaysAndGendersKeepTheirForm) {
    const struct {
        const char* line;
        const char* told;
        const char* in30;
        const char* in40;
    } kCases[] = {
        {"BDAY:19850412", "4003 19850412", "BDAY:1985-04-12", "BDAY:19850412"},
        {"BDAY:1985-04-12T00:00:00Z", "4003 19850412", "BDAY:1985-04-12", "BDAY:19850412"},
        {"BDAY:--0412", "4003 --0412", "X-ORVALE-FIELD;X-ORVALE-ID=4003:--0412", "BDAY:--0412"},
        {"BDAY:--04-12", "4003 --0412", "X-ORVALE-FIELD;X-ORVALE-ID=4003:--0412", "BDAY:--0412"},
        {"BDAY:1985-04", "4003 1985-04", "X-ORVALE-FIELD;X-ORVALE-ID=4003:1985-04", "BDAY:1985-04"},
        {"BDAY:1985", "4003 1985", "X-ORVALE-FIELD;X-ORVALE-ID=4003:1985", "BDAY:1985"},
        {"BDAY:--04", "4003 --04", "X-ORVALE-FIELD;X-ORVALE-ID=4003:--04", "BDAY:--04"},
        {"BDAY:---12", "4003 ---12", "X-ORVALE-FIELD;X-ORVALE-ID=4003:---12", "BDAY:---12"},
        {"BDAY:--1341", "4003 --1341", "X-ORVALE-FIELD;X-ORVALE-ID=4003:--1341",
         "BDAY;VALUE=text;X-ORVALE-ID=4003:--1341"},
        {"GENDER:M", "4008 M", "X-GENDER:M", "GENDER:M"},
        {"GENDER:M;Fellow", "4008 M, Fellow", "X-GENDER:M\\, Fellow", "GENDER:M;Fellow"},
        {"GENDER:;Fellow", "4008 Fellow", "X-GENDER:Fellow", "GENDER:;Fellow"},
        {"GENDER:O;a\\, b", "4008 O, a, b", "X-GENDER:O\\, a\\, b", "GENDER:O;a\\, b"},
        {"GENDER:;M\\, ", "4008 M, ", "X-GENDER:M\\, ", "GENDER:;M\\, "},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.line);
        folder.Put("a.vcf", Card(std::string("FN:A\r\n") + each.line + "\r\n", "4.0"));
        for (const std::string version : {"3.0", "4.0"}) {
            Run("convert --force --vcard-version " + version + " a.vcf b.vcf");
            const std::string line = version == "3.0" ? each.in30 : each.in40;
            EXPECT_THAT(folder.Get("b.vcf"), HasSubstr("\r\n" + line + "\r\n"));
            EXPECT_EQ(Told(folder, "b.vcf"), std::string("5 A\n") + each.told + "\n") << version;
        }
    }
}

std::string InWideUnits(std::string_view ascii) {
    std::string wide;
    for (const char c : ascii)
        wide += {c, '\0'};
    return wide;
}

// The module's reader keeps the files whose every line it takes.
TEST_F(VcfTest, AVCardIsTheModulesWhereItsReaderTakesEveryLine) {
    const std::string plain = Card("N:A;B\r\nTEL;CELL:1\r\ntel;home;voice:2\r\nREV:x\r\n", "2.1") + "\r\n";
    const struct {
        std::string file;
        const char* format;
    } kCases[] = {
        {plain + plain, "vcard"},
        {plain.substr(0, plain.size() - 13), "vcard"},  // without its end
        {plain.substr(0, plain.size() - 16), "vcard"},
        {Card("NOTE:M\xFCller\r\n", "2.1"), "vcard"},
        {"x\r\n" + plain, "vcf"},
        {plain + "x\r\n", "vcf"},
        {InWideUnits("BEGIN:VCARD \t\r\nVERSION:3.0\r\nFN:A\r\nEND:VCARD\r\n"), "vcf"},
        {plain + Card("FN:A\r\n", "3.0"), "vcf"},
        {Card("TEL;VOICE;CELL:1\r\n", "2.1"), "vcf"},
        {Card("NOTE;ENCODING=QUOTED-PRINTABLE:a=\r\nFN:b\r\n", "2.1"), "vcf"},
        {"BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE;ENCODING=QUOTED-PRINTABLE:a=\r\n", "vcf"},  // as it was when whole
        {Card("NOTE:a\r\n b\r\n", "2.1"), "vcf"},
        {Card("NOTE:" + std::string(2048, 'a') + "\r\n", "2.1"), "vcf"},
        {Replaced(plain, "\r\n", "\n"), "vcf"},
        {Replaced(plain, "\r\n", "\r"), "vcf"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(testing::PrintToString(each.file.substr(0, 80)));
        folder.Put("a.txt", each.file);
        EXPECT_THAT(Run("info --json a.txt").output, HasSubstr(std::string("\"format\": \"") + each.format + "\""));
    }
    folder.Put("b.vcf", Card("FN:A\r\n", "3.0"));
    EXPECT_THAT(Run("info --json --format vcard b.vcf").output, HasSubstr("\"records\": 0,"));
}

}  // namespace
}  // namespace orvale::test
