#include "xml/SuiteFile.h"

#include <filesystem>
#include <optional>

#include "records/GeneralSyncData.h"
#include "xml/CDXMLFile.h"
#include "xml/MLXMLFile.h"
#include "xml/PBXMLFile.h"
#include "xml/SMSXMLFile.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

// What tells the suites apart where they are alike, with a member of the record that stands for all.
struct Phonebook {
    using File = CPBXMLFile;
    using Record = CContactItem;
    using Profile = CPhonebookProfile;
    static constexpr const char *kSample = "phonebook.xml", *kRoot = "phonebook", *kId = "suite-phonebook",
                                *kEntries = "contactentries", *kEntry = "contact", *kElement = "device";
    static constexpr std::int32_t Record::*kMember = &Record::Storage;
    static constexpr bool kClosesItself = true;
};
struct Calendar {
    using File = CCDXMLFile;
    using Record = CCalendarItem;
    using Profile = CCalendarProfile;
    static constexpr const char *kSample = "calendar.xml", *kRoot = "calendar", *kId = "suite-calendar",
                                *kEntries = "calendarentries", *kEntry = "data", *kElement = "duration";
    static constexpr std::int32_t Record::*kMember = &Record::duration;
    static constexpr bool kClosesItself = false;
};
struct Sms {
    using File = CSMSXMLFile;
    using Record = CSMSItem;
    using Profile = CSMSProfile;
    static constexpr const char *kSample = "sms.xml", *kRoot = "SMS", *kId = "suite-SMS", *kEntries = "smsentries",
                                *kEntry = "sms", *kElement = "status";
    static constexpr std::int32_t Record::*kMember = &Record::status;
    static constexpr bool kClosesItself = true;
};
struct Email {
    using File = CMLXMLFile;
    using Record = CEmailItem;
    using Profile = CEmailProfile;
    static constexpr const char *kSample = "email.xml", *kRoot = "email", *kId = "suite-email",
                                *kEntries = "emailentries", *kEntry = "email", *kElement = "status";
    static constexpr std::int32_t Record::*kMember = &Record::status;
    static constexpr bool kClosesItself = true;
};

template <class Suite>
class SuiteFile : public testing::Test {
 protected:
    using Driver = SuiteDriver<typename Suite::File, typename Suite::Record, typename Suite::Profile>;

    static std::string In(const std::string& name, const std::string& content) {
        return "<" + name + ">" + content + "</" + name + ">";
    }
    static std::string Entry(int number, std::string name = Suite::kEntry) {
        return In(name, In(Suite::kElement, std::to_string(number)));
    }
    static std::string Document(const std::string& content, const std::string& id = Suite::kId) {
        return "<" + std::string(Suite::kRoot) + " id='" + id + "'>" + content + "</" + Suite::kRoot + ">";
    }

    Driver Reading(const std::string& document) {
        folder_.Put("file.xml", document);
        return Driver(path_);
    }

