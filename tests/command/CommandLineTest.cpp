#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Program.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr char kContacts[] =
    R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [{"type": 5, "data": "Ann"}]}]})";

class CommandLineTest : public testing::Test {
 protected:
    CommandLineTest() {
        folder.Put("ann.json", kContacts);
        folder.Put("note.txt", "nothing of ours");
        folder.Put("sms.json", R"({"orvale": 1, "kind": "sms", "records": []})");
        folder.Put("[odd] name.json", kContacts);
        for (const auto& [name, date] : {std::pair("date.json", R"("2010-13-26T06:00:15")"),
                                         {"day.json", R"("2010-07-26")"},
                                         {"truth.json", "true"}})
            folder.Put(name,
                       R"({"orvale": 1, "kind": "calendar", "records": [{"dtstart": )" + std::string(date) + "}]}");
        EXPECT_EQ(RunOrvale(folder, "convert ann.json ann.qzs").exitCode, 0);
    }

    ScratchFolder folder;
};

// What a person types, how it ends, and the one line that says why.
TEST_F(CommandLineTest, EndsWithACodeAndOneLine) {
    const struct {
        const char* words;
        int exitCode;
        const char* line;
    } kCases[] = {
        {"", 2, "a verb is missing; the verbs are formats, info, show, view, diff, convert, log, help ('orvale help'"},
        {"shwo ann.qzs", 2, "unknown verb 'shwo'; is 'show' meant? (the verbs are formats, info, show"},
        {"verschieben ann.qzs", 2,
         "unknown verb 'verschieben'; the verbs are formats, info, show, view, diff, convert, log, help"},
        {"--json info ann.qzs", 2, "unknown verb '--json'; options come behind the verb"},
        {"help shwo", 2, "unknown verb 'shwo'; is 'show' meant?"},
        {"help show info", 2, "too many arguments; help takes [VERB]"},
        {"show", 2, "show takes FILE"},
        {"show ann.qzs ann.json", 2, "too many arguments; show takes FILE"},
        {"show --colour ann.qzs", 2, "unknown option '--colour'; is '--color' meant?"},
        {"show --jsn=1 ann.qzs", 2, "unknown option '--jsn=1'; is '--json' meant?"},
        {"show -j ann.qzs", 2, "unknown option '-j'\n"},
        {"show --color=blue ann.qzs", 2, "--color takes auto, always or never, not 'blue'"},
        {"show --format vcrd ann.qzs", 2, "unknown format 'vcrd'; is 'vcard' meant? ('orvale formats' lists them)"},
        {"show --format XML ann.qzs", 2, ".xml files are of phonebook-xml, calendar-xml, sms-xml, email-xml"},
        {"show --module missing.so ann.qzs", 1, "orvale: missing.so: cannot open"},
        {"info --format qzs - -", 2, "standard input can be read only once"},
        {"show --format", 2, "--format"},
        {"show --codepage 7 ann.qzs", 2, "unknown code page 7"},
        {"show --codepage 1252x ann.qzs", 2, "unknown code page 1252x"},
        {"show missing.qzs", 1, "missing.qzs: No such file or directory"},
        {"show .", 1, ".: is a folder without a file of the format vcalendar"},
        {"show --format bogus missing.qzs", 2, "unknown format 'bogus'"},
        {"show --format '' ann.qzs", 2, "--format is empty"},
        {"show /dev/zero", 1, "/dev/zero: is no regular file"},
        {"show '\033[31mno\nsuch'", 1, "^[[31mno^Jsuch: No such file or directory"},
        {"show note.txt", 1, "note.txt: not recognised as any format"},
        {"show --format qzs note.txt", 1, "note.txt: its header can't be read (VERIFY_WRONG_FLAG)"},
        {"info missing.qzs", 1, "missing.qzs: No such file or directory"},
        {"convert ann.qzs", 2, "convert takes INPUT... OUTPUT"},
        {"convert ann.qzs new.doc", 2, "new.doc: nothing tells its format; --to names one"},
        {"convert ann.qzs ann.json", 1, "ann.json: exists already; --force replaces it"},
        {"convert --force ann.qzs ann.qzs", 1, "ann.qzs: is an input too"},
        {"convert --to json ann.qzs .", 1, ".: is a folder"},
        {"convert ann.qzs missing/new.vcf", 1, "missing/new.vcf: No such file or directory"},
        {"convert sms.json new.qzs", 1, "sms.json: holds messages, not contacts"},
        {"convert ann.json sms.json new.json", 1, "sms.json: holds messages, not contacts"},
        {"convert --strict --no-verify ann.qzs new.vcf", 2,
         "--strict needs the reading back that --no-verify leaves out"},
        {"convert --from sms ann.qzs new.qzs", 2, "--from and the output's format are of two kinds"},
        {"show date.json", 1, "date.json: records[0].dtstart: no date; it reads like 2010-07-26T06:00:15"},
        {"show day.json", 1, "day.json: records[0].dtstart: no date; it reads like 2010-07-26T06:00:15"},
        {"show truth.json", 1, "truth.json: records[0].dtstart: expected a date"},
        {"log nonsense", 2, "the log is off, file, debug or both, not 'nonsense'"},
        {"show --module missing.so ann.qzs", 1, "missing.so"},
        {"log nonsense --module missing.so", 2, "the log is off, file, debug or both, not 'nonsense'"},
        {"log file --module .", 1, "is no file"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.words);
        const Outcome outcome = RunOrvale(folder, each.words, "ORVALE_REGISTRY=reg");
        EXPECT_EQ(outcome.exitCode, each.exitCode);
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.errors, StartsWith("orvale: "));
        EXPECT_THAT(outcome.errors, HasSubstr(each.line));
        EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1) << outcome.errors;
    }
}

