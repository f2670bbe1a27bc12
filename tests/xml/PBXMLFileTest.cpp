#include "xml/PBXMLFile.h"

#include "platform/Text.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using Driver = SuiteDriver<CPBXMLFile, CContactItem, CPhonebookProfile>;

class PBXMLFile : public testing::Test {
 protected:
    Driver Reading(const std::string& profile, const std::string& contacts = {}) {
        folder_.Put("file.xml", "<phonebook id='suite-phonebook'><profile>" + profile + "</profile><contactentries>" +
                                    contacts + "</contactentries></phonebook>");
        return Driver(path_, Driver::Header::kRead);
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

CPhonebookProfile SampleProfile() {
    CPhonebookProfile profile;
    profile.config = PBMD_HAS_USIMCARD | PBMD_HAS_SPEEDDIAL;
    profile.handset = u"Handset <1> & \"2\"";
    profile.dllname = u"driver";
    profile.speedDialLabel = u"Speed dial";
    profile.speedDialFlag = 1;
    profile.speedDialMin = 2;
    profile.speedDialMax = 99;
    profile.assignablePhoneTypes = u"100,104";
    profile.unassignableIds = u"1";
    auto phone = std::make_unique<CPhonebookDevice>();
    phone->name = u"Phone";
    phone->config = PBDV_HAS_MEMORYLOCATION | PBDV_HAS_GROUP;
    phone->typespercontact = 10;
    phone->typecount = 4;
    phone->namecount = 500;
    phone->typeIds = {1, 104, 1000, 104};
    phone->typeLabels = {u"Given name", u"Mobile", u"Email", u"Mobile again"};
    phone->typeIcons = {u"name.ico", u"", u"mail.ico", u""};
    phone->typeLengths = {30, 40, 0xFFFFFFFF, 0};
    phone->memoryLocationLabel = u"Location";
    phone->memoryLocationMin = 1;
    phone->memoryLocationMax = 500;
    phone->memoryLocationUnassignable = u"0";
    phone->groupSetName = u"Groups";
    phone->groupSetFlag = 1;
    phone->groupIds = {3, 7, 0xFFFFFFFE};
    phone->groupLabels = {u"Family", u"Work", u""};
    auto sim = std::make_unique<CPhonebookDevice>();
    sim->id = -7;
    sim->name = u"SIM";
    sim->typecount = -1;
    sim->namecount = INT32_MAX;
    profile.devices.push_back(std::move(phone));
    profile.devices.push_back(nullptr);
    profile.devices.push_back(std::move(sim));
    return profile;
}

CContactItem Contact(std::int32_t storage, std::string_view values) {
    CContactItem contact = ContactOf(values);
    contact.Storage = storage;
    return contact;
}

std::vector<CContactItem> SampleContacts() {
    std::vector<CContactItem> contacts;
    contacts.reserve(6);  // a copy of a contact turns the order of its groups around
    contacts.push_back(Contact(0, "1=J\u00FCrgen\U0001F600|104=+49 170 1|1000=a<b>&\"']]>@x\x01|104=|5=no such type"));
    contacts.back().fields.front()->SetGroup(3, u"not stored");
    contacts.back().fields.front()->SetGroup(7, u"");
    contacts.back().fields.insert(contacts.back().fields.begin() + 1, nullptr);
    contacts.push_back(Contact(0, "1= two\r\n\tlines "));
    contacts.push_back(Contact(0, "104=a number without a name"));
    contacts.push_back(Contact(-7, "1=the SIM knows no types"));
    contacts.push_back(Contact(5, "1=no such memory"));
    contacts.emplace_back();
    return contacts;
}

std::vector<const CContactItem*> Addresses(const std::vector<CContactItem>& contacts) {
    std::vector<const CContactItem*> addresses;
    for (const CContactItem& contact : contacts)
        addresses.push_back(&contact);
    return addresses;
}

}  // namespace

TEST_F(PBXMLFile, WritesExactlyTheSample) {
    const CPhonebookProfile profile = SampleProfile();
    const std::vector<CContactItem> contacts = SampleContacts();
    Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, Addresses(contacts));
    EXPECT_EQ(folder_.Get("file.xml"), Sample("phonebook.xml"));
}