    // The number of the next record; none at the end.
    static std::optional<std::int32_t> Next(Driver& file) {
        const auto* const record = file.Next();
        return record != nullptr ? std::optional(record->*Suite::kMember) : std::nullopt;
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

using Suites = testing::Types<Phonebook, Calendar, Sms, Email>;
TYPED_TEST_SUITE(SuiteFile, Suites);

}  // namespace

TYPED_TEST(SuiteFile, ReadsToTheEndAndStartsOver) {
    std::string upper = TypeParam::kEntry;
    for (char& letter : upper)
        letter = static_cast<char>(std::toupper(letter));
    const std::string entries = "<!--c-->\n" + this->Entry(1) + " text <other/>" + this->Entry(2, upper) +
                                this->In("other", this->Entry(9)) + "\n<![CDATA[x]]>" + this->Entry(3) + "\n";
    auto file = this->Reading(this->Document("<profile/>" + this->In(TypeParam::kEntries, entries)));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    for (int round = 0; round < 2; ++round) {
        for (const int number : {1, 2, 3})
            EXPECT_EQ(this->Next(file), number);
        EXPECT_EQ(this->Next(file), std::nullopt);
    }
    EXPECT_EQ(this->Next(file), 1);
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(this->Next(file), 2) << "reading the header again changes no place";
    file->Close();
    EXPECT_EQ(this->Next(file), 3) << "the document is there still";

    std::uint32_t flags = CFile::kModeRead;
    EXPECT_EQ(file->Open(this->path_.c_str(), &flags), 1);
    EXPECT_EQ(this->Next(file), std::nullopt) << "no header yet";
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(this->Next(file), 1);
}

TYPED_TEST(SuiteFile, VerifyJudgesTheIdentifierAlone) {
    std::string otherCase = TypeParam::kId;
    otherCase[0] = 'S';
    struct Case {
        const char* name;
        std::string document;
        VerifyCode code;
    };
    const Case cases[] = {
        {"right", this->Document(""), VERIFY_OK},
        {"another root and version", "<x version='7' id='" + std::string(TypeParam::kId) + "'/>", VERIFY_OK},
        {"another case", this->Document("", otherCase), VERIFY_WRONG_FLAG},
        {"another suite", this->Document("", "suite-none"), VERIFY_WRONG_FLAG},
        {"empty", this->Document("", ""), VERIFY_WRONG_FLAG},
        {"none", "<x ID='" + std::string(TypeParam::kId) + "'/>", VERIFY_WRONG_FLAG},
    };
    for (const Case& each : cases)
        EXPECT_EQ(this->Reading(each.document)->Verify(), each.code) << each.name;

    typename TypeParam::File file;
    EXPECT_EQ(file.Verify(), VERIFY_NOT_OPENED);
    std::uint32_t flags = CFile::kModeRead;
    EXPECT_EQ(file.Open(this->path_.c_str(), &flags), 1);
    EXPECT_EQ(file.Open(this->folder_.Name("missing").c_str(), &flags), 0);
    EXPECT_EQ(file.Verify(), VERIFY_NOT_OPENED) << "an Open that failed closes";
    flags = CFile::kCreateReadWrite;
    EXPECT_EQ(file.Open(this->folder_.Name("new.xml").c_str(), &flags), 1);
    EXPECT_EQ(file.Verify(), VERIFY_WRONG_FLAG);
}

TYPED_TEST(SuiteFile, WhatIsMissingFailsWhereItIsNeeded) {
    struct Case {
        const char* name;
        std::string content;
        std::int32_t header;
        std::int32_t read;
    };
    const std::string entries = TypeParam::kEntries;
    std::string otherCase = entries;
    otherCase[0] = static_cast<char>(std::toupper(otherCase[0]));
    const Case cases[] = {
        {"no profile", this->In(entries, this->Entry(1)), 0, 0},
        {"profile in another case", "<Profile/>" + this->In(entries, this->Entry(1)), 0, 0},
        {"profile further down", "<x><profile/></x>", 0, 0},
        {"no entries", "<profile/>", 1, 0},
        {"entries in another case", "<profile/>" + this->In(otherCase, this->Entry(1)), 1, 0},
        {"no entry", "<profile/>" + this->In(entries, "\n\t"), 1, 0},
        {"entries before the profile", this->In(entries, this->Entry(1)) + "<profile/>", 1, 1},
        {"of two entries the first", "<profile/>" + this->In(entries, "") + this->In(entries, this->Entry(1)), 1, 0},
    };
    for (const Case& each : cases) {
        auto file = this->Reading(this->Document(each.content));
        EXPECT_EQ(file->ReadFileHeader(), each.header) << each.name;
        EXPECT_EQ(file.Next() != nullptr, each.read == 1) << each.name;
    }
}

TYPED_TEST(SuiteFile, NoOrderOfCallsDoesHarm) {
    const typename TypeParam::Record record;
    const typename TypeParam::Profile profile;
    const std::uint32_t flags = CFile::kCreateReadWrite;
    void* read = nullptr;
    const void* got = nullptr;
    typename TypeParam::File file;
    CFileInterface& object = file;
    const auto expectNothing = [&] {
        EXPECT_EQ(object.ReadFileHeader(), 0);
        EXPECT_EQ(object.Read(&read), 0);
        EXPECT_EQ(object.Read(nullptr), 0);
        EXPECT_EQ(object.Write(&record), 0);
        EXPECT_EQ(object.Write(nullptr), 0);
    };
    object.Close();
    object.SetProfile(&profile);
    object.GetProfile(&got);
    EXPECT_EQ(got, nullptr);
    EXPECT_EQ(object.WriteFileHeader(), 0);
    expectNothing();
    EXPECT_EQ(object.Open(nullptr, &flags), 0);
    EXPECT_EQ(object.Open(this->path_.c_str(), static_cast<const std::uint32_t*>(nullptr)), 0);
    expectNothing();
    EXPECT_EQ(object.Open(this->path_.c_str(), &flags), 1);
    expectNothing();
    object.SetProfile(nullptr);
    object.GetProfile(nullptr);
    object.GetProfile(&got);
    ASSERT_NE(got, nullptr);
    object.SetProfile(got);  // its own
    EXPECT_EQ(object.WriteFileHeader(), 1);
    EXPECT_EQ(object.Write(nullptr), 0);
    EXPECT_EQ(object.Read(nullptr), 0);
    EXPECT_EQ(object.Write(&record), 1);
    EXPECT_EQ(object.Read(&read), 1) << "what was written can be walked";
    EXPECT_EQ(object.WriteFileHeader(), 1);
    EXPECT_EQ(object.Read(&read), 0) << "the document starts anew";
    EXPECT_FALSE(file.IsOpened()) << "the stream is none of its business";
}

TYPED_TEST(SuiteFile, TheDriversNameIsCompletedInACopyAlone) {
    struct Case {
        const char16_t* given;
        const char16_t* kept;
    };
    for (const Case& each : {Case{u"abc", u"abc.dll"}, Case{u"ABC.DLL", u"ABC.DLL"}, Case{u"", u".dll"},
                             Case{u"a.dl", u"a.dl.dll"}, Case{u".dll", u".dll"}}) {
        typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
        typename TypeParam::Profile profile;
        profile.dllname = each.given;
        file->SetProfile(&profile);
        EXPECT_EQ(file.GetProfile()->dllname, each.kept);
    }
    auto file = this->Reading(this->Document("<profile><dllname> abc</dllname></profile>"));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(file.GetProfile()->dllname, u" abc");
}

TYPED_TEST(SuiteFile, OnlyTheseFlagsReadAndOnlyTheseSave) {
    for (const std::uint32_t flags : {0x0001U, 0x0002U, 0x0010U, 0x1001U, 0x1012U, 0x3002U, 0x1002U}) {
        this->folder_.Put("file.xml", "neither read nor written");
        {
            typename TestFixture::Driver file(this->path_, flags);
            EXPECT_EQ(file->ReadFileHeader(), 0) << flags;
            EXPECT_EQ(file->WriteFileHeader(), 1) << flags;
            const typename TypeParam::Record record;
            EXPECT_EQ(file.Write(&record), 1) << flags;
            EXPECT_EQ(this->folder_.Get("file.xml"), "neither read nor written") << flags;
            file->Close();
        }
        EXPECT_EQ(this->folder_.Get("file.xml") != "neither read nor written", flags == 0x1002U) << flags;
    }
}

TYPED_TEST(SuiteFile, CloseSavesWhatChanged) {
    const typename TypeParam::Record record;
    std::string saved;
    {
        typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
        file.WriteAll(nullptr, {&record});
        saved = this->folder_.Get("file.xml");
        this->folder_.Put("file.xml", "another's by now");
        file->Close();
    }
    EXPECT_EQ(this->folder_.Get("file.xml"), "another's by now") << "it was saved already";
    {
        typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
        file.WriteAll(nullptr, {&record});
        EXPECT_EQ(file.Write(&record), 1);
    }
    const std::string after = this->folder_.Get("file.xml");
    EXPECT_EQ(after.find("NO.2") != std::string::npos, TypeParam::kClosesItself);
    EXPECT_EQ(after == saved, !TypeParam::kClosesItself);

    typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
    file->Close();
    EXPECT_EQ(this->folder_.Get("file.xml"), "") << "nothing was built";
    EXPECT_EQ(file->WriteFileHeader(), 1);
    EXPECT_EQ(file.Write(&record), 1);
    EXPECT_EQ(file->WriteFileHeader(), 1);
    EXPECT_EQ(file.Write(&record), 1);
    file->Close();
    EXPECT_EQ(this->folder_.Get("file.xml"), Replaced(saved, "NO.1", "NO.2")) << "the numbers go on";
}

TYPED_TEST(SuiteFile, ADocumentThatIsCutOffDoesNotOpen) {
    const std::string whole = Sample(TypeParam::kSample);
    const std::size_t needed = whole.rfind('>') + 1;
    for (std::size_t length = 0; length < needed; length += 97) {
        this->folder_.Put("file.xml", whole.substr(0, length));
        typename TypeParam::File file;
        const std::uint32_t flags = CFile::kModeRead;
        EXPECT_EQ(file.Open(this->path_.c_str(), &flags), 0) << length;
        EXPECT_EQ(file.ReadFileHeader(), 0) << length;
    }
    EXPECT_EQ(this->Reading(whole.substr(0, needed))->Verify(), VERIFY_OK);
}