TEST_F(CommandLineTest, TakesNamesWithBracketsAndDashes) {
    folder.Put("-dash.json", kContacts);
    EXPECT_THAT(RunOrvale(folder, "show '[odd] name.json'").output, HasSubstr("Ann"));
    EXPECT_THAT(RunOrvale(folder, "show -- -dash.json").output, HasSubstr("Ann"));
}

TEST_F(CommandLineTest, FormatsAsAListAndAsJson) {
    EXPECT_THAT(RunOrvale(folder, "formats").output, HasSubstr("vcard           contacts    .vcf    reads, writes\n"));
    const std::string json = RunOrvale(folder, "formats --json").output;
    EXPECT_THAT(json, HasSubstr(R"(  {
    "name": "vcard",
    "kind": "contacts",
    "extension": ".vcf",
    "type": 3,
    "reads": true,
    "writes": true
  })"));
    EXPECT_THAT(json, HasSubstr("\"name\": \"json\",\n    \"kind\": null"));
}

TEST_F(CommandLineTest, InfoGoesOnAfterAFileThatFails) {
    const Outcome outcome = RunOrvale(folder, "info --json ann.qzs missing ann.json");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "orvale: missing: No such file or directory\n");
    EXPECT_THAT(outcome.output, HasSubstr("\"file\": \"ann.qzs\""));
    EXPECT_THAT(outcome.output, HasSubstr("\"file\": \"ann.json\""));
    EXPECT_THAT(RunOrvale(folder, "info --json ann.qzs").output,
                StartsWith("{\n  \"file\": \"ann.qzs\",\n  \"format\": \"qzs\","));
    EXPECT_EQ(RunOrvale(folder, "info ann.qzs").output,
              "ann.qzs: qzs (contacts), version 100, VERIFY_OK (0), 1 record\n");
}

TEST_F(CommandLineTest, ContentTellsTheFormatBeforeTheExtension) {
    folder.Put("card.qzs", "\r\n begin:vcard\r\nVERSION:2.1\r\nFN:A\r\nEND:VCARD\r\n");
    folder.Put("empty.vcf", "");
    folder.Put("marked.xml",
               "\xEF\xBB\xBF<SMS id='suite-SMS'><profile/><smsentries><sms><content>\nBEGIN:VCARD\n</content></sms>"
               "</smsentries></SMS>");
    EXPECT_THAT(
        RunOrvale(folder, "info card.qzs empty.vcf marked.xml").output,
        testing::AllOf(HasSubstr("card.qzs: vcard"), HasSubstr("empty.vcf: vcard"), HasSubstr("marked.xml: sms-xml")));
}

TEST_F(CommandLineTest, SetsTheLogOfTheModuleInUse) {
    folder.Put("reg", "[HKEY_CURRENT_USER\\Other]\r\n\"x\"=\"y\"\r\n");
    EXPECT_THAT(RunOrvale(folder, "log", "ORVALE_REGISTRY=reg").output, StartsWith("log: off\n"));
    for (const char* word : {"file", "debug", "both", "off"}) {
        EXPECT_EQ(RunOrvale(folder, std::string("log ") + word, "ORVALE_REGISTRY=reg").exitCode, 0);
        EXPECT_THAT(RunOrvale(folder, "log", "ORVALE_REGISTRY=reg").output,
                    StartsWith("log: " + std::string(word) + "\n"));
    }
    EXPECT_THAT(folder.Get("reg"), HasSubstr("\"x\"=\"y\"\r\n"));
    EXPECT_THAT(RunOrvale(folder, "log --module note.txt", "ORVALE_REGISTRY=reg").errors,
                HasSubstr("note.txt: only a module of the name Orvale.so keeps a log\n"));
    EXPECT_EQ(RunOrvale(folder, "log file", "ORVALE_REGISTRY=reg/none").errors, "orvale: reg/none: Not a directory\n");
    EXPECT_EQ(RunOrvale(folder, "log", "unset HOME XDG_CONFIG_HOME; ORVALE_REGISTRY=").errors,
              "orvale: registry: neither ORVALE_REGISTRY nor a home folder tells its place\n");
    RunOrvale(folder, "log debug", "ORVALE_REGISTRY=reg");
    EXPECT_THAT(RunOrvale(folder, "info ann.qzs", "ORVALE_REGISTRY=reg").errors,
                HasSubstr("ORVALE - CQZSFile::Read : Succeeded"));
}

TEST_F(CommandLineTest, AFullStandardOutputIsAFailure) {
    const Outcome outcome = RunOrvale(folder, "show ann.qzs >/dev/full 2>.errors; exit $?; true");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "orvale: standard output: can't be written\n");
}

}  // namespace
}  // namespace orvale::test
