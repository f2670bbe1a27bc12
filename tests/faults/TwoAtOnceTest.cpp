#include <gtest/gtest.h>
#include <stdlib.h>

#include <set>

#include "faults/Roads.h"

namespace orvale::test {
namespace {

constexpr const char* kOther =
    R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [{"type": 1, "data": "Other"}, {"type": 104,
        "data": "1"}]}]})";

// One process is stopped at each of its system calls, another does all its work meanwhile, and the first goes on: what
// either of them tells and what is left must be what one after the other could have brought about.
class TwoAtOnceTest : public testing::TestWithParam<std::string> {
 protected:
    TwoAtOnceTest() {
        const FormatRow& format = FormatOfName(GetParam());
        const auto source = SampleOf(FormatOfName("json"), Kind::kContacts);
        target_ = "out" + std::string(format.extension);
        to_ = "--to=" + std::string(format.name);
        sources_ = {source, {"other.json", kOther}};
        first_ = source.first;
        // What the target holds once the one or the other is done alone, and what a reader then tells.
        for (const std::string& name : {first_, std::string("other.json")}) {
            Road alone("", {"convert", "--force", to_, "@/" + name, "@/" + target_}, sources_);
            whole_.push_back(alone.After().at(target_));
            Road reader("", {"show", "--json", "--no-profile", "@/" + target_}, {{target_, whole_.back()}});
            shown_.push_back(reader.Clean().output);
        }
    }

    Files With(const std::string& bytes) const {
        Files files = sources_;
        files[target_] = bytes;
        return files;
    }

    // Runs `road`, stopped at one call after the other, with `words` meanwhile, and judges each run.
    void ForEachStop(Road& road, std::vector<std::string> words,
                     const std::function<void(const FaultRun& stopped, const FaultRun& other)>& judge) {
        if (!CanMake(Fault::kStopped)) GTEST_SKIP() << "no such stops here";
        for (std::string& word : words)
            if (word.starts_with("@/")) word = road.Path(word.substr(2));
        const std::size_t stride = getenv("ORVALE_FAULTS") != nullptr ? 1 : 4;
        for (std::size_t at = 1; !HasFailure(); at += stride) {
            SCOPED_TRACE("stopped at call " + std::to_string(at));
            FaultRun other;
            const FaultRun stopped =
                road.Run({Fault::kStopped, at, false, 0}, [&] { other = RunCommandWith({}, words); });
            if (!stopped.met) break;
            Files left = road.Left();
            EXPECT_EQ(TakeUnfinished(left), 0U);
            for (const FaultRun* const run : std::initializer_list<const FaultRun*>{&stopped, &other}) {
                EXPECT_TRUE(run->exitCode == 0 || run->exitCode == 1) << run->signal << run->errors;
                EXPECT_EQ(run->exitCode == 1, run->errors.ends_with("another program holds the file\n") ||
                                                  run->errors.ends_with("--force replaces it\n") ||
                                                  run->errors.ends_with("File exists\n"))
                    << run->errors;
            }
            judge(stopped, other);
        }
    }

    std::string target_;
    std::string to_;
    std::string first_;
    Files sources_;
    std::vector<std::string> whole_;
    std::vector<std::string> shown_;
};

TEST_P(TwoAtOnceTest, TwoWritersThatReplaceLeaveOneWholeFile) {
    Road road("", {"convert", "--force", to_, "@/" + first_, "@/" + target_}, With("what was there"));
    ForEachStop(
        road, {"convert", "--force", to_, "@/other.json", "@/" + target_},
        [&](const FaultRun& stopped, const FaultRun& other) {
            const std::string& left = road.Left().at(target_);
            EXPECT_TRUE((left == whole_[0] && stopped.exitCode == 0) || (left == whole_[1] && other.exitCode == 0))
                << "left " << left.size() << " bytes";
        });
}

TEST_P(TwoAtOnceTest, OfTwoWritersOfANewFileOneWins) {
    Road road("", {"convert", to_, "@/" + first_, "@/" + target_}, sources_);
    ForEachStop(road, {"convert", to_, "@/other.json", "@/" + target_},
                [&](const FaultRun& stopped, const FaultRun& other) {
                    EXPECT_EQ((stopped.exitCode == 0) + (other.exitCode == 0), 1) << stopped.errors << other.errors;
                    EXPECT_EQ(road.Left().at(target_), whole_[stopped.exitCode == 0 ? 0 : 1]);
                });
}

TEST_P(TwoAtOnceTest, AReaderGetsTheOldFileOrTheNewOne) {
    const std::vector<std::string> reads{"show", "--json", "--no-profile", "@/" + target_};
    const std::vector<std::string> writes{"convert", "--force", to_, "@/other.json", "@/" + target_};
    const auto judge = [&](const FaultRun& reader) {
        const bool isWhole = reader.output == shown_[0] || reader.output == shown_[1];
        EXPECT_TRUE(reader.exitCode != 0 || isWhole) << reader.output;
    };
    Road reader("", reads, With(whole_[0]));
    ForEachStop(reader, writes, [&](const FaultRun& stopped, const FaultRun&) { judge(stopped); });
    Road writer("", writes, With(whole_[0]));
    ForEachStop(writer, reads, [&](const FaultRun&, const FaultRun& other) { judge(other); });
}

INSTANTIATE_TEST_SUITE_P(Formats, TwoAtOnceTest, testing::Values("qzs", "vcard", "phonebook-xml", "json"),
                         [](const auto& format) {
                             std::string name = format.param;
                             std::erase(name, '-');
                             return name;
                         });

}  // namespace
}  // namespace orvale::test
