#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

#include "faults/Roads.h"

namespace orvale::test {
namespace {

std::string Times(std::size_t count, const std::string& text) {
    std::string all;
    all.reserve(count * text.size());
    while (count-- > 0)
        all += text;
    return all;
}

std::string Int(std::uint32_t number) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<char>(number >> shift & 0xFF));
    return bytes;
}

std::string Card(const std::string& lines) {
    return "BEGIN:VCARD\r\nVERSION:2.1\r\n" + lines + "END:VCARD\r\n";
}

// One item of a kind that has it all: a file's beginning and end of another format's making.
std::string Native(const std::string& flag, std::size_t header) {
    std::string bytes = flag;
    bytes.resize(header, '\0');
    return bytes;
}

std::string Suite(const std::string& root, const std::string& id, const std::string& inner,
                  const std::string& head = "") {
    return "<?xml version='1.0'?>" + head + "<" + root + " version=\"100\" id=\"" + id + "\">" + inner + "</" + root +
           ">";
}

constexpr std::uint32_t kHuge = 2'000'000'000;
constexpr std::size_t kMillion = 1'000'000;
constexpr std::size_t kZeros = 100'000;
// As many as a test of every day has time for, or as a file of some megabytes holds.
const std::size_t kMany = getenv("ORVALE_FAULTS") != nullptr ? 100'000 : 5'000;

const std::string& Bomb() {
    static const std::string bomb = [] {
        std::string text = "<!DOCTYPE x [<!ENTITY a0 \"" + Times(100, "ha") + "\">";
        for (int i = 1; i < 12; ++i) {
            const std::string inner = "&a" + std::to_string(i - 1) + ";";
            text += "<!ENTITY a" + std::to_string(i) + " \"" + Times(10, inner) + "\">";
        }
        return text + "]>";
    }();
    return bomb;
}

// How much memory a file may cost beyond that of a small one of its format.
enum class Cost {
    kOnce,    ///< as much as the file is long, and ten MiB
    kTree,    ///< a document that is in memory as a whole
    kRecord,  ///< one record that is in memory as a whole, also as JSON
    kValues,  ///< the same, of values that are short in the file and whole fields in the record
};

struct HostileFile {
    std::string name;
    std::string bytes;
    Cost cost = Cost::kOnce;
};

