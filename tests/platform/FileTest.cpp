#include "platform/File.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <random>

#include "platform/AtomicFile.h"
#include "support/ScratchFolder.h"
#include "support/SystemCalls.h"

using orvale::test::ScratchFolder;
using orvale::test::WriteCalls;

namespace {

constexpr std::uint32_t kRead = CFile::kModeRead;
constexpr std::uint32_t kWrite = CFile::kModeWrite;
constexpr std::uint32_t kBoth = CFile::kModeReadWrite;
constexpr std::uint32_t kCreate = CFile::kModeCreate;
constexpr std::uint32_t kExclusive = CFile::kShareExclusive;

class File : public testing::Test {
 protected:
    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file");
    CFile file_;
};

}  // namespace

TEST_F(File, OpensByItsFlags) {
    struct Case {
        std::uint32_t flags;
        std::int32_t missing;  // the result for a file that isn't there,
        std::int32_t there;    // for one that is,
        const char* after;     // and what that holds then
    };
    const Case cases[] = {{kRead, 0, 1, "old"},
                          {kWrite, 0, 1, "old"},
                          {kBoth | kExclusive | 0x10040, 0, 1, "old"},  // with bits that mean nothing
                          {kCreate | kWrite, 1, 1, ""},
                          {kCreate | kBoth | kExclusive, 1, 1, ""},
                          {kCreate | CFile::kModeNoTruncate | kBoth, 1, 1, "old"},
                          {3, 0, 0, "old"}};
    for (const Case& each : cases) {
        folder_.Put("file", "old");
        std::filesystem::remove(folder_ / "missing");
        for (const auto& [name, result] : {std::pair("missing", each.missing), std::pair("file", each.there)}) {
            std::error_code error;
            EXPECT_EQ(file_.Open(folder_.Name(name).c_str(), each.flags, &error), result) << each.flags;
            EXPECT_EQ(file_.IsOpened(), result != 0) << each.flags;
            EXPECT_EQ(static_cast<bool>(error), result == 0) << each.flags;
        }
        EXPECT_EQ(folder_.Get("file"), each.after) << each.flags;
    }
}

TEST_F(File, OpensNothingButFilesAndDevicesAndNeverWaits) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    const std::pair<std::u16string, int> cases[] = {{folder_.Name("missing"), ENOENT},
                                                    {folder_.Name(""), EISDIR},
                                                    {folder_.Name("pipe"), EINVAL},
                                                    {path_ + u"\xD800half", EINVAL},
                                                    {u"", ENOENT}};
    for (const auto& [path, number] : cases) {
        std::error_code error;
        EXPECT_EQ(file_.Open(path.c_str(), kRead, &error), 0);
        EXPECT_EQ(error.value(), number) << error.message();
    }
    EXPECT_EQ(file_.Open(nullptr, kRead, nullptr) + file_.Open(folder_.Name("pipe").c_str(), kBoth, nullptr), 0);
    EXPECT_EQ(file_.Open(u"/dev/null", kBoth | kCreate | kExclusive, nullptr), 1);
    EXPECT_EQ(file_.Open(folder_.Name("\xE4\xBD\xA0").c_str(), kWrite | kCreate, nullptr), 1);
    EXPECT_EQ(folder_.Get("\xE4\xBD\xA0"), "");
}

// A host may have closed a standard stream; what is written there is for no file.
TEST_F(File, TakesNoStandardStreamsPlace) {
    const int input = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    EXPECT_EQ(file_.Open(path_.c_str(), kCreate | kBoth, nullptr), 1);
    const orvale::AtomicFile saved((folder_ / "saved").string());
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
    dup2(input, STDIN_FILENO);
    close(input);
}

TEST_F(File, AFileThatAnotherHoldsIsLeftAlone) {
    folder_.Put("file", "precious");
    const int next = open("/dev/null", O_RDONLY);
    close(next);
    CFile first;
    ASSERT_EQ(first.Open(path_.c_str(), kRead | kExclusive, nullptr), 1);
    EXPECT_EQ(fcntl(next, F_GETFD), FD_CLOEXEC) << "a program that is started would hold it too";
    std::error_code error;
    EXPECT_EQ(file_.Open(path_.c_str(), kCreate | kWrite | kExclusive, &error), 0);
    EXPECT_EQ(error.value(), EBUSY);
    EXPECT_EQ(folder_.Get("file"), "precious");
    EXPECT_EQ(file_.Open(path_.c_str(), kRead, nullptr), 1) << "the log is opened so";
    first.Close();
    EXPECT_EQ(file_.Open(path_.c_str(), kCreate | kWrite | kExclusive, nullptr), 1);
    EXPECT_EQ(folder_.Get("file"), "");
}

