#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "command/formats/Kinds.h"
#include "command/json/JsonDocument.h"
#include "support/Cases.h"
#include "support/FileDriver.h"
#include "support/ScratchFolder.h"
#include "xml/CDXMLFile.h"
#include "xml/MLXMLFile.h"
#include "xml/PBXMLFile.h"
#include "xml/SMSXMLFile.h"

/// What the tests of the four suite documents share. The documents under tests/data were put together by hand.
namespace orvale::test {

/// What tells a suite from the others where they are alike: its names, and a number of the record (its element, its
/// member) that stands for all of it.
template <class File>
struct Suite;
template <>
struct Suite<CPBXMLFile> {
    using Record = CContactItem;
    using Profile = CPhonebookProfile;
    static constexpr const char *kRoot = "phonebook", *kEntries = "contactentries", *kEntry = "contact",
                                *kNumber = "device", *kSample = "phonebook";
    static constexpr auto kMember = &CContactItem::Storage;
    static constexpr bool kClosesItself = true;
};
template <>
struct Suite<CCDXMLFile> {
    using Record = CCalendarItem;
    using Profile = CCalendarProfile;
    static constexpr const char *kRoot = "calendar", *kEntries = "calendarentries", *kEntry = "data",
                                *kNumber = "duration", *kSample = "calendar";
    static constexpr auto kMember = &CCalendarItem::duration;
    static constexpr bool kClosesItself = false;
};
template <>
struct Suite<CSMSXMLFile> {
    using Record = CSMSItem;
    using Profile = CSMSProfile;
    static constexpr const char *kRoot = "SMS", *kEntries = "smsentries", *kEntry = "sms", *kNumber = "status",
                                *kSample = "sms";
    static constexpr auto kMember = &CSMSItem::status;
    static constexpr bool kClosesItself = true;
};
template <>
struct Suite<CMLXMLFile> {
    using Record = CEmailItem;
    using Profile = CEmailProfile;
    static constexpr const char *kRoot = "email", *kEntries = "emailentries", *kEntry = "email", *kNumber = "status",
                                *kSample = "email";
    static constexpr auto kMember = &CEmailItem::status;
    static constexpr bool kClosesItself = true;
};

using Numbers = std::vector<std::int32_t>;
using Unsigned = std::vector<std::uint32_t>;
using Texts = std::vector<std::u16string>;

inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t found = text.find(from);
    EXPECT_NE(found, std::string::npos) << from;
    return found != std::string::npos ? text.replace(found, from.size(), to) : text;
}

inline std::string Without(std::string text, const std::string& part) {
    for (std::size_t found; (found = text.find(part)) != std::string::npos;)
        text.erase(found, part.size());
    return text;
}

inline std::string In(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

template <class File>
class SuiteTest : public testing::Test {
 protected:
    using Names = Suite<File>;
    using Record = typename Names::Record;
    using Profile = typename Names::Profile;

    class Driver : public FileDriver<File, Record> {
     public:
        using FileDriver<File, Record>::FileDriver;

        const Profile* GetProfile() {
            const void* profile = nullptr;
            (*this)->GetProfile(&profile);
            return static_cast<const Profile*>(profile);
        }
    };

    /// A document with anything in its root, and one with anything in its profile and its entries.
    static std::string Root(const std::string& content) {
        const std::string root = Names::kRoot;
        return "<" + root + " id='suite-" + root + "'>" + content + "</" + root + ">";
    }
    static std::string Document(const std::string& profile, const std::string& entries) {
        return Root(In("profile", profile) + In(Names::kEntries, entries));
    }
    static std::string Sample() { return Data(std::string(Names::kSample) + ".xml"); }

    /// The whole document of a profile and of records, up to Close.
    std::string Written(const Profile* profile, std::initializer_list<const Record*> records) {
        Driver file(path_, CFile::kCreateReadWrite);
        file->SetProfile(profile);
        EXPECT_EQ(file->WriteFileHeader(), 1);
        for (const Record* record : records)
            EXPECT_EQ(file.Write(record), 1);
        file->Close();
        return folder_.Get("file.xml");
    }

    /// What came of a document that was read, written again.
    std::string WrittenAgain(const std::string& document) {
        Driver file = Reading(document);
        Driver copy(folder_.Name("copy.xml"), CFile::kCreateReadWrite);
        EXPECT_EQ(file->ReadFileHeader(), 1);
        copy->SetProfile(file.GetProfile());
        EXPECT_EQ(copy->WriteFileHeader(), 1);
        while (const Record* record = file.Next())
            EXPECT_EQ(copy.Write(record), 1);
        copy->Close();
        return folder_.Get("copy.xml");
    }

    /// All that a document says, in the command's JSON.
    std::string JsonOf(const std::string& document) {
        Driver file = Reading(document);
        EXPECT_EQ(file->ReadFileHeader(), 1);
        std::ostringstream json;
        const auto shape = ShapeOf(std::make_shared<const orvale::Profile>(std::in_place_type<Profile>));
        const auto profile = orvale::CopyOfProfile(*file.operator->(), shape);
        orvale::JsonDocumentWriter writer(json, orvale::RecordKind<Record>::value, profile, true);
        while (const Record* record = file.Next())
            writer.Put(*record);
        writer.Finish();
        return json.str();
    }

    Driver Reading(const std::string& document) {
        folder_.Put("file.xml", document);
        return Driver(path_);
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

}  // namespace orvale::test