// In the format's own order of things: what its reader is weak against.
std::vector<HostileFile> HostileFiles() {
    const std::string longLine(kMillion, 'x');
    const std::string counts = Times(64, Int(kHuge));
    const std::string negatives = Times(64, Int(0xFFFFFFFF));
    std::vector<HostileFile> files = {
        {"a line of a million.vcf", Card("FN:" + longLine + "\r\n"), Cost::kRecord},
        {"a line without an end.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:" + longLine},
        {"a soft line break at the end.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE;ENCODING=QUOTED-PRINTABLE:a="},
        {"a card without an end.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:a\r\n"},
        {"a zero byte in a value.vcf", Card(std::string("FN:a\0b\r\n", 8))},
        {"many cards.vcf", Times(kMany, Card("FN:a\r\n"))},
        {"many beginnings.vcf", Times(kMany, "BEGIN:VCARD\r\nVERSION:2.1\r\n")},
        {"a card of many values.vcf", Card(Times(kMany, "TEL:1\r\n")), Cost::kValues},
        {"a value of many lines.vcf", Card("NOTE:a\r\n" + Times(kMany, "and more\r\n")), Cost::kRecord},
        {"many unknown keys.vcf", Card("FN:a\r\n" + Times(kMany, "X-Y:b\r\n"))},
        {"a name of a thousand parts.vcf", Card("N:" + Times(1000, ";") + "\r\nADR:" + Times(1000, ";") + "\r\n")},
        {"escapes alone.vcf", Card("FN:a\r\n" + Times(kMany, "NOTE:" + Times(8, "=3D") + "\r\n")), Cost::kRecord},
        {"a line of a million.vcs",
         "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nSUMMARY:" + longLine + "\r\nEND:VEVENT\r\nEND:VCALENDAR"},
        {"many lines.vcs",
         "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nSUMMARY:a\r\n" + Times(kMany, "more=\r\n")},
        {"many values.vcs", "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\n" + Times(kMany, "SUMMARY:a\r\n")},
        {"a soft line break at the end.vcs", "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nSUMMARY:a="},
        {"a zero byte in a value.vcs", "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nSUMMARY:a" +
                                           std::string(1, '\0') + "b\r\nEND:VEVENT\r\nEND:VCALENDAR"},
        {"a line of a million.csv", "Full name,\r\n" + longLine + "\r\n"},
        {"captions of a million.csv", longLine + ",\r\na,\r\n"},
        {"a thousand columns.csv", Times(1000, "a,") + "\r\n" + Times(100, Times(1000, "b,") + "\r\n")},
        {"quotes that never pair.csv", "Full name,Note,\r\n" + Times(5000, Times(400, "\"a,\"b\"\",") + "\r\n")},
        {"many lines.csv", "Full name,\r\n" + Times(kMany, "\"a\",\r\n")},
        {"a record without an end.ssy", Native("x", 50) + Int(kMillion) + longLine},
        {"many records.ssy",
         Native("x", 50) + Int(static_cast<std::uint32_t>(11 * kMany)) + Times(kMany, std::string("a,b,c,d,e:\0", 11))},
        {"commas alone.ssy", Native("x", 50) + Int(2000 * 500) + Times(500, std::string(1999, ',') + '\0')},
        {"a value of a million.json",
         R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [{"type": 5, "data": ")" + longLine + "\"}]}]}",
         Cost::kRecord},
        {"nested.json", R"({"orvale": 1, "kind": "contacts", "profile": )" + std::string(kMillion, '[')},
        {"a number of a million digits.json", "{\"orvale\": " + std::string(kMillion, '1') + "}"},
        {"a key of a million.json", "{\"" + longLine + "\": 1}"},
        {"many records.json", R"({"orvale": 1, "kind": "contacts", "records": [{})" + Times(kMany, ", {}") + "]}"},
        {"white space.json", std::string(kMillion, ' ') + "{"},
    };
    const struct {
        const char* extension;
        std::string head;
    } kNatives[] = {{".qzs", Native("<QZ-QZS>", 24)},
                    {".sms", Native("<QZ-SMS>", 14)},
                    {".cal", Native("<QZ-CAL>", 24)},
                    {".eml", Native("<QZ-EML>", 24)}};
    for (const auto& [extension, head] : kNatives) {
        const std::pair<const char*, std::string> kBodies[] = {{"counts of two thousand million", counts},
                                                               {"negative counts", negatives},
                                                               {"zeros", std::string(kZeros, '\0')},
                                                               {"nothing", ""}};
        for (const auto& [name, body] : kBodies)
            files.push_back({std::string(name) + extension, head + body, Cost::kOnce});
    }
    const struct {
        const char* root;
        const char* id;
        const char* entries;
        const char* entry;
    } kSuites[] = {{"phonebook", "suite-phonebook", "contactentries", "contact"},
                   {"calendar", "suite-calendar", "calendarentries", "data"},
                   {"SMS", "suite-SMS", "smsentries", "sms"},
                   {"email", "suite-email", "emailentries", "email"}};
    for (const auto& [root, id, entries, entry] : kSuites) {
        const auto inEntries = [&, root = root, id = id, entries = entries](const std::string& inner) {
            return Suite(root, id, "<profile/><" + std::string(entries) + ">" + inner + "</" + entries + ">");
        };
        const std::string open = "<" + std::string(entry) + ">";
        const std::string close = "</" + std::string(entry) + ">";
        const std::tuple<const char*, std::string, Cost> kBodies[] = {
            {"entities that grow", Suite(root, id, "<profile>&a11;</profile>", Bomb()), Cost::kOnce},
            {"an entity of itself", Suite(root, id, "&a;", "<!DOCTYPE x [<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">]>"),
             Cost::kOnce},
            {"an entity of a file", Suite(root, id, "&a;", "<!DOCTYPE x [<!ENTITY a SYSTEM \"/etc/passwd\">]>"),
             Cost::kOnce},
            {"nested", Suite(root, id, "<profile>" + Times(kMany, "<a>")), Cost::kOnce},
            {"many entries", inEntries(Times(kMany, open + close)), Cost::kTree},
            {"an entry of many values", inEntries(open + Times(kMany, "<name>a</name>") + close), Cost::kTree},
            {"a value of a million", inEntries(open + "<name>" + longLine + "</name>" + close), Cost::kTree},
            {"many attributes",
             [&, name = entry] {
                 std::string attributes;
                 for (std::size_t i = 0; i < kMany; ++i)
                     attributes += " a" + std::to_string(i) + "=''";
                 return inEntries("<" + std::string(name) + attributes + "/>");
             }(),
             Cost::kTree},
            {"many prefixes",
             [&] {
                 std::string elements;
                 for (std::size_t i = 0; i < kMany; ++i)
                     elements += "<a" + std::to_string(i) + ":b xmlns:a" + std::to_string(i) + "='x'/>";
                 return inEntries(elements);
             }(),
             Cost::kTree},
            {"a comment of a million", inEntries("<!--" + longLine + "-->"), Cost::kTree},
        };
        for (const auto& [name, bytes, cost] : kBodies)
            files.push_back({std::string(name) + "." + root + ".xml", bytes, cost});
    }
    return files;
}

// `info` and a conversion with --partial end by themselves, in one of the two codes for a file's failing or not, with
// memory in proportion to the file. No time is asked for, since that is the machine's: one that goes on for minutes is
// ended and fails.
TEST(HostileFilesTest, NoneTakesMoreThanItsShare) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    constexpr bool kMeasures = false;
#else
    constexpr bool kMeasures = true;
#endif
    constexpr std::size_t kTimes[] = {1, 20, 36, 140};
    const ScratchFolder folder;
    const std::size_t usual = [&] {
        const auto [name, bytes] = SampleOf(FormatOfName("phonebook-xml"));
        folder.Put(name, bytes);
        return RunCommandWith({}, {"info", (folder / name).string()}).peakKiB;
    }();
    for (const HostileFile& file : HostileFiles()) {
        SCOPED_TRACE(file.name);
        folder.Put(file.name, file.bytes);
        const std::string path = (folder / file.name).string();
        const std::size_t size = file.bytes.size() / 1024;
        const std::size_t most = usual + 10 * 1024 + kTimes[static_cast<std::size_t>(file.cost)] * size;
        const std::string other = (folder / "out.json").string();
        const std::vector<std::string> kWords[] = {{"info", path}, {"convert", "--partial", "--force", path, other}};
        for (const auto& words : kWords) {
            const FaultRun run = RunCommandWith({}, words);
            EXPECT_EQ(run.signal, 0) << words[0];
            EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1) << run.exitCode << run.errors;
            EXPECT_LT(run.errors.size() + run.output.size(), 4096U) << words[0];
            if (kMeasures) {
                EXPECT_LT(run.peakKiB, most) << words[0] << ", file of " << size << " KiB";
            }
            std::printf("%-46s %-8s %6zu KiB, %6zu KiB more, %5.2f s, exit %d\n", file.name.c_str(), words[0].c_str(),
                        size, run.peakKiB > usual ? run.peakKiB - usual : 0, run.seconds, run.exitCode);
        }
        std::filesystem::remove(path);
    }
}

}  // namespace
}  // namespace orvale::test