// What was read is written again: all is there but what the format itself drops, all groups but the first and the
// fields without a code.
TEST_F(PBXMLFile, ReadsTheSampleBack) {
    folder_.Put("file.xml", Sample("phonebook.xml"));
    Driver(path_).WriteAgain(folder_.Name("copy.xml"));
    std::string expected = Replaced(Sample("phonebook.xml"), "<group>7,3</group>", "<group>7</group>");
    expected = Replaced(expected, "<group/>", "<group>0</group>");
    for (const char* lost : {"no such type", "the SIM knows no types", "no such memory"})
        expected = Replaced(expected, "\n\t\t\t<C-1>" + std::string(lost) + "</C-1>", "");
    EXPECT_EQ(folder_.Get("copy.xml"), expected);
}

TEST_F(PBXMLFile, WithoutItsFlagsTheSetsAreNotWritten) {
    CPhonebookProfile profile = SampleProfile();
    profile.config = 0;
    profile.devices[0]->config = 0;
    const std::vector<CContactItem> contacts = SampleContacts();
    Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, Addresses(contacts));
    const std::string text = folder_.Get("file.xml");
    for (const char* absent : {"speeddial", "PBSD_", "<memorylocation", "<groupset", "<group>"})
        EXPECT_EQ(text.find(absent), std::string::npos) << absent;
}

// A step of the header that fails ends its element, and the header goes on.
TEST_F(PBXMLFile, ListsOfUnequalLengthEndTheirElement) {
    CPhonebookProfile profile = SampleProfile();
    profile.devices[0]->typeIcons.resize(1);
    profile.devices[0]->groupLabels.clear();
    Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, {});
    const std::string text = folder_.Get("file.xml");
    EXPECT_NE(text.find("<label>Mobile</label></C01></typeset>\n\t\t\t<memorylocation>"), std::string::npos) << text;
    EXPECT_NE(text.find("<id>3</id></group></groupset>\n\t\t</device>"), std::string::npos) << text;
    EXPECT_NE(text.find("\n\t<contactentries>"), std::string::npos);
}

TEST_F(PBXMLFile, ReadsWhatAPersonMayHaveWritten) {
    const std::string device =
        "<device><memorylocation><label>in</label></memorylocation><groupset><group><label>Work</label><id>2</id>"
        "</group><Name>g</Name><name>no</name><group/></groupset><typeset>\n<!--c--><a><id> 100x</id><id>+104</id>"
        "</a>text<C00><label>l</label></C00></typeset><typeset><b/></typeset><config>68</config><id>3</id>";
    auto file = Reading("<speeddial><min>5</min><Max>6</Max></speeddial><config>1</config><config>4294967295</config>" +
                        device + "</device><Device/>" + device + "<config>0</config></device>");
    const CPhonebookProfile& profile = *file.GetProfile();
    EXPECT_EQ(profile.speedDialMin, 5) << "whatever config says";
    EXPECT_EQ(profile.speedDialMax, 0);
    EXPECT_EQ(profile.config, -1) << "the last of two";
    ASSERT_EQ(profile.devices.size(), 2U);
    const CPhonebookDevice& first = *profile.devices[0];
    EXPECT_EQ(first.id, 3);
    EXPECT_EQ(first.typeIds, (std::vector<std::uint32_t>{0, 104, 0, 0})) << "each child counts, of the first set alone";
    EXPECT_EQ(first.typeLabels, (std::vector<std::u16string>{u"", u"", u"", u"l"}));
    EXPECT_EQ(first.typeIcons.size() + first.typeLengths.size(), 8U);
    EXPECT_EQ(first.groupIds, (std::vector<std::uint32_t>{2, 0}));
    EXPECT_EQ(first.groupLabels, (std::vector<std::u16string>{u"Work", u""}));
    EXPECT_EQ(first.groupSetName + first.name + first.memoryLocationLabel, u"gin");
    EXPECT_EQ(profile.devices[1]->memoryLocationLabel + profile.devices[1]->groupSetName, u"")
        << "not read without the flags";
    EXPECT_TRUE(profile.devices[1]->groupIds.empty());
}

