#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "command/Program.h"
#include "records/ContactFieldTypes.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

std::string Document(const std::string& records) {
    return "{\n  \"orvale\": 1,\n  \"kind\": \"contacts\",\n  \"profile\": null,\n  \"records\": [" + records +
           "\n  ]\n}\n";
}

std::string Field(std::int32_t type, const std::string& data, const std::string& more = "") {
    const ContactFieldType* const row = FindContactFieldType(type);
    return "\n        {\n          \"type\": " + std::to_string(type) +
           (row != nullptr ? ",\n          \"typeName\": \"" + std::string(row->name) + "\"" : "") +
           ",\n          \"data\": \"" + data + "\"" + more + "\n        }";
}

std::string Contact(const std::string& storage, const std::string& fields) {
    return "\n    {\n      \"storage\": " + storage + ",\n      \"fields\": [" + fields + "\n      ]\n    }";
}

// Every type id, four scripts, extras, and groups whose keys share a bucket (1, 3 and 273) or stand before others.
std::string RichDocument() {
    std::string fields;
    for (const ContactFieldType& type : kContactFieldTypes)
        fields += Field(type.id, "Ann Müller Ελένη Ирина 山田 😀 " + std::to_string(type.id)) + ",";
    const std::string groups = R"(,
          "extraNumber": 4294967295,
          "extraText": "x\ty",
          "groups": [
            {
              "id": 273,
              "name": "Friends"
            },
            {
              "id": 3,
              "name": "Work"
            },
            {
              "id": 1,
              "name": ""
            },
            {
              "id": 17,
              "name": "Club"
            },
            {
              "id": -5,
              "name": "Old"
            }
          ])";
    return Document(Contact("0", fields + Field(-7, "", groups)) + "," + Contact("-2147483648", Field(5, "B")));
}

class ConvertTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words, const std::string& before = "") { return RunOrvale(folder, words, before); }

    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder / ""), fs::directory_iterator()));
    }

    ScratchFolder folder;
};

TEST_F(ConvertTest, ARichContactGoesThroughTheNativeFileUnchanged) {
    folder.Put("in.json", RichDocument());
    const Outcome first = Run("convert --strict in.json a.qzs");
    EXPECT_EQ(first.exitCode, 0) << first.errors;
    EXPECT_EQ(first.errors, "");
    EXPECT_EQ(Run("convert --strict a.qzs out.json").exitCode, 0);
    EXPECT_EQ(folder.Get("out.json"), RichDocument());
    EXPECT_EQ(Run("show --json a.qzs").output, RichDocument());
}

TEST_F(ConvertTest, AContactComesBackFromAVCardAsTheFormatSays) {
    folder.Put("in.json", Document(Contact("0", Field(1, "Ann") + "," + Field(2, "Lee") + "," + Field(1002, "a@b") +
                                                    "," + Field(4002, "Sales") + "," + Field(2001, "1 Main St") + "," +
                                                    Field(3002, "a;b"))));
    const Outcome out = Run("convert in.json card.vcf");
    EXPECT_EQ(out.exitCode, 0);
    EXPECT_EQ(out.errors,
              "orvale: card.vcf: lost: department: 1, first in contact 1\n"
              "orvale: card.vcf: changed: email 3 became email: 1, first in contact 1\n"
              "orvale: card.vcf: changed: work address became work street: 1, first in contact 1\n"
              "orvale: card.vcf: added: full name: 1, first in contact 1\n"
              "orvale: card.vcf: added: work address: 1, first in contact 1\n"
              "orvale: card.vcf: moved: order of the values: 1, first in contact 1\n");
    const std::string card = folder.Get("card.vcf");
    EXPECT_THAT(card, HasSubstr("N:Lee;Ann\r\nFN:Ann Lee\r\nEMAIL;PREF;INTERNET:a@b\r\nADR;WORK:;;1 Main St\r\n"
                                "NOTE;ENCODING=QUOTED-PRINTABLE:a=3Bb\r\nREV:"));

    EXPECT_EQ(Run("convert --strict card.vcf a.qzs").exitCode, 0);
    EXPECT_EQ(Run("convert a.qzs again.vcf").errors,
              "orvale: again.vcf: changed: work address: 1, first in contact 1\n"
              "orvale: again.vcf: changed: work street became work region: 1, first in contact 1\n"
              "orvale: again.vcf: added: work region 2: 1, first in contact 1\n");
    EXPECT_THAT(folder.Get("again.vcf"), HasSubstr("ADR;WORK:;;;;1 Main St\r\n"));
}

