#include <gtest/gtest.h>
#include <stdlib.h>

#include <atomic>
#include <thread>

#include "module/LoadedModule.h"
#include "records/GeneralSyncData.h"
#include "support/Child.h"
#include "support/FileDriver.h"

namespace orvale::test {
namespace {

constexpr FileType kFormats = 12;

// A record of each kind, and the columns that CSV needs.
struct Records {
    CContactItem contact = ContactOf("5=J\xC3\xBCrgen|104=+49");
    CCalendarItem calendar;
    CSMSItem sms;
    CEmailItem email;
    CCSVProfile columns{{5, 104}, {u"Name", u"Cell"}};

    const void* const of[kFormats] = {&contact,  &contact, &contact,  &contact, &sms,   &calendar,
                                      &calendar, &contact, &calendar, &sms,     &email, &email};
};

// What a host does with one file: an object that writes, another that reads. How many records came back.
int WriteAndRead(const LoadedModule& module, FileType type, const std::u16string& path) {
    constexpr std::uint32_t kWrite = CFile::kCreateReadWrite;
    constexpr std::uint32_t kRead = CFile::kModeRead;
    const Records records;
    int count = 0;
    for (const bool writes : {true, false}) {
        CFileInterface* object = nullptr;
        if (module.create(&object, &type) == 0) return -1;
        object->Open(path.c_str(), writes ? &kWrite : &kRead);
        if (type == 2) object->SetProfile(&records.columns);
        if (writes) {
            const bool headerLast = type == 2;
            if (!headerLast) object->WriteFileHeader();
            object->Write(records.of[type]);
            object->Write(records.of[type]);
            if (headerLast) object->WriteFileHeader();
        } else {
            object->ReadFileHeader();
            for (void* record = nullptr; count < 3 && object->Read(&record) != 0;)
                ++count;
        }
        object->Close();
        module.release(&object);
    }
    return count;
}

// Two threads that begin with the same format at the same moment: what is set up at its first use (the code page, the
// XML library) is set up by both.
TEST(Threads, ObjectsOfTwoThreadsDontMeet) {
    const ScratchFolder folder;
    std::filesystem::copy_file(ORVALE_MODULE, folder / "Orvale.so");
    constexpr int kReadBack[kFormats] = {2, 0, 2, 2, 2, 2, 1, 2, 2, 2, 2, 2};
    for (const char* const logs : {"00000000", "00000006"}) {
        folder.Put("user.reg", LogRegistry(folder / "Orvale.so", logs));
        for (FileType first = 0; first < kFormats; ++first) {
            SCOPED_TRACE(std::string(logs) + ", from format " + std::to_string(first));
            const ChildResult child = InChild([&] {
                setenv("ORVALE_REGISTRY", (folder / "user.reg").c_str(), 1);
                const LoadedModule module(folder / "Orvale.so");
                std::atomic<int> ready{0};
                std::atomic<int> wrong{0};
                const auto work = [&](const char* name) {
                    ++ready;
                    while (ready < 2) {
                    }
                    for (FileType i = 0; i < kFormats; ++i) {
                        const FileType type = (first + i) % kFormats;
                        if (WriteAndRead(module, type, folder.Name(name)) != kReadBack[type]) wrong |= 1 << type;
                    }
                };
                std::thread one(work, "one");
                std::thread two(work, "two");
                one.join();
                two.join();
                EXPECT_EQ(wrong, 0);
            });
            EXPECT_EQ(child.exitCode, 0) << child.errors;
            EXPECT_EQ(child.errors.find("ThreadSanitizer"), std::string::npos) << child.errors;
        }
    }
}

}  // namespace
}  // namespace orvale::test
