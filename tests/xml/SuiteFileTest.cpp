#include "xml/SuiteFile.h"

#include <optional>

#include "xml/CDXMLFile.h"
#include "xml/MLXMLFile.h"
#include "xml/PBXMLFile.h"
#include "xml/SMSXMLFile.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

// What tells the suites apart where they are alike, with a number of the record that stands for all of it.
template <class File, class RecordClass, class ProfileClass>
struct Kind {
    using Base = SuiteTest<File, RecordClass, ProfileClass>;
    using Object = File;
    using Record = RecordClass;
    using Profile = ProfileClass;
};
struct Phonebook : Kind<CPBXMLFile, CContactItem, CPhonebookProfile> {
    static constexpr const char *kName = "phonebook", *kEntries = "contactentries", *kEntry = "contact",
                                *kUpperEntry = "CONTACT", *kNumber = "device";
    static constexpr auto kMember = &CContactItem::Storage;
    static constexpr bool kClosesItself = true;
};
struct Calendar : Kind<CCDXMLFile, CCalendarItem, CCalendarProfile> {
    static constexpr const char *kName = "calendar", *kEntries = "calendarentries", *kEntry = "data",
                                *kUpperEntry = "DATA", *kNumber = "duration";
    static constexpr auto kMember = &CCalendarItem::duration;
    static constexpr bool kClosesItself = false;
};
struct Sms : Kind<CSMSXMLFile, CSMSItem, CSMSProfile> {
    static constexpr const char *kName = "SMS", *kEntries = "smsentries", *kEntry = "sms", *kUpperEntry = "SMS",
                                *kNumber = "status";
    static constexpr auto kMember = &CSMSItem::status;
    static constexpr bool kClosesItself = true;
};
struct Email : Kind<CMLXMLFile, CEmailItem, CEmailProfile> {
    static constexpr const char *kName = "email", *kEntries = "emailentries", *kEntry = "email", *kUpperEntry = "EMAIL",
                                *kNumber = "status";
    static constexpr auto kMember = &CEmailItem::status;
    static constexpr bool kClosesItself = true;
};

std::string In(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

template <class Suite>
class SuiteFile : public Suite::Base {
 protected:
    using Driver = typename Suite::Base::Driver;

    const std::string id_ = std::string("suite-") + Suite::kName;
    const std::string entries_ = Suite::kEntries;

    static std::string Entry(int number, const std::string& name = Suite::kEntry) {
        return In(name, In(Suite::kNumber, std::to_string(number)));
    }
    std::string Document(const std::string& content) const {
        return "<" + std::string(Suite::kName) + " id='" + id_ + "'>" + content + "</" + Suite::kName + ">";
    }
    // The number of the next record; none at the end.
    static std::optional<std::int32_t> Next(Driver& file) {
        const auto* const record = file.Next();
        return record != nullptr ? std::optional(record->*Suite::kMember) : std::nullopt;
    }
    std::int32_t Open(Driver& file, std::uint32_t flags, const char* name = "file.xml") {
        return file->Open(this->folder_.Name(name).c_str(), &flags);
    }
};

using Suites = testing::Types<Phonebook, Calendar, Sms, Email>;
TYPED_TEST_SUITE(SuiteFile, Suites);

}  // namespace

TYPED_TEST(SuiteFile, ReadsToTheEndAndStartsOver) {
    const std::string entries = "<!--c-->\n" + this->Entry(1) + " text <other/>" +
                                this->Entry(2, TypeParam::kUpperEntry) + In("other", this->Entry(9)) +
                                "\n<![CDATA[x]]>" + this->Entry(3) + "\n";
    auto file = this->Reading(this->Document("<profile/>" + In(this->entries_, entries)));
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
    EXPECT_EQ(this->Open(file, CFile::kModeRead), 1);
    EXPECT_EQ(this->Next(file), std::nullopt) << "no header yet";
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(this->Next(file), 1);
}

TYPED_TEST(SuiteFile, VerifyJudgesTheIdentifierAlone) {
    const std::pair<std::string, VerifyCode> cases[] = {
        {this->Document(""), VERIFY_OK},
        {"<x version='7' id='" + this->id_ + "'/>", VERIFY_OK},
        {"<x id='S" + this->id_.substr(1) + "'/>", VERIFY_WRONG_FLAG},
        {"<x id=''/>", VERIFY_WRONG_FLAG},
        {"<x ID='" + this->id_ + "'/>", VERIFY_WRONG_FLAG},
    };
    for (const auto& [document, code] : cases)
        EXPECT_EQ(this->Reading(document)->Verify(), code) << document;
    auto file = this->Reading(cases[0].first);
    EXPECT_EQ(this->Open(file, CFile::kCreateReadWrite), 1);
    EXPECT_EQ(file->Verify(), VERIFY_WRONG_FLAG);
    EXPECT_EQ(this->Open(file, CFile::kModeRead, "missing"), 0);
    EXPECT_EQ(file->Verify(), VERIFY_NOT_OPENED);
}