TEST_F(ConvertTest, TellsWhatAVCardReaderCantMakeOut) {
    folder.Put(
        "odd.vcf",
        "hello\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nFN:A\r\nX-FOO:bar\r\nTEL;X:1\r\nNOTE:\xFF\r\nEND:VCARD\r\n"
        "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:B\r\nEND:VCARD\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nFN:C\r\nEND:VCARD\r\n");
    const Outcome out = Run("convert --from vcard odd.vcf a.qzs");
    EXPECT_EQ(out.exitCode, 0);
    EXPECT_EQ(out.errors,
              "orvale: a.qzs: lost: bytes that code page 65001 doesn't have: 1, first in odd.vcf, line 7\n"
              "orvale: a.qzs: lost: lines outside of cards of version 2.1: 5, first in odd.vcf, line 1\n"
              "orvale: a.qzs: lost: lines with an unknown key, which joined the value before them: 2, first in "
              "odd.vcf, line 5\n");
    EXPECT_EQ(Run("convert --strict --from vcard odd.vcf b.qzs").exitCode, 3);
    EXPECT_FALSE(fs::exists(folder / "b.qzs"));
}

// What a card's line becomes in the report; each is a loss.
TEST_F(ConvertTest, NothingOfACardGoesInSilence) {
    const struct {
        std::string lines;
        const char* loss;
    } kCases[] = {
        {"NOTE;ENCODING=QUOTED-PRINTABLE:M=FCller\r\n",
         "bytes that code page 65001 doesn't have: 1, first in in.vcf, line 4"},
        {std::string("TITLE:x\0yz\r\n", 12), "ends of values behind a zero byte: 1, first in in.vcf, line 4"},
        {"ROLE:a=00b\r\n", "ends of values behind a zero byte: 1, first in in.vcf, line 4"},
        {"REV:2010\r\nlost\r\n", "lines that belong to no value, which were dropped: 1, first in in.vcf, line 5"},
        {"X-A:b\r\nmore\r\n",
         "lines with an unknown key, which joined the value before them: 2, first in in.vcf, line 4"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.loss);
        folder.Put("in.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:A\r\n" + each.lines + "END:VCARD\r\n");
        EXPECT_EQ(Run("convert --force --from vcard in.vcf a.qzs").errors,
                  "orvale: a.qzs: lost: " + std::string(each.loss) + "\n");
    }
    folder.Put("in.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nTEL;CELL:\r\nX-A:b\r\nNOTE:good\r\n fold\r\nEND:VCARD\r\n");
    EXPECT_EQ(Run("convert --force --from vcard in.vcf a.qzs").errors,
              "orvale: a.qzs: lost: lines that belong to no value, which were dropped: 1, first in in.vcf, line 4\n");
}

TEST_F(ConvertTest, ALossOfSeveralFilesIsToldOnce) {
    for (const char* const name : {"1.vcf", "2.vcf"})
        folder.Put(name, "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\nX-A:b\r\nEND:VCARD\r\n");
    EXPECT_EQ(Run("convert 1.vcf 2.vcf a.qzs").errors, "orvale: a.qzs: lost: X-A: 2, first in 1.vcf, line 4\n");
}

TEST_F(ConvertTest, AValueThatEndsItsCardIsALoss) {
    folder.Put("in.json", Document(Contact("0", Field(5, "Ann") + "," + Field(105, "1\\r\\nEND:VCARD"))));
    const Outcome out = Run("convert in.json a.vcf");
    EXPECT_EQ(out.exitCode, 0);
    EXPECT_THAT(out.errors, HasSubstr("lost: pieces of a value that ends its record: 1"));
}

// A native file may hold half a character, which no UTF-8 tells.
TEST_F(ConvertTest, HalvesOfCharactersAreALoss) {
    const auto putHalf = [&](const std::string& name) {
        std::string bytes = folder.Get(name);
        folder.Put(name, bytes.replace(bytes.find("\x2D\x4E"), 2, std::string("\x00\xD8", 2)));
    };
    folder.Put("in.json", Document(Contact("0", Field(5, "Ann 中"))));
    folder.Put("mail.json", R"({"orvale": 1, "kind": "email", "records": [{"subject": "Re 中"}]})");
    ASSERT_EQ(Run("convert in.json a.qzs").exitCode + Run("convert mail.json a.eml").exitCode, 0);
    putHalf("a.qzs");
    putHalf("a.eml");
    for (const char* const words :
         {"a.qzs b.json", "a.qzs b.csv", "--to vcf a.qzs b.vcf", "a.eml c.json", "a.eml c.mbox"}) {
        const Outcome outcome = Run("convert --force --strict " + std::string(words));
        EXPECT_EQ(outcome.exitCode, 3) << words;
        EXPECT_THAT(outcome.errors,
                    testing::AnyOf(HasSubstr("lost: halves of characters that "), HasSubstr("changed: full name: 1")))
            << words;
    }
}

