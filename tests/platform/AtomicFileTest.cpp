#include "platform/AtomicFile.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/PendingFolder.h"
#include "support/ScratchFolder.h"

namespace orvale::test {
namespace {

namespace fs = std::filesystem;

// What killed processes left goes with the next work, once it is a day old and surely nobody's; nothing else does.
TEST(AtomicFile, LeftoversOfYesterdayGo) {
    for (const bool isFolder : {false, true}) {
        const ScratchFolder folder;
        const struct {
            const char* name;
            int hours;
            bool goes;
        } kFiles[] = {{".orvale-1.tmp", 25, true},
                      {".orvale-2.tmp", 23, false},
                      {".orvale-3.bak", 25, false},
                      {"orvale-4.tmp", 25, false}};
        for (const auto& each : kFiles) {
            folder.Put(each.name, "x");
            fs::last_write_time(folder / each.name, fs::file_time_type::clock::now() - std::chrono::hours(each.hours));
        }
        fs::create_directory(folder / ".orvale-5.tmp");
        folder.Put(".orvale-5.tmp/00001.vcs", "x");
        fs::last_write_time(folder / ".orvale-5.tmp", fs::file_time_type::clock::now() - std::chrono::hours(25));
        fs::create_symlink("orvale-4.tmp", folder / ".orvale-6.tmp");
        if (isFolder) {
            PendingFolder(folder / "target").Commit();
        } else {
            AtomicFile file((folder / "target").string());
            file.Write("new");
            file.Commit();
            EXPECT_EQ(folder.Get("target"), "new");
        }
        for (const auto& each : kFiles)
            EXPECT_NE(fs::exists(folder / each.name), each.goes) << each.name;
        EXPECT_FALSE(fs::exists(folder / ".orvale-5.tmp"));
        EXPECT_TRUE(fs::is_symlink(folder / ".orvale-6.tmp"));
    }
}

TEST(AtomicFile, WithoutACommitNothingChanges) {
    const ScratchFolder folder;
    folder.Put("target", "old");
    {
        AtomicFile file((folder / "target").string());
        file.Write("new");
    }
    EXPECT_EQ(folder.Get("target"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / ""), fs::directory_iterator()), 1);
    AtomicFile file((folder / "other").string());
    folder.Put("other", "another's");
    EXPECT_THROW(file.Commit(AtomicFile::Existing::kKept), std::system_error);
    EXPECT_EQ(folder.Get("other"), "another's");
}

}  // namespace
}  // namespace orvale::test