// Beside the file goes a text and a place in it, for whatever is done.
TEST_F(File, AnyMixOfOperationsIsTheSameAsWithoutBuffers) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
        std::string text(below(2) == 0 ? 300 : 150000, 'x');
        for (char& byte : text)
            byte = static_cast<char>(random());
        std::size_t place = 0;
        folder_.Put("file", text);
        ASSERT_EQ(file_.Open(path_.c_str(), kBoth, nullptr), 1);
        std::optional<CFile::Gathering> gathering;
        for (int step = 0; step < 200; ++step) {
            const std::size_t action = below(8);
            if (action < 3) {
                std::string got(below(4) == 0 ? 70000 : below(300), '\0');
                const std::string expected = place < text.size() ? text.substr(place, got.size()) : "";
                got.resize(file_.Read(got.data(), static_cast<std::uint32_t>(got.size())));
                ASSERT_EQ(got, expected) << seed << ' ' << step;
                place += got.size();
            } else if (action < 5) {
                const std::string data(1 + below(below(10) == 0 ? 70000 : 100), static_cast<char>(step));
                text.resize(std::max(text.size(), place + data.size()));
                text.replace(place, data.size(), data);
                file_.Write(data.data(), static_cast<std::uint32_t>(data.size()));
                place += data.size();
            } else if (action == 5) {
                const std::size_t bases[] = {0, place, text.size()};
                const auto origin = static_cast<CFile::SeekOrigin>(below(3));
                place = below(text.size() + 10);
                ASSERT_EQ(file_.Seek(static_cast<std::int64_t>(place - bases[origin]), origin), place);
            } else if (action == 6 && below(3) == 0) {
                text.resize(below(text.size() + 50));
                file_.SetLength(text.size());
            } else if (action == 7) {
                gathering.has_value() ? gathering.reset() : (void)gathering.emplace(file_);
            }
            ASSERT_EQ(file_.GetPosition(), place) << seed << ' ' << step;
            ASSERT_TRUE(below(2) == 0 || file_.GetLength() == text.size()) << seed << ' ' << step;
        }
        file_.Close();
        ASSERT_EQ(folder_.Get("file"), text) << seed;
    }
}

TEST_F(File, GathersUntilTheOutermostEnd) {
    ASSERT_EQ(file_.Open(path_.c_str(), CFile::kCreateReadWrite, nullptr), 1);
    {
        const WriteCalls calls;
        const CFile::Gathering outer(file_);
        for (int i = 0; i < 100; ++i) {
            const CFile::Gathering inner(file_);
            file_.Write("ab", 2);
        }
        EXPECT_EQ(calls.Count(), 0U);
        EXPECT_EQ(file_.GetPosition(), 200U);
        file_.HandOver();
        EXPECT_EQ(calls.Count(), 1U);
    }
    const WriteCalls calls(3);  // a system that takes little at a time
    file_.Write("all of this arrives", 19);
    EXPECT_GT(calls.Count(), 7U);
    EXPECT_EQ(folder_.Get("file").substr(198), "aball of this arrives");
}

TEST_F(File, AFullDeviceIsAFailureAndWhatWasGatheredIsDropped) {
    ASSERT_EQ(file_.Open(u"/dev/full", kWrite, nullptr), 1);
    {
        const CFile::Gathering gathering(file_);
        file_.Write("x", 1);
        EXPECT_THROW(file_.HandOver(), std::system_error);
        EXPECT_NO_THROW(file_.HandOver());
    }
    EXPECT_THROW(file_.Write("x", 1), std::system_error);
    EXPECT_NO_THROW(file_.Close());
}

TEST_F(File, WhatCannotBeDoneIsThrownAndHarmsNothing) {
    folder_.Put("file", "0123456789");
    char byte = 0;
    EXPECT_THROW(file_.Read(&byte, 1), std::system_error);
    EXPECT_THROW(file_.GetLength(), std::system_error);
    EXPECT_THROW(file_.Seek(0, CFile::kBegin), std::system_error);
    for (int round = 0; round < 2; ++round) {  // closed, and then open for reading
        EXPECT_THROW(file_.Write("x", 1), std::system_error);
        EXPECT_THROW(file_.SetLength(3), std::system_error);
        EXPECT_THROW(file_.Seek(-1, CFile::kBegin), std::system_error);
        EXPECT_THROW(file_.Seek(0, static_cast<CFile::SeekOrigin>(3)), std::system_error);
        EXPECT_THROW(file_.Read(nullptr, 1), std::system_error);
        EXPECT_THROW(file_.Write(nullptr, 1), std::system_error);
        EXPECT_THROW(file_.SetFilePath(nullptr), std::invalid_argument);
        ASSERT_EQ(file_.Open(path_.c_str(), kRead, nullptr), 1);
    }
    EXPECT_EQ(file_.Read(&byte, 1), 1U);
    EXPECT_THROW(file_.Seek(INT64_MAX, CFile::kCurrent), std::system_error);
    EXPECT_EQ(file_.GetPosition(), 1U);
    EXPECT_EQ(folder_.Get("file"), "0123456789");
}

TEST_F(File, PartsOfThePath) {
    const std::u16string_view cases[][3] = {
        {u"/a.b/x.y.z", u"x.y.z", u"x.y"}, {u"/a.b/name", u"name", u"name"}, {u"name", u"name", u"name"}};
    for (const auto& [path, name, title] : cases) {
        file_.SetFilePath(path.data());
        EXPECT_EQ(file_.GetFileName(), name);
        EXPECT_EQ(file_.GetFileTitle(), title);
    }
}