TEST_F(ConvertTest, ACutDocumentIsDamagedNotWrong) {
    const std::string whole = Document(Contact("0", Field(5, "Ann")) + "," + Contact("0", Field(5, "Bob")));
    const std::size_t behindAnn = whole.find("},\n    {\n      \"storage\"") + 1;
    folder.Put("cut.json", whole.substr(0, whole.size() - 20));
    const std::string place =
        "orvale: cut.json: record 2, byte " + std::to_string(behindAnn) + ": damaged from here on";
    EXPECT_EQ(Run("show cut.json").errors, place + "\n");
    EXPECT_EQ(Run("show --json cut.json").output, Document(Contact("0", Field(5, "Ann"))));
    EXPECT_THAT(Run("info --json cut.json").output, HasSubstr("\"records\": 1,\n  \"truncated\": true"));
    EXPECT_EQ(Run("convert cut.json a.qzs").exitCode, 1);
    EXPECT_EQ(Run("convert --partial cut.json a.qzs").errors, place + " and left out\n");
}

TEST_F(ConvertTest, JoinsInputsInTheirOrder) {
    folder.Put("b.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:B\r\nEND:VCARD\r\n");
    folder.Put("a.json", Document(Contact("0", Field(5, "A"))));
    EXPECT_EQ(Run("convert b.vcf a.json all.qzs").exitCode, 0);
    EXPECT_EQ(Run("show all.qzs").output, "B\n\nA\n\n2 contacts\n");
}

// A damaged file: what came whole, where the damage begins, and nothing written unless it was asked for.
TEST_F(ConvertTest, ADamagedEndIsToldWithItsPlace) {
    folder.Put("two.json", Document(Contact("0", Field(5, "Ann")) + "," + Contact("0", Field(5, "Bob"))));
    ASSERT_EQ(Run("convert two.json two.qzs").exitCode, 0);
    const std::string whole = folder.Get("two.qzs");
    folder.Put("cut.qzs", whole.substr(0, whole.size() - 1));
    folder.Put(
        "cut.vcf",
        "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:Ann\r\nEND:VCARD\r\n\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nFN:Bob\r\nX:y\r\n");
    const struct {
        const char* file;
        const char* place;
    } kCases[] = {{"cut.qzs", "cut.qzs: record 2, byte 58: damaged from here on"},
                  {"cut.vcf", "cut.vcf: record 2, byte 45: damaged from here on"}};
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.file);
        const std::string file = each.file;
        const Outcome shown = Run("show " + file);
        EXPECT_EQ(shown.exitCode, 1);
        EXPECT_EQ(shown.output, "Ann\n\n1 contact\n");
        EXPECT_EQ(shown.errors, "orvale: " + std::string(each.place) + "\n");
        EXPECT_THAT(Run("info --json " + file).output, HasSubstr("\"records\": 1,\n  \"truncated\": true"));
        EXPECT_EQ(Run("convert " + file + " new.json").exitCode, 1);
        EXPECT_FALSE(fs::exists(folder / "new.json"));
        const Outcome partial = Run("convert --partial --strict --force " + file + " part.json");
        EXPECT_EQ(partial.exitCode, 0) << partial.errors;
        EXPECT_EQ(partial.errors, "orvale: " + std::string(each.place) + " and left out\n");
        EXPECT_EQ(folder.Get("part.json"), Document(Contact("0", Field(5, "Ann"))));
    }
    EXPECT_EQ(Run("info two.qzs").exitCode, 0);
}