TEST_F(PBXMLFile, ReadsAContactByItsDevice) {
    struct Case {
        const char* name;
        const char* contact;
        const char* read;
    };
    const Case cases[] = {
        {"in any order", "<C01>n</C01><device>3</device><C00>g</C00><C01>n2</C01>", "3: 104=n 1=g 104=n2"},
        {"no device", "<C00>g</C00>", "failed"},
        {"device in another case", "<Device>3</Device><C00>g</C00>", "failed"},
        {"the first device counts", "<device>3</device><device>4</device><C00>g</C00>", "3: 1=g"},
        {"no number", "<device>x</device><C00>g</C00>", "0:"},
        {"unknown device", "<device>9</device><C00>g</C00><group>7</group>", "9:"},
        {"codes not spelled so", "<device>3</device><C0>a</C0><c00>b</c00><C000>c</C000><C-1>d</C-1><C99>e</C99>",
         "3:"},
        {"empty and blank data", "<device>3</device><C00/><C01> </C01>", "3: 1= 104= "},
        {"data of several nodes", "<device>3</device><C00>a<!--no--><b>&amp;</b><![CDATA[<]]></C00>", "3: 1=a&<"},
        {"groups", "<device>3</device><group>7</group><C00>g</C00><group>3,7</group><group>9</group><Group>1</Group>",
         "3: 1=g[9: 3:Family 7:Work]"},
        {"the name by its type", "<device>3</device><C00/><C02>m</C02><group>3</group>", "3: 1=[3:Family] 2=m"},
        {"groups without a name", "<device>3</device><group>7</group><C01>n</C01>", "3: 104=n"},
        {"a device without groups", "<device>4</device><group>7</group><C00>g</C00>", "4: 5=g"},
        {"the first of two devices of an id", "<device>5</device><C00>g</C00>", "5: 1000=g"},
    };
    std::string contacts;
    for (const Case& each : cases)
        contacts += "<contact>" + std::string(each.contact) + "</contact>";
    const std::string ids = "<typeset><x><id>1</id></x><x><id>104</id></x><x><id>2</id></x></typeset>";
    auto file = Reading("<device><id>3</id><config>4</config>" + ids +
                            "<groupset><g/><group><id>3</id><label>Family</label></group><group><id>7</id><label>Work"
                            "</label></group><group><id>7</id><label>again</label></group></groupset></device>"
                            "<device><id>4</id><typeset><x><id>5</id></x></typeset></device>"
                            "<device><id>5</id><typeset><x><id>1000</id></x></typeset></device>"
                            "<device><id>5</id>" +
                            ids + "</device>",
                        contacts);
    for (const Case& each : cases) {
        std::string read = "failed";
        if (const CContactItem* const contact = file.Next()) {
            read = std::to_string(contact->Storage) + ":";
            for (const auto& field : contact->fields) {
                read += " " + std::to_string(field->Type) + "=" + orvale::ToUtf8(field->Data);
                std::string groups;
                for (const auto& group : field->groups)
                    groups += " " + std::to_string(group.key) + ":" + orvale::ToUtf8(group.value);
                if (!groups.empty()) read += "[" + groups.substr(1) + "]";
            }
        }
        EXPECT_EQ(read, each.read) << each.name;
    }
}

