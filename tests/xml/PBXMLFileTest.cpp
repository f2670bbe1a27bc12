#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

class PBXMLFile : public SuiteTest<CPBXMLFile> {
 protected:
    CPhonebookProfile SampleProfile() {
        CPhonebookProfile profile;
        Driver file = Reading(Sample());
        EXPECT_EQ(file->ReadFileHeader(), 1);
        profile.CopyFrom(*file.GetProfile());
        return profile;
    }
};

// Storage, fields, and the groups of each in brackets.
std::string TextOf(const CContactItem* contact) {
    if (contact == nullptr) return "failed";
    std::string text = std::to_string(contact->Storage) + ":";
    for (const auto& field : contact->fields) {
        text += " " + std::to_string(field->Type) + "=" + orvale::ToUtf8(field->Data);
        for (const auto& group : field->groups)
            text += "[" + std::to_string(group.key) + orvale::ToUtf8(group.value) + "]";
    }
    return text;
}

}  // namespace

// What was read is written again: all is there but what the format drops, all groups but the first and the fields
// without a code.
TEST_F(PBXMLFile, EveryMemberHasItsElement) {
    std::string expected = Replaced(Sample(), "<group>7,3</group>", "<group>7</group>");
    expected = Replaced(expected, "<group/>", "<group>0</group>");
    for (const char* lost : {"no such type", "the SIM knows no types", "no such memory"})
        expected = Replaced(expected, "\n\t\t\t<C-1>" + std::string(lost) + "</C-1>", "");
    EXPECT_EQ(WrittenAgain(Sample()), expected);

    EXPECT_EQ(JsonOf(Sample()), Data("phonebook.json"));
    EXPECT_EQ(JsonOf(Data("phonebook-odd.xml")), Data("phonebook-odd.json"));
}

TEST_F(PBXMLFile, WritesWhatNoReaderGives) {
    CPhonebookProfile profile = SampleProfile();
    profile.devices.insert(profile.devices.begin(), nullptr);
    CContactItem contacts[] = {
        ContactOf("1=J\u00FCrgen\U0001F600|104=+49 170 1|1000=a<b>&\"']]>@x\x01|104=|5=no such type"),
        ContactOf("1= two\r\n\tlines "),
        ContactOf("104=a number without a name"),
        ContactOf("1=the SIM knows no types"),
        ContactOf("1=no such memory"),
        CContactItem()};
    contacts[0].fields.front()->SetGroup(3, u"not stored");
    contacts[0].fields.front()->SetGroup(7, u"");
    contacts[0].fields.insert(contacts[0].fields.begin(), nullptr);
    contacts[3].Storage = -7;
    contacts[4].Storage = 5;
    EXPECT_EQ(Written(&profile, {&contacts[0], &contacts[1], &contacts[2], &contacts[3], &contacts[4], &contacts[5]}),
              Sample());

    // A step of the header that fails ends its element, and the header goes on.
    profile.devices[1]->typeIcons.resize(1);
    profile.devices[1]->groupLabels.clear();
    const std::string text = Written(&profile, {});
    EXPECT_NE(text.find("<label>Mobile</label></C01></typeset>\n\t\t\t<memorylocation>"), std::string::npos) << text;
    EXPECT_NE(text.find("<id>3</id></group></groupset>\n\t\t</device>"), std::string::npos) << text;

    profile.config = profile.devices[1]->config = 0;
    const std::string plain = Written(&profile, {&contacts[0]});
    for (const char* absent : {"speeddial", "PBSD_", "<memorylocation", "<groupset", "<group>"})
        EXPECT_EQ(plain.find(absent), std::string::npos) << absent;
}

TEST_F(PBXMLFile, ReadsAContactByItsDevice) {
    const auto cases = Cases("phonebook-contacts.cases");
    std::string contacts;
    for (const auto& each : cases)
        contacts += In("contact", each[1]);
    const auto types = [](const std::string& ids) { return In("typeset", ids); };
    const std::string three = types("<x><id>1</id></x><x><id>104</id></x><x><id>2</id></x>");
    std::string many = "<x><id>5</id></x>";
    for (int i = 1; i < 100; ++i)
        many += "<x/>";
    Driver file = Reading(Document(
        "<device><id>3</id><config>4</config>" + three +
            "<groupset><g/><group><id>3</id><label>Family</label></group><group><id>7</id><label>Work</label></group>"
            "<group><id>7</id><label>again</label></group></groupset></device><device><id>4</id>" +
            types(many + "<x><id>77</id></x>") + "</device><device><id>5</id>" + types("<x><id>1000</id></x>") +
            "</device><device><id>5</id>" + three + "</device>",
        contacts));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    for (const auto& each : cases)
        EXPECT_EQ(TextOf(file.Next()), each[2]) << each[0];
}
