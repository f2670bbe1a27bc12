#include "platform/Folder.h"

#include <gmock/gmock.h>

#include <system_error>

#include "support/ScratchFolder.h"

using namespace orvale;
using orvale::test::ScratchFolder;
namespace fs = std::filesystem;

TEST(Folder, GoesWithAllThatIsInItAndNothingElse) {
    const ScratchFolder folder;
    fs::create_directories(folder / "gone/a/b/c");
    fs::create_directory(folder / "stays");
    folder.Put("stays/file", "x");
    folder.Put("gone/file", "x");
    folder.Put("gone/a/b/file", "x");
    fs::create_directory_symlink(folder / "stays", folder / "gone/a/link");
    EXPECT_THAT(NamesIn(folder / "gone"), testing::UnorderedElementsAre("a", "file"));
    RemoveAll(folder / "gone");
    EXPECT_THAT(NamesIn(folder / ""), testing::ElementsAre("stays"));
    EXPECT_EQ(folder.Get("stays/file"), "x") << "a link is taken away, not what it leads to";
    RemoveAll(folder / "gone");
    RemoveAll(folder / "stays/file");
    EXPECT_THAT(NamesIn(folder / "stays"), testing::IsEmpty());
    EXPECT_THROW(NamesIn(folder / "gone"), std::system_error);
    EXPECT_THROW(RemoveAll(folder / ("stays/" + std::string(300, 'x'))), std::system_error);
}
