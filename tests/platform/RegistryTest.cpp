#include "platform/Registry.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include "support/ScratchFolder.h"

using namespace orvale;
using orvale::test::ScratchFolder;

namespace {

constexpr std::u16string_view kKey = u"HKEY_CURRENT_USER\\Log";
constexpr std::u16string_view kValue = u"/opt/a \"b\"/\u00E4\\x.so";
const std::string kKeyLine = "[HKEY_CURRENT_USER\\Log]\r\n";
const std::string kName = "\"/opt/a \\\"b\\\"/\xC3\xA4\\\\x.so\"";

class RegistryTest : public testing::Test {
 protected:
    RegistryTest() { setenv("ORVALE_REGISTRY", (folder_ / "user.reg").c_str(), 1); }
    ~RegistryTest() override { unsetenv("ORVALE_REGISTRY"); }

    const ScratchFolder folder_;
};

}  // namespace

TEST_F(RegistryTest, ReadsANumber) {
    const std::pair<std::string, std::optional<std::uint32_t>> cases[] = {
        {"", std::nullopt},
        {kKeyLine + kName + "=dword:0000000a\r\n", 10},
        {kKeyLine + kName + "=dword:fFfFfFfE", 0xFFFFFFFE},
        {"\n[hkey_current_user\\LOG]\n" + kName + "=DWORD:6\n", 6},
        {"\xEF\xBB\xBF" + kKeyLine + "  " + kName + " = dword: 2 \r\n", 2},
        {kKeyLine + kName + "=hex:02,01,00,80\r\n", 0x80000102},
        {kKeyLine + kName + "=hex(4):02,00,00,00\r\n", 2},
        {kKeyLine + kName + "=hex:02,00,00\r\n", std::nullopt},
        {kKeyLine + kName + "=hex:02,00,00,00,00\r\n", std::nullopt},
        {kKeyLine + kName + "=hex:02,,00,00\r\n", std::nullopt},
        {kKeyLine + kName + "=hexagon:02,00,00,00\r\n", std::nullopt},
        {kKeyLine + kName + "=dword:000000002\r\n", std::nullopt},
        {kKeyLine + kName + "=dword:2g\r\n", std::nullopt},
        {kKeyLine + kName + "=dword:\r\n", std::nullopt},
        {kKeyLine + kName + "=\"2\"\r\n", std::nullopt},
        {kName + "=dword:2\r\n", std::nullopt},
        {"[HKEY_CURRENT_USER\\Log)\r\n" + kName + "=dword:2\r\n", std::nullopt},
        {"[HKEY_CURRENT_USER\\Log\\More]\r\n" + kName + "=dword:2\r\n", std::nullopt},
        {kKeyLine + "\"x.so\"=dword:2\r\n;" + kName + "=dword:2\r\n\"/opt/a=dword:2\r\n", std::nullopt},
        {kKeyLine + "\"x\"=dword:1\r\n[Other]\r\n" + kName + "=dword:1\r\n" + kKeyLine + kName + "=dword:3\r\n", 3}};
    for (const auto& [text, number] : cases) {
        folder_.Put("user.reg", text);
        EXPECT_EQ(ReadRegistryNumber(kKey, kValue), number) << text;
    }
    std::filesystem::remove(folder_ / "user.reg");
    EXPECT_EQ(ReadRegistryNumber(kKey, kValue), std::nullopt);
    ASSERT_EQ(mkfifo((folder_ / "user.reg").c_str(), 0600), 0);
    EXPECT_EQ(ReadRegistryNumber(kKey, kValue), std::nullopt);
}

TEST_F(RegistryTest, WritesANumberAndLeavesTheRest) {
    const std::string line = kName + "=dword:00000006\r\n";
    const std::pair<std::string, std::string> cases[] = {
        {"", "Windows Registry Editor Version 5.00\r\n\r\n" + kKeyLine + line},
        {"  ; mine\n[Other]\n\"x\"=dword:1\n", "  ; mine\n[Other]\n\"x\"=dword:1\n\r\n" + kKeyLine + line},
        {kKeyLine + "\"x\"=dword:1\r\n\r\n[Other]\r\n", kKeyLine + "\"x\"=dword:1\r\n" + line + "\r\n[Other]\r\n"},
        {"\xEF\xBB\xBF[hkey_current_user\\LOG]", "\xEF\xBB\xBF[hkey_current_user\\LOG]\r\n" + line},
        {kKeyLine + "\"/OPT/A \\\"b\\\"/\xC3\x84\\\\x.so\"=hex:00,00,00,00\r\n\"x\"=\"y\"\r\n",
         kKeyLine + line + "\"x\"=\"y\"\r\n"}};
    for (const auto& [before, after] : cases) {
        folder_.Put("user.reg", before);
        WriteRegistryNumber(kKey, kValue, 6);
        EXPECT_EQ(folder_.Get("user.reg"), after);
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