TEST_F(ConvertTest, WhatFailsLeavesTheOldFileAndNothingElse) {
    folder.Put("long.json", Document(Contact("0", Field(5, std::string(1024, 'x')))));
    folder.Put("good.json", Document(Contact("0", Field(5, "Ann"))));
    folder.Put("bad.json", Document(Contact("0", Field(5, "Ann")) + ", {\"fields\": [{\"tpye\": 1}]}"));
    std::string many;
    for (int i = 0; i < 2000; ++i)
        many += (i == 0 ? "" : ",") + Contact("0", Field(5, "Ann"));
    folder.Put("many.json", Document(many));
    folder.Put("old.qzs", "what was there");
    // Where coverage is counted, the counters of such a run are cut off as well, and must not spoil those of others.
    fs::create_directory(folder / "counters");
    constexpr const char* kNoRoom = "trap '' XFSZ; ulimit -f 1; GCOV_PREFIX=counters GCOV_ERROR_FILE=/dev/null";
    const struct {
        const char* words;
        const char* before;
        int exitCode;
        const char* line;
    } kCases[] = {
        {"convert --force long.json old.qzs", "", 1, "old.qzs: record 1: was written and can't be read back"},
        {"convert --force bad.json old.qzs", "", 1, "bad.json: records[1].fields[0].tpye: unknown key"},
        {"convert --force many.json old.qzs", kNoRoom, 1, "old.qzs: record "},
        {"convert --force --to json many.json old.qzs", kNoRoom, 1, "old.qzs: record "},
        {"convert good.json old.qzs", "", 1, "old.qzs: exists already; --force replaces it"},
    };
    Run("info old.qzs");  // makes the files that hold what was printed
    const std::size_t files = FilesInFolder();
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.words);
        const Outcome outcome = Run(each.words, each.before);
        EXPECT_EQ(outcome.exitCode, each.exitCode);
        EXPECT_THAT(outcome.errors, HasSubstr(std::string("orvale: ") + each.line));
        EXPECT_EQ(folder.Get("old.qzs"), "what was there");
        EXPECT_EQ(FilesInFolder(), files);
    }
    EXPECT_EQ(Run("convert --no-verify --force long.json old.qzs").exitCode, 0);
}

TEST_F(ConvertTest, KeepsALinkAndThePermissionsOfWhatItReplaces) {
    folder.Put("in.json", Document(Contact("0", Field(5, "Ann"))));
    folder.Put("real.qzs", "old");
    fs::permissions(folder / "real.qzs", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.qzs", folder / "link.qzs");
    EXPECT_EQ(Run("convert --force in.json link.qzs").exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(folder / "link.qzs"));
    EXPECT_EQ(fs::status(folder / "real.qzs").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_THAT(Run("show real.qzs").output, HasSubstr("Ann"));
    EXPECT_EQ(Run("convert --force --to json in.json /dev/null").exitCode, 1);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(ConvertTest, AFileThatAnotherHoldsIsTold) {
    folder.Put("in.json", Document(Contact("0", Field(5, "Ann"))));
    ASSERT_EQ(Run("convert in.json held.qzs").exitCode, 0);
    const int held = open((folder / "held.qzs").c_str(), O_RDONLY);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    EXPECT_EQ(Run("show held.qzs").errors, "orvale: held.qzs: another program holds the file\n");
    EXPECT_EQ(Run("convert --force in.json held.qzs").errors, "orvale: held.qzs: another program holds the file\n");
    close(held);
    ASSERT_EQ(mkfifo((folder / "pipe.qzs").c_str(), 0600), 0);
    EXPECT_EQ(Run("show --format qzs pipe.qzs").exitCode, 1);
    EXPECT_EQ(Run("show --format json pipe.qzs").exitCode, 1);
}

TEST_F(ConvertTest, AWrongFlagIsReadOnlyWhereTheFormatIsNamed) {
    folder.Put("in.json", Document(Contact("0", Field(5, "Ann"))));
    ASSERT_EQ(Run("convert in.json a.qzs").exitCode, 0);
    std::string bytes = folder.Get("a.qzs");
    bytes[4] = 'X';
    folder.Put("wrong.qzs", bytes);
    const std::string line = "orvale: wrong.qzs: no whole file of the format qzs (VERIFY_WRONG_FLAG)\n";
    const Outcome refused = Run("show wrong.qzs");
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors, line);
    const Outcome named = Run("show --format qzs wrong.qzs");
    EXPECT_EQ(named.exitCode, 0);
    EXPECT_EQ(named.errors, line);
    EXPECT_THAT(named.output, HasSubstr("Ann"));
    EXPECT_EQ(Run("convert --from qzs wrong.qzs b.json").exitCode, 0);
    EXPECT_EQ(Run("info wrong.qzs").exitCode, 1);
}

TEST_F(ConvertTest, ConvertsTextByTheCodePageThatIsNamed) {
    folder.Put("in.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:M\xFCller\r\nEND:VCARD\r\n");
    EXPECT_EQ(Run("convert --codepage 1252 in.vcf a.qzs").errors, "");
    EXPECT_THAT(Run("show a.qzs").output, HasSubstr("Müller"));
    folder.Put("in.json", Document(Contact("0", Field(5, "山"))));
    EXPECT_THAT(Run("convert --codepage 1252 in.json b.vcf").errors, HasSubstr("changed: full name: 1"));
}

}  // namespace
}  // namespace orvale::test
