#include <gtest/gtest.h>
#include <stdlib.h>

#include <map>
#include <string>

#include "faults/Roads.h"
#include "support/Cases.h"

namespace orvale::test {
namespace {

struct HostileFile {
    std::string name;
    std::size_t cost;  ///< the memory that it may take beside the usual one and ten MiB, in its own sizes
    std::string bytes;
};

// What each format's reader is weak against.
std::vector<HostileFile> HostileFiles() {
    const std::size_t many = getenv("ORVALE_FAULTS") != nullptr ? 100'000 : 5'000;
    const std::map<std::string, std::size_t> costs = {{"once", 1}, {"tree", 20}, {"record", 36}, {"values", 140}};
    std::vector<HostileFile> files;
    const auto add = [&](const std::string& table, Words words) {
        words.insert(words.end(), {{"MANY_BY_11", std::to_string(11 * many)}, {"MANY", std::to_string(many)}});
        for (const auto& row : Cases(table, words))
            files.push_back({row.at(0), costs.at(row.at(1)), row.at(2)});
    };
    add("hostile.cases", {});
    add("hostile-native.cases", {{"EXTENSION", "qzs"}, {"HEAD", "<QZ-QZS>{16*\\0}"}});
    add("hostile-native.cases", {{"EXTENSION", "sms"}, {"HEAD", "<QZ-SMS>{6*\\0}"}});
    add("hostile-native.cases", {{"EXTENSION", "cal"}, {"HEAD", "<QZ-CAL>{16*\\0}"}});
    add("hostile-native.cases", {{"EXTENSION", "eml"}, {"HEAD", "<QZ-EML>{16*\\0}"}});
    add("hostile-suite.cases", {{"ENTRIES", "contactentries"}, {"ENTRY", "contact"}, {"ROOT", "phonebook"}});
    add("hostile-suite.cases", {{"ENTRIES", "calendarentries"}, {"ENTRY", "data"}, {"ROOT", "calendar"}});
    add("hostile-suite.cases", {{"ENTRIES", "smsentries"}, {"ENTRY", "sms"}, {"ROOT", "SMS"}});
    add("hostile-suite.cases", {{"ENTRIES", "emailentries"}, {"ENTRY", "email"}, {"ROOT", "email"}});
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
        const std::size_t most = usual + 10 * 1024 + file.cost * size;
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
