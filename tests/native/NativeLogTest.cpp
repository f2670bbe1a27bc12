#include <gtest/gtest.h>

#include "frame/RecordLog.h"
#include "native/NativeSamples.h"
#include "platform/Clock.h"
#include "support/FileDriver.h"
#include "support/LogLines.h"
#include "text/VCalendarFile.h"

using namespace orvale::test;

namespace {

// What the log tells of an object without a file, then of one that writes a record, then of one that reads it and meets
// the end; without the dumps of records, and short: "R" and "v" stand for the two words of the module with the class.
template <class File>
std::string LifeOf(const void* record, const std::string& name) {
    const ScratchFolder folder;
    const std::string lines = Logged([&] {
        const orvale::StoppedClock clock(kDayOfWriting);
        void* read = nullptr;
        File file;
        CFileInterface& face = file;
        for (const std::uint32_t flags : {0xFFFFFFFFU, std::uint32_t{CFile::kCreateReadWrite}, 0U}) {
            if (flags != 0xFFFFFFFFU) face.Open(folder.Name("f").c_str(), &flags);
            if (flags != 0) face.WriteFileHeader();
            if (flags != 0) face.Write(record);
            if (flags != CFile::kCreateReadWrite) face.ReadFileHeader();
            face.Verify();
            if (flags == 0) face.Read(&read);
            if (flags != CFile::kCreateReadWrite) face.Read(&read);
        }
    });
    std::string text;
    std::string_view rest = lines;
    while (!rest.empty()) {
        std::string line(rest.substr(0, rest.find("\r\n")));
        rest.remove_prefix(std::min(line.size() + 2, rest.size()));
        const std::string place = " - " + name + "::";
        if (line.find(place) == 6) {
            line.replace(line.find(" : "), 3, ":");
            text +=
                (line[1] == 'R' ? "R" : "v") + line.substr(6 + place.size(), line.find("[/") - 6 - place.size()) + "\n";
        } else if (line.starts_with("Category")) {
            text += line + "\n";
        }
    }
    return text;
}

}  // namespace