TYPED_TEST(SuiteFile, WhatIsMissingFailsWhereItIsNeeded) {
    struct Case {
        std::string content;
        std::int32_t header;
        bool reads;
    };
    const std::string entries = In(this->entries_, this->Entry(1));
    const Case cases[] = {
        {entries, 0, false},
        {"<Profile/>" + entries, 0, false},
        {"<x><profile/></x>", 0, false},
        {"<profile/>", 1, false},
        {"<profile/>" + In(std::string(1, this->entries_[0] ^ 0x20) + this->entries_.substr(1), this->Entry(1)), 1,
         false},
        {"<profile/>" + In(this->entries_, "\n\t"), 1, false},
        {"<profile/>" + In(this->entries_, "") + entries, 1, false},  // the first counts
        {entries + "<profile/>", 1, true},
    };
    for (const Case& each : cases) {
        auto file = this->Reading(this->Document(each.content));
        EXPECT_EQ(file->ReadFileHeader(), each.header) << each.content;
        EXPECT_EQ(file.Next() != nullptr, each.reads) << each.content;
    }
}

TYPED_TEST(SuiteFile, NoOrderOfCallsDoesHarm) {
    const typename TypeParam::Record record;
    typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
    EXPECT_EQ(file->ReadFileHeader() + file.Write(&record), 0);
    EXPECT_EQ(file.Next(), nullptr);
    file->SetProfile(file.GetProfile());
    EXPECT_EQ(file->WriteFileHeader() + file.Write(&record), 2);
    EXPECT_NE(file.Next(), nullptr) << "what was written can be walked";
    EXPECT_EQ(file->WriteFileHeader(), 1);
    EXPECT_EQ(file.Next(), nullptr) << "the document starts anew";
    EXPECT_FALSE(file->IsOpened()) << "the stream is none of its business";
    EXPECT_EQ(this->Open(file, CFile::kModeRead, "missing"), 0);
    EXPECT_EQ(file->WriteFileHeader() + file.Write(&record), 0);
    EXPECT_EQ(file.GetProfile(), nullptr);
}

TYPED_TEST(SuiteFile, TheDriversNameIsCompletedInACopyAlone) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"abc", u"abc.dll"}, {u"ABC.DLL", u"ABC.DLL"}, {u"", u".dll"}, {u"a.dl", u"a.dl.dll"}};
    typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
    for (const auto& [given, kept] : cases) {
        typename TypeParam::Profile profile;
        profile.dllname = given;
        file->SetProfile(&profile);
        EXPECT_EQ(file.GetProfile()->dllname, kept);
    }
    auto read = this->Reading(this->Document("<profile><dllname> abc</dllname></profile>"));
    EXPECT_EQ(read->ReadFileHeader(), 1);
    EXPECT_EQ(read.GetProfile()->dllname, u" abc");
}

TYPED_TEST(SuiteFile, SavesUnderTheseFlagsAloneWhatChanged) {
    const typename TypeParam::Record record;
    for (const std::uint32_t flags : {0x0001U, 0x0002U, 0x0010U, 0x1001U, 0x1012U, 0x3002U}) {
        this->folder_.Put("file.xml", "neither read nor written");
        typename TestFixture::Driver file(this->path_, flags);
        EXPECT_EQ(file->WriteFileHeader() + file.Write(&record), 2) << flags;
        file->Close();
        EXPECT_EQ(this->folder_.Get("file.xml"), "neither read nor written") << flags;
    }
    std::string saved;
    {
        typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
        file->Close();
        EXPECT_EQ(this->folder_.Get("file.xml"), "") << "nothing was built";
        EXPECT_EQ(file->WriteFileHeader() + file.Write(&record), 2);
        EXPECT_EQ(this->folder_.Get("file.xml"), "") << "before Close";
        file->Close();
        saved = this->folder_.Get("file.xml");
        EXPECT_EQ(file->WriteFileHeader() + file.Write(&record), 2);
        file->Close();
        EXPECT_EQ(this->folder_.Get("file.xml"), Replaced(saved, "NO.1", "NO.2")) << "the numbers go on";
        this->folder_.Put("file.xml", "another's by now");
    }
    EXPECT_EQ(this->folder_.Get("file.xml"), "another's by now") << "it was saved already";
    {
        typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
        EXPECT_EQ(file->WriteFileHeader() + file.Write(&record), 2);
    }
    EXPECT_EQ(this->folder_.Get("file.xml"), TypeParam::kClosesItself ? saved : "another's by now");
}

TYPED_TEST(SuiteFile, ADocumentThatIsCutOffDoesNotOpen) {
    std::string name = TypeParam::kName;
    const std::string whole = Sample((name == "SMS" ? "sms" : name) + ".xml");
    auto file = this->Reading(whole);
    for (std::size_t length = whole.rfind('>'); length > 97; length -= 97) {
        this->folder_.Put("file.xml", whole.substr(0, length));
        EXPECT_EQ(this->Open(file, CFile::kModeRead), 0) << length;
        EXPECT_EQ(file->ReadFileHeader(), 0) << length;
    }
}
