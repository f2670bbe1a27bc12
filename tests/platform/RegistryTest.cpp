#include "platform/Registry.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include "support/Cases.h"
#include "support/ScratchFolder.h"

using namespace orvale;
using orvale::test::Cases;
using orvale::test::ScratchFolder;
using orvale::test::Words;

namespace {

constexpr std::u16string_view kKey = u"HKEY_CURRENT_USER\\Log";
constexpr std::u16string_view kValue = u"/opt/a \"b\"/\u00E4\\x.so";

// What stands for them in the tables.
const Words kWords = {{"SECTION", "[HKEY_CURRENT_USER\\\\Log]"},
                      {"NAME", R"("/opt/a \\"b\\"/ä\\\\x.so")"},
                      {"LINE", R"("/opt/a \\"b\\"/ä\\\\x.so"=dword:00000006\r\n)"}};

class RegistryTest : public testing::Test {
 protected:
    RegistryTest() { setenv("ORVALE_REGISTRY", (folder_ / "user.reg").c_str(), 1); }
    ~RegistryTest() override { unsetenv("ORVALE_REGISTRY"); }

    const ScratchFolder folder_;
};

}  // namespace

TEST_F(RegistryTest, ReadsANumber) {
    for (const auto& each : Cases("registry-read.cases", kWords)) {
        folder_.Put("user.reg", each[0]);
        const auto number = ReadRegistryNumber(kKey, kValue);
        EXPECT_EQ(number ? std::to_string(*number) : "none", each[1]) << each[0];
    }
    std::filesystem::remove(folder_ / "user.reg");
    EXPECT_EQ(ReadRegistryNumber(kKey, kValue), std::nullopt);
    ASSERT_EQ(mkfifo((folder_ / "user.reg").c_str(), 0600), 0);
    EXPECT_EQ(ReadRegistryNumber(kKey, kValue), std::nullopt);
}

TEST_F(RegistryTest, WritesANumberAndLeavesTheRest) {
    for (const auto& each : Cases("registry-write.cases", kWords)) {
        folder_.Put("user.reg", each[0]);
        WriteRegistryNumber(kKey, kValue, 6);
        EXPECT_EQ(folder_.Get("user.reg"), each[1]);
    }
    for (const std::string& unreadable : {std::string(1024 * 1024 + 1, ';'), std::string("\xFF\xFE[\0H\0", 6)}) {
        folder_.Put("user.reg", unreadable);
        EXPECT_THROW(WriteRegistryNumber(kKey, kValue, 6), std::system_error);
        EXPECT_TRUE(folder_.Get("user.reg") == unreadable);
    }
}

TEST_F(RegistryTest, PlaceOfTheFile) {
    const char* const home = getenv("HOME");
    const std::string oldHome = home != nullptr ? home : "";
    const std::filesystem::path oldFolder = std::filesystem::current_path();
    setenv("HOME", (folder_ / "home").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
    setenv("ORVALE_REGISTRY", "", 1);
    EXPECT_EQ(RegistryPath(), folder_ / "config/orvale/user.reg");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(RegistryPath(), folder_ / "home/.config/orvale/user.reg");
    WriteRegistryNumber(kKey, kValue, 4);  // makes the folders

    std::filesystem::create_symlink(RegistryPath(), folder_ / "home/link.reg");
    std::filesystem::current_path(folder_ / "home");
    setenv("ORVALE_REGISTRY", "link.reg", 1);
    WriteRegistryNumber(kKey, kValue, 2);
    EXPECT_EQ(ReadRegistryNumber(kKey, kValue), 2U);
    EXPECT_TRUE(std::filesystem::is_symlink("link.reg"));
    unsetenv("ORVALE_REGISTRY");
    unsetenv("HOME");
    EXPECT_THROW(WriteRegistryNumber(kKey, kValue, 2), std::system_error);
    std::filesystem::current_path(oldFolder);
    setenv("HOME", oldHome.c_str(), 1);
}