TEST_F(PBXMLFile, ACodeHasAsManyDigitsAsItNeeds) {
    CPhonebookProfile profile;
    profile.devices.push_back(std::make_unique<CPhonebookDevice>());
    CPhonebookDevice& device = *profile.devices.back();
    std::string values;
    for (std::uint32_t i = 0; i < 120; ++i) {
        device.typeIds.push_back(3000 - i);
        values += "|" + std::to_string(3000 - i) + "=" + std::to_string(i);
    }
    device.typeLabels.resize(120);
    device.typeIcons.resize(120);
    device.typeLengths.resize(120);
    const CContactItem contact = Contact(0, values.substr(1));
    Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, {&contact});
    for (const char* code : {"\t<C00>0</C00>", "\t<C09>9</C09>", "\t<C99>99</C99>", "\t<C100>100</C100>"})
        EXPECT_NE(folder_.Get("file.xml").find(code), std::string::npos) << code;
    Driver file(path_, Driver::Header::kRead);
    const CContactItem* const read = file.Next();
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(ValuesOf(*read), values.substr(1));
}

TEST_F(PBXMLFile, Log) {
    EXPECT_EQ(LogOf("CPBXMLFile",
                    [&] {
                        auto file = Reading("<device/>", "<contact><device>0</device></contact>");
                        EXPECT_EQ(file->Verify(), 0);
                        while (file.Next() != nullptr) {
                        }
                        file->Close();
                    }),
              "Open : Begin\nOpen : File identifier[suite-phonebook]\nOpen : File Name[" + orvale::ToUtf8(path_) +
                  "]\nOpen : Finish\nReadFileHeader : Begin\nReadXMLProfile : Begin\nReadXMLProfile : Succeeded\n"
                  "ReadXMLProfile : Finish\nReadFileHeader : Finish\nRead : Begin\n"
                  "Storage : 0  Memory Location : -1 Index : -1 Operation : None\nRead : Succeeded\nRead : Finish\n"
                  "Read : Begin\nRead : Failed\nRead : Finish\nClose : Begin/Finish\nClose : Begin/Finish\n");
    EXPECT_EQ(LogOf("CPBXMLFile",
                    [&] {
                        const std::uint32_t flags = CFile::kModeRead;
                        CPBXMLFile file;
                        EXPECT_EQ(file.Open(folder_.Name("missing").c_str(), &flags), 0);
                        folder_.Put("file.xml", "<x/>");
                        EXPECT_EQ(file.Open(path_.c_str(), &flags), 1);
                        EXPECT_EQ(file.ReadFileHeader(), 0);
                    }),
              "Open : Begin\nOpen : Finish\nOpen : Begin\nOpen : File identifier[]\nOpen : File Name[" +
                  orvale::ToUtf8(path_) +
                  "]\nOpen : Finish\nReadFileHeader : Begin\nReadFileHeader : NULL Profile Node\n"
                  "ReadFileHeader : Finish\nClose : Begin/Finish\n");
    EXPECT_EQ(LogOf("CPBXMLFile",
                    [&] {
                        Driver file(path_, CFile::kModeWrite);
                        const CPhonebookProfile profile;
                        const CContactItem contact;
                        file->SetProfile(&profile);
                        EXPECT_EQ(file.Write(&contact), 0);
                        file.WriteAll(nullptr, {&contact});
                    }),
              "Open : Begin\nOpen : File Name[" + orvale::ToUtf8(path_) +
                  "]\nOpen : Finish\nSetProfile : Profile[]\nWrite : Begin\n"
                  "Storage : 0  Memory Location : -1 Index : -1 Operation : None\nWrite : Failed\nWrite : Finish\n"
                  "WriteFileHeader : Begin\nWriteFileHeader : Finish\nWrite : Begin\n"
                  "Storage : 0  Memory Location : -1 Index : -1 Operation : None\nWrite : Succeeded\n"
                  "Write : Finish\nClose : Begin/Finish\nClose : Begin/Finish\n");
}
