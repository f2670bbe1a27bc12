#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <optional>
#include <ostream>

#include "frame/RecordLog.h"
#include "module/LoadedModule.h"
#include "native/NativeSamples.h"
#include "platform/Clock.h"
#include "platform/Text.h"
#include "support/Cases.h"
#include "support/FileDriver.h"
#include "support/FullDevice.h"
#include "support/LogLines.h"

using namespace orvale::test;

namespace {

// The lines with LF for CR LF and without what differs from run to run: addresses and the folder of files.
std::string Plain(std::string lines, const std::string& folder = "\r") {
    for (std::size_t at = 0; (at = lines.find("0x", at)) != std::string::npos; ++at) {
        const std::size_t size = lines.find_first_not_of("0123456789ABCDEF", at + 2) - at;
        if (size > 10) lines.erase(at, size);  // shorter ones are numbers
    }
    for (const std::string& gone : {folder, std::string("\r")})
        for (std::size_t at = 0; (at = lines.find(gone, at)) != std::string::npos;)
            lines.erase(at, gone.size());
    return lines;
}

// Each format has a name, its number and a file that it reads, with something broken where reading goes on to the end.
struct Format {
    const char* name;
    FileType type;
    std::string file;
};

const Format kFormats[] = {
    {"qzs", 0, Contacts::kHeader + Contacts::kBytes + Contacts::kBytes.substr(0, 30)},
    {"ssy", 1, std::string("SSY 1.0\0\0\0", 10) + std::string(30, '\0') + "2010-07-26" + Int32(4) + "Ann" + '\0' + "x"},
    {"csv", 2, "Given,\r\n\"Ann\",\r\n"},
    {"vcard", 3, "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:A=42\r\nADR;HOME:;;a=3Bb\r\nEND:VCARD\r\nx"},
    {"sms", 4, Sms::kHeader + Sms::kBytes + Sms::kBytes.substr(0, 30)},
    {"cal", 5, Calendar::kHeader + Calendar::kBytes + Calendar::kBytes.substr(0, 30)},
    {"vcalendar", 6,
     "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nDTSTART:20100726T060015Z\r\nLOCATION;ENCODING=QUOTED-PRINTABLE:a=3D\r\n"},
    {"phonebook-xml", 7, Data("phonebook.xml")},
    {"calendar-xml", 8, Data("calendar.xml")},
    {"sms-xml", 9, Data("sms.xml")},
    {"email-xml", 10, Data("email.xml")},
    {"eml", 11, Email::kHeader + Email::kBytes + Email::kBytes.substr(0, 30)},
};

std::ostream& operator<<(std::ostream& out, const Format& format) {
    return out << format.name;
}

class FormatLog : public testing::TestWithParam<Format> {};

INSTANTIATE_TEST_SUITE_P(Formats, FormatLog, testing::ValuesIn(kFormats), [](const auto& format) {
    std::string name = format.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

}  // namespace

TEST(Log, GoesWhereItsSwitchSays) {
    const ScratchFolder folder;
    std::filesystem::copy_file(ORVALE_MODULE, folder / "Orvale.so");
    // Loads the module in a child process under a switch, and gives what went to standard error.
    const auto run = [&](const std::optional<std::string>& value) {
        folder.Put("user.reg", value ? LogRegistry(folder / "Orvale.so", *value) : "");
        const ChildResult result = InChild([&] {
            setenv("ORVALE_REGISTRY", (folder / "user.reg").c_str(), 1);
            const LoadedModule module(folder / "Orvale.so");
            CFileInterface* object = nullptr;
            const FileType type = 0;
            ASSERT_EQ(module.create(&object, &type), 1);
            EXPECT_EQ(module.release(&object), 1);
        });
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        return result.errors;
    };
    const std::tuple<std::optional<std::string>, bool, bool> cases[] = {
        {std::nullopt, false, false}, {"0", false, false}, {"1", false, false}, {"80000008", false, false},
        {"2", true, false},           {"4", false, true},  {"6", true, true}};
    for (const auto& [value, toFile, toDebugger] : cases) {
        std::filesystem::remove(folder / "Orvale.log");
        EXPECT_EQ(run(value).size() > 60, toDebugger) << value.value_or("none");
        EXPECT_EQ(std::filesystem::exists(folder / "Orvale.log"), toFile) << value.value_or("none");
    }
    const std::string mark = "\xFF\xFE";
    for (const std::string& before : {std::string(), mark, mark + Units(u"old\r\n")}) {
        folder.Put("Orvale.log", before);
        const std::string errors = run("6");
        EXPECT_EQ(folder.Get("Orvale.log"), (before.empty() ? mark : before) + Units(orvale::FromUtf8(errors)));
    }
    std::filesystem::remove(folder / "Orvale.log");
    std::filesystem::create_directory(folder / "Orvale.log");
    run("2");  // a log that can't be written disturbs nobody
}

// What each call tells and gives, of an object with a file that is missing, one of another format, its own, a full
// device and a new one. The record and the profile that are written are what another object read.
TEST_P(FormatLog, EachOperationHasItsLines) {
    const Format& format = GetParam();
    const orvale::StoppedClock clock(kDayOfWriting);
    const ScratchFolder folder;
    folder.Put("own", format.file);
    folder.Put("source", format.file);
    folder.Put("other", "<?xml version='1.0'?><other id='suite-other'>as long as any header</other>\n");
    const FullDevice full;
    std::filesystem::create_symlink(FullDevice::kPath, folder / "full");
    const CCSVProfile columns{{1}, {u"Given"}};
    CFileInterface* source = nullptr;
    const void* profile = nullptr;
    void* record = nullptr;
    ASSERT_EQ(CreateObject(&source, &format.type), 1);
    if (format.type == 2) source->SetProfile(&columns);
    const std::uint32_t reads = CFile::kModeRead;
    source->Open(folder.Name("source").c_str(), &reads);
    source->ReadFileHeader();
    ASSERT_EQ(source->Read(&record), 1);
    source->GetProfile(&profile);
    const std::string log = Logged([&] {
        const auto gives = [](std::int32_t result) { std::fprintf(stderr, "= %d\n", result); };
        CFileInterface* file = nullptr;
        CreateObject(&file, &format.type);
        if (format.type == 2) file->SetProfile(&columns);
        const std::pair<const char*, std::uint32_t> kFiles[] = {
            {"missing", reads}, {"other", reads}, {"own", reads}, {"full", CFile::kModeWrite}};
        for (const auto& [name, flags] : kFiles) {
            gives(file->Open(folder.Name(name).c_str(), &flags));
            gives(file->Verify());
            gives(file->ReadFileHeader());
            gives(file->Verify());
            void* read = nullptr;
            while (file->Read(&read) != 0)
                gives(read != nullptr);
            gives(read != nullptr);
            read = nullptr;
            gives(file->Read(&read));
            gives(read != nullptr);
            gives(file->Read(nullptr));
            gives(file->WriteFileHeader());
            gives(file->Write(record));
        }
        const std::uint32_t creates = CFile::kCreateReadWrite;
        file->SetProfile(format.type == 2 ? &columns : profile);
        gives(file->Open(folder.Name("new").c_str(), &creates));
        gives(file->WriteFileHeader());
        gives(file->Write(record));
        gives(file->Write(nullptr));
        file->Close();
        gives(file->Verify());
        gives(file->Write(record));
        ReleaseObject(&file);
    });
    ReleaseObject(&source);
    EXPECT_EQ(Plain(log, folder / ""), Data(format.name + std::string(".log")));
    EXPECT_EQ(folder.Get("own"), format.file);
}

TEST(RecordLog, Dumps) {
    const CCalendarItem item = Calendar::Sample();
    const CSMSItem sms = Sms::Sample();
    CEmailItem email = Email::Sample();
    email.type = -1;
    const std::string text = Logged([&] {
        orvale::LogCalendar(nullptr);
        orvale::LogSms(nullptr);
        orvale::LogEmail(nullptr);
        orvale::LogCalendar(&item);
        orvale::LogSms(&sms);
        for (const std::int32_t operation : {4 | 8, 4 | 32, 32, 0}) {
            email.operation = operation;
            orvale::LogEmail(&email);
            email.folder.clear();
        }
    });
    EXPECT_EQ(Plain(text), Data("records.log"));
}