TEST(NativeLog, EachFormatHasItsLines) {
    const CSMSItem sms;
    const CCalendarItem item;
    const CEmailItem email;
    EXPECT_EQ(LifeOf<CSMSFile>(&sms, "CSMSFile"),
              "vWriteFileHeader:Failed\nvWriteFileHeader:Finish\nRWrite:Failed\nRWrite:Finish\nvReadFileHeader:Begin\n"
              "vReadFileHeader:Failed\nvReadFileHeader:Finish\nRVerify:Begin\nvVerify:Not opened\nRVerify:Finish\n"
              "RRead:Begin\nRRead:Failed\nRRead:Finish\n"
              "ROpen:File Name\nvWriteFileHeader:Succeeded\nvWriteFileHeader:Finish\nRWrite:Succeeded\nRWrite:Finish\n"
              "RVerify:Begin\nRVerify:Finish\n"
              "ROpen:File Name\nvReadFileHeader:Begin\nvReadFileHeader:FileFlag[<QZ-SMS>]\n"
              "vReadFileHeader:Version[101]\nvReadFileHeader:Succeeded\nvReadFileHeader:Finish\nRVerify:Begin\n"
              "RVerify:Finish\nRRead:Begin\nRRead:Succeeded\nRRead:Finish\nRRead:Begin\nRRead:Failed\nRRead:Finish\n"
              "RClose:Begin/Finish\n");
    EXPECT_EQ(LifeOf<CCALFile>(&item, "CCALFile"),
              "vWriteFileHeader:Begin\nvWriteFileHeader:Finish\nvWrite:Begin\nvWrite:Failed\nvWrite:Finish\n"
              "vReadFileHeader:Begin\nvReadFileHeader:Finish\nvVerify:Begin\nvVerify:Not opened\nvVerify:Finish\n"
              "vRead:Begin\nvRead:Finish\n"
              "vOpen:File Name\nvWriteFileHeader:Begin\nvWriteFileHeader:FileFlag[<QZ-CAL>]\n"
              "vWriteFileHeader:Version[100]\nvWriteFileHeader:Time[20100726]\nvWriteFileHeader:Finish\n"
              "vWrite:Begin\nCategory = 0\nvWrite:Succeeded\nvWrite:Finish\nvVerify:Begin\nvVerify:Finish\n"
              "vOpen:File Name\nvReadFileHeader:Begin\nvReadFileHeader:FileFlag[<QZ-CAL>]\n"
              "vReadFileHeader:Version[100]\nvReadFileHeader:Time[20100726]\nvReadFileHeader:Finish\nvVerify:Begin\n"
              "vVerify:Finish\nvRead:Begin\nCategory = 0\nvRead:Succeeded\nvRead:Finish\nvRead:Begin\nvRead:Finish\n"
              "vClose:Begin/Finish\n");
    EXPECT_EQ(LifeOf<CEMLFile>(&email, "CEMLFile"),
              "RWriteFileHeader:Finish\nRWrite:Begin\nRWrite:Failed\nRWrite:Finish\nRReadFileHeader:Begin\n"
              "RReadFileHeader:Finish\nvVerify:Not opened\nRVerify:Finish\nRRead:Begin\nRRead:Failed\nRRead:Finish\n"
              "ROpen:File Name\nRWriteFileHeader:Finish\nRWrite:Begin\nRWrite:Succeeded\nRWrite:Finish\n"
              "RVerify:Succeeded\nRVerify:Finish\n"
              "ROpen:File Name\nRReadFileHeader:Begin\nvReadFileHeader:FileFlag[<QZ-EML>]\n"
              "vReadFileHeader:Version[100]\nvReadFileHeader:Time[20100726]\nRReadFileHeader:Finish\n"
              "RVerify:Succeeded\nRVerify:Finish\nRRead:Begin\nRRead:Succeeded\nRRead:Finish\n"
              "RRead:Begin\nRRead:Failed\nRRead:Finish\n");
    EXPECT_EQ(
        LifeOf<CVCalendarFile>(&item, "CVCalendarFile"),
        "RWrite:Begin\nRWrite:Failed\nRWrite:Finish\nRVerify:Begin\nvVerify:Not opened\nRVerify:Finish\n"
        "RRead:Begin\nRRead:Failed\nRRead:Finish\nROpen:File Name\nRWrite:Begin\nRWrite:Succeeded\nRWrite:Finish\n"
        "RVerify:Begin\nRVerify:Finish\nROpen:File Name\nRVerify:Begin\nRVerify:Finish\nRRead:Begin\n"
        "RRead:Succeeded\nRRead:Finish\nRRead:Begin\nRRead:Failed\nRRead:Finish\n");
}

TEST(RecordLog, Dumps) {
    const CCalendarItem item = Calendar::Sample();
    const CSMSItem sms = Sms::Sample();
    CEmailItem email = Email::Sample();
    email.type = -1;
    std::string text = Logged([&] {
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
    const std::string rule(81, '-');
    const auto dump = [&](const std::string& operation, const std::string& folder) {
        return rule + " Begin\r\nStorage : 12  Index : -1 Operation : " + operation + "  Object Address : 0x\r\n" +
               "Account : b\r\nBox     : a[0xFFFFFFFF]" + folder +
               "\r\nFrom    : d   Time : 07/26/10 06:00:00\r\nTo      : e   Time : \r\n"
               "Subject : h\u4E2D\r\nBody    : i\r\n" +
               rule + " Finish\r\n";
    };
    const std::string_view address = "Address : 0x";
    for (std::size_t at = 0; (at = text.find(address, at)) != std::string::npos; at += address.size())
        text.erase(at + address.size(), text.find('\r', at) - at - address.size());
    EXPECT_EQ(text,
              "Start time : 07/26/10 06:00:00  end time : Invalid DateTime type : 1 Operation : None\r\n"
              "Type : 3004  Data : \u00C4\U0001F600\r\nType : -77  Data : \r\n"
              "Name : \u00C4nn Phone Number : +1 Type : 0004\r\nContent : \U0001F600! Time : any\r\n" +
                  dump("New", "  Folder : c ") + dump("Modify", "") + dump("Delete", "") + dump("None", ""));
}
