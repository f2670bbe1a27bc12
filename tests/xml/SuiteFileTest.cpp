#include "xml/SuiteFile.h"

#include <optional>

#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

template <class File>
class SuiteFile : public SuiteTest<File> {
 protected:
    using Names = Suite<File>;
    using Driver = typename SuiteTest<File>::Driver;

    const std::string id_ = std::string("suite-") + Names::kRoot;
    const std::string entries_ = Names::kEntries;

    static std::string Entry(int number, const std::string& name = Names::kEntry) {
        return In(name, In(Names::kNumber, std::to_string(number)));
    }
    static std::string Upper(std::string text) {
        std::transform(text.begin(), text.end(), text.begin(), [](char c) { return static_cast<char>(c & ~0x20); });
        return text;
    }
    // The number of the next record; none at the end.
    static std::optional<std::int32_t> Next(Driver& file) {
        const auto* const record = file.Next();
        return record != nullptr ? std::optional(record->*Names::kMember) : std::nullopt;
    }
    std::int32_t Open(Driver& file, std::uint32_t flags, const char* name = "file.xml") {
        return file->Open(this->folder_.Name(name).c_str(), &flags);
    }
};

using Suites = testing::Types<CPBXMLFile, CCDXMLFile, CSMSXMLFile, CMLXMLFile>;
TYPED_TEST_SUITE(SuiteFile, Suites);

}  // namespace

TYPED_TEST(SuiteFile, ReadsToTheEndAndStartsOver) {
    const std::string entries = "<!--c-->\n" + this->Entry(1) + " text <other/>" +
                                this->Entry(2, this->Upper(Suite<TypeParam>::kEntry)) + In("other", this->Entry(9)) +
                                "\n<![CDATA[x]]>" + this->Entry(3) + "\n";
    auto file = this->Reading(this->Document("", entries));
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
        {this->Root(""), VERIFY_OK},
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
        {"<profile/>" + In(this->Upper(this->entries_), this->Entry(1)), 1, false},
        {"<profile/>" + In(this->entries_, "\n\t"), 1, false},
        {"<profile/>" + In(this->entries_, "") + entries, 1, false},  // the first counts
        {entries + "<profile/>", 1, true},
    };
    for (const Case& each : cases) {
        auto file = this->Reading(this->Root(each.content));
        EXPECT_EQ(file->ReadFileHeader(), each.header) << each.content;
        EXPECT_EQ(file.Next() != nullptr, each.reads) << each.content;
    }
}

TYPED_TEST(SuiteFile, NoOrderOfCallsDoesHarm) {
    const typename TestFixture::Record record;
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
    typename TestFixture::Profile profile;
    profile.dllname = u"abc";
    typename TestFixture::Driver file(this->path_, CFile::kCreateReadWrite);
    file->SetProfile(&profile);
    EXPECT_EQ(file.GetProfile()->dllname + profile.dllname, u"abc.dllabc");
    auto read = this->Reading(this->Document("<dllname> abc</dllname>", ""));
    EXPECT_EQ(read->ReadFileHeader(), 1);
    EXPECT_EQ(read.GetProfile()->dllname, u" abc");
}

TYPED_TEST(SuiteFile, SavesUnderTheseFlagsAloneWhatChanged) {
    const typename TestFixture::Record record;
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
    EXPECT_EQ(this->folder_.Get("file.xml"), Suite<TypeParam>::kClosesItself ? saved : "another's by now");
}
