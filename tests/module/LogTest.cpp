#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>

#include "module/LoadedModule.h"
#include "platform/Text.h"
#include "support/Bytes.h"
#include "support/Child.h"
#include "support/FileDriver.h"

using namespace orvale::test;

namespace {

class Log : public testing::Test {
 protected:
    Log() { std::filesystem::copy_file(ORVALE_MODULE, folder_ / "Orvale.so"); }

    /// Loads the module in a child process under a switch, does something with an object of it, and gives what went to
    /// standard error.
    std::string Run(
        const std::optional<std::string>& value, FileType type,
        const std::function<void(CFileInterface&)>& body = [](CFileInterface&) {}) const {
        folder_.Put("user.reg", value ? LogRegistry(folder_ / "Orvale.so", *value) : "");
        const ChildResult result = InChild([&] {
            setenv("ORVALE_REGISTRY", (folder_ / "user.reg").c_str(), 1);
            const LoadedModule module(folder_ / "Orvale.so");
            CFileInterface* object = nullptr;
            ASSERT_EQ(module.create(&object, &type), 1);
            body(*object);
            EXPECT_EQ(module.release(&object), 1);
        });
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        return result.errors;
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file");
};

// The lines with LF for CR LF and without what differs from run to run: the numbers of objects, the folder, the day.
std::string Plain(std::string lines, const std::string& folder) {
    const auto cut = [&](std::string_view head, std::string_view digits) {
        for (std::size_t at = 0; (at = lines.find(head, at)) != std::string::npos;) {
            at += head.size();
            lines.erase(at, lines.find_first_not_of(digits, at) - at);
        }
    };
    cut("[0x", "0123456789ABCDEF");
    cut("Time[", "0123456789");
    for (const std::string& gone : {folder, std::string("\r")})
        for (std::size_t at = 0; (at = lines.find(gone, at)) != std::string::npos;)
            lines.erase(at, gone.size());
    return lines;
}

}  // namespace

TEST_F(Log, GoesWhereItsSwitchSays) {
    const std::tuple<std::optional<std::string>, bool, bool> cases[] = {
        {std::nullopt, false, false}, {"0", false, false}, {"1", false, false}, {"80000008", false, false},
        {"2", true, false},           {"4", false, true},  {"6", true, true}};
    for (const auto& [value, toFile, toDebugger] : cases) {
        std::filesystem::remove(folder_ / "Orvale.log");
        const std::string errors = Run(value, 0);
        EXPECT_EQ(errors.size() > 60, toDebugger) << value.value_or("none");
        EXPECT_EQ(std::filesystem::exists(folder_ / "Orvale.log"), toFile) << value.value_or("none");
    }
    const std::string mark = "\xFF\xFE";
    for (const std::string& before : {std::string(), mark, mark + Units(u"old\r\n")}) {
        folder_.Put("Orvale.log", before);
        const std::string errors = Run("6", 0);
        EXPECT_EQ(folder_.Get("Orvale.log"), (before.empty() ? mark : before) + Units(orvale::FromUtf8(errors)));
    }
    std::filesystem::remove(folder_ / "Orvale.log");
    std::filesystem::create_directory(folder_ / "Orvale.log");
    Run("2", 0);  // a log that can't be written disturbs nobody
}

TEST_F(Log, LinesOfTheNativeFile) {
    const std::string errors = Run("4", 0, [&](CFileInterface& file) {
        CContactItem contact = ContactOf("5=\xC3\x84|100=b");
        contact.Storage = 2;
        contact.fields.push_back(nullptr);
        const std::uint32_t flags = CFile::kCreateReadWrite;
        EXPECT_EQ(file.Verify(), VERIFY_NOT_OPENED);
        EXPECT_EQ(file.Open(path_.c_str(), &flags), 1);
        EXPECT_EQ(file.Verify(), VERIFY_NOT_READ_HEADER);
        EXPECT_EQ(file.WriteFileHeader() + file.Write(&contact) + file.ReadFileHeader(), 3);
        EXPECT_EQ(file.Verify(), VERIFY_OK);
        void* record = nullptr;
        EXPECT_EQ(file.Read(&record) + file.Write(nullptr), 0);  // the null entry was counted
        file.Seek(28, CFile::kBegin);
        file.CFile::Write("\2", 1);  // the count as it should be
        file.Seek(24, CFile::kBegin);
        EXPECT_EQ(file.Read(&record), 1);
        file.Close();
    });
    EXPECT_EQ(Plain(errors, folder_ / ""), R"(Orvale - CreateObject : QZSFile[0x]
Orvale - CQZSFile::Verify : Not opened
ORVALE - CQZSFile::Verify : Finish
ORVALE - CQZSFile::Open : File Name[file]
Orvale - CQZSFile::Verify : Not read fileheader
ORVALE - CQZSFile::Verify : Finish
ORVALE - CQZSFile::WriteFileHeader : Finish
ORVALE - CQZSFile::Write : Begin
Storage : 2  Memory Location : -1 Index : -1 Operation : None
Type : 5  Data : Ä
Type : 100  Data : b
ORVALE - CQZSFile::Write : Succeeded
ORVALE - CQZSFile::Write : Finish
ORVALE - CQZSFile::ReadFileHeader : Begin
Orvale - CQZSFile::ReadFileHeader : FileFlag[<QZ-QZS>]
Orvale - CQZSFile::ReadFileHeader : Version[100]
Orvale - CQZSFile::ReadFileHeader : Time[]
ORVALE - CQZSFile::ReadFileHeader : Finish
ORVALE - CQZSFile::Verify : Succeeded
ORVALE - CQZSFile::Verify : Finish
ORVALE - CQZSFile::Read : Begin
ORVALE - CQZSFile::Read : Location[2]
ORVALE - CQZSFile::Read : Failed
ORVALE - CQZSFile::Read : Finish
ORVALE - CQZSFile::Write : Begin
ORVALE - CQZSFile::Write : Failed
ORVALE - CQZSFile::Write : Finish
ORVALE - CQZSFile::Read : Begin
ORVALE - CQZSFile::Read : Location[2]
Storage : 2  Memory Location : -1 Index : -1 Operation : None
Type : 5  Data : Ä
Type : 100  Data : b
ORVALE - CQZSFile::Read : Succeeded
ORVALE - CQZSFile::Read : Finish
Orvale - ReleaseObject : Object[0x]
)");
}

TEST_F(Log, LinesOfAVCard) {
    folder_.Put("file", "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:A=42\r\nADR;HOME:;;a=3Bb\r\nEND:VCARD\r\nx");
    const std::string errors = Run("4", 3, [&](CFileInterface& file) {
        const std::uint32_t flags = CFile::kModeRead;
        void* record = nullptr;
        EXPECT_EQ(file.Open(path_.c_str(), &flags), 1);
        EXPECT_EQ(file.Verify(), VERIFY_OK);
        EXPECT_EQ(file.Read(&record), 1);
        EXPECT_EQ(file.Read(&record) + file.Read(nullptr), 0);
        file.Close();
        EXPECT_EQ(file.Write(nullptr), 0);
        EXPECT_EQ(file.Verify(), VERIFY_NOT_OPENED);
    });
    EXPECT_EQ(Plain(errors, folder_ / ""), R"(Orvale - CreateObject : vCardFile[0x]
ORVALE - CVCardFile::Open : File Name[file]
ORVALE - CVCardFile::Verify : Begin
ORVALE - CVCardFile::Verify : Finish
ORVALE - CVCardFile::Read : Begin
;;a=3Bb********
Storage : 0  Memory Location : -1 Index : -1 Operation : None
Type : 5  Data : AB
Type : 2000  Data : ;;a;b
Type : 2002  Data : a;b
ORVALE - CVCardFile::Read : Succeeded
ORVALE - CVCardFile::Read : Finish
ORVALE - CVCardFile::Read : Begin
ORVALE - CVCardFile::Read : Begin
ORVALE - CVCardFile::Read : Failed
ORVALE - CVCardFile::Read : Finish
ORVALE - CVCardFile::Close : Begin/Finish
ORVALE - CVCardFile::Write : Begin
ORVALE - CVCardFile::Write : Failed
ORVALE - CVCardFile::Write : Finish
ORVALE - CVCardFile::Verify : Begin
Orvale - CVCardFile::Verify : Not opened
ORVALE - CVCardFile::Verify : Finish
Orvale - ReleaseObject : Object[0x]
ORVALE - CVCardFile::Close : Begin/Finish
)");
}
