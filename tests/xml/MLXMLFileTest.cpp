#include "xml/MLXMLFile.h"

#include "platform/Clock.h"
#include "platform/Text.h"
#include "records/GeneralSyncData.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using Driver = SuiteDriver<CMLXMLFile, CEmailItem, CEmailProfile>;

class MLXMLFile : public testing::Test {
 protected:
    Driver Reading(const std::string& emails, const std::string& profile = {}) {
        folder_.Put("file.xml", "<email id='suite-email'><profile>" + profile + "</profile><emailentries>" + emails +
                                    "</emailentries></email>");
        return Driver(path_, Driver::Header::kRead);
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

CEmailProfile SampleProfile() {
    CEmailProfile profile;
    profile.handset = u"Handset";
    profile.dllname = u"driver";
    profile.config = EMMD_HAS_SEND | EMMD_HAS_CANCEL;
    profile.capacity = 1000;
    auto phone = std::make_unique<CEmailDevice>();
    phone->id = DEVL_PHONEMEMORY;
    phone->name = u"Phone";
    phone->capacity = 500;
    auto other = std::make_unique<CEmailDevice>();
    other->id = -5;
    other->config = 1;
    other->capacity = -1;
    profile.devices.push_back(std::move(phone));
    profile.devices.push_back(nullptr);
    profile.devices.push_back(std::move(other));
    auto account = std::make_unique<CEmailAccount>();
    account->id = EMAILACCOUNT_DEFAULT;
    account->name = u"Default";
    account->capacity = 200;
    account->password = u"p<a>ss";
    account->Address = u"ann@example.org";
    auto inbox = std::make_unique<CEmailBox>();
    inbox->name = u"Inbox";
    inbox->config = 255;
    inbox->capacity = 50;
    inbox->type = EMAILBOX_INBOX;
    inbox->subfolders = {u"<id>100</id><name>Friends &amp; more</name>", u""};
    auto custom = std::make_unique<CEmailBox>();
    custom->type = EMAILBOX_CUSTOM3;
    account->boxes.push_back(std::move(inbox));
    account->boxes.push_back(nullptr);
    account->boxes.push_back(std::move(custom));
    profile.accounts.push_back(std::move(account));
    profile.accounts.push_back(nullptr);
    profile.accounts.push_back(std::make_unique<CEmailAccount>());
    profile.accounts.back()->id = EMAILACCOUNT_CUSTOM1;
    return profile;
}

CEmailItem SampleEmail() {
    CEmailItem email;
    email.type = EMAILBOX_INBOX;
    email.device = DEVL_SIMCARD;
    email.status = EMAIL_READ | EMAIL_UNDELETED;
    email.account = u"<id>1</id><name><b>Ann</b> &amp;</name><x:empty/>";
    email.box = u"Inbox";
    email.folder = u"Friends";
    email.from = u"ann@example.org";
    email.to = u"bob@example.org; carl@example.org";
    email.cc = u"c";
    email.bcc = u"b";
    email.subject = u"Gr\u00FC\u00DFe <1>\U0001F600";
    email.body = u"Hello,\r\n\r\n\tworld & all\n";
    email.received = DateValue::FromFields({2010, 7, 26, 6, 0, 15});
    email.sent = DateValue::FromFields({2010, 7, 26, 6, 0, 0});
    email.importance = EMAIL_IMPORTANCE_HIGH;
    email.symbol = EMAIL_SYMBOL_PURPLE;
    email.sensitivity = EMAIL_SENSITIVTY_CONFIDENTIAL;
    email.entryid = u"0001-FFFF";
    email.accessory = {u"a.jpg", u"", u"b & c.txt"};
    email.index = 7;  // in no file
    return email;
}

CEmailItem BrokenEmail() {
    CEmailItem email;
    email.type = email.device = email.status = -1;
    email.account = u"<id>1</name>";
    return email;
}

}  // namespace

TEST_F(MLXMLFile, WritesExactlyTheSample) {
    const CEmailProfile profile = SampleProfile();
    const CEmailItem email = SampleEmail();
    const CEmailItem empty;
    const CEmailItem broken = BrokenEmail();
    Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, {&email, &empty, &broken});
    EXPECT_EQ(folder_.Get("file.xml"), Sample("email.xml"));
}

// A run that is gathered again isn't escaped: one with an ampersand doesn't survive being written once more.
TEST_F(MLXMLFile, ReadsTheSampleBack) {
    std::string sample = Replaced(Sample("email.xml"), "Friends &amp; more", "Friends");
    sample = Replaced(sample, "<name>Ann &amp;</name>", "<name>Ann</name>");
    folder_.Put("file.xml", sample);
    Driver(path_).WriteAgain(folder_.Name("copy.xml"));
    const std::size_t broken = sample.rfind("\n\t\t\t<account>");
    const std::string expected = sample.erase(broken, sample.rfind("\n\t\t\t<importance>") - broken);
    EXPECT_EQ(folder_.Get("copy.xml"), expected) << "an account without elements reads as none";
}

TEST_F(MLXMLFile, FragmentsComeOutAsTheirFirstLevel) {
    struct Case {
        const char16_t* fragment;
        const char* written;
        const char16_t* read;
    };
    const Case cases[] = {
        {u"<a>1</a><b>2</b><a/>", "<a>1</a><b>2</b><a/>", u"<a>1</a><b>2</b><a></a>"},
        {u"<a x='1'>1<c>2</c><!--no-->3</a>", "<a>123</a>", u"<a>123</a>"},
        {u"<a>&lt;&#65;<![CDATA[&]]></a>", "<a>&lt;A&amp;</a>", u"<a><A&</a>"},
        {u"<p:a>\u00E9\U0001F600</p:a>", "<p:a>\xC3\xA9</p:a>", u"<p:a>\u00E9</p:a>"},
        {u"<a> </a>", "<a> </a>", u"<a> </a>"},
        {u"text alone", "", u""},
        {u"<a>1</a>&", "", u""},
        {u"<a>1", "", u""},
        {u"<a>1</a></account><account>", "", u""},
        {u"<!DOCTYPE a><a/>", "", u""},
    };
    for (const Case& each : cases) {
        CEmailProfile profile;
        profile.accounts.push_back(std::make_unique<CEmailAccount>());
        profile.accounts[0]->boxes.push_back(std::make_unique<CEmailBox>());
        profile.accounts[0]->boxes[0]->subfolders = {each.fragment};
        CEmailItem email;
        email.account = each.fragment;
        Driver(path_, CFile::kCreateReadWrite).WriteAll(&profile, {&email});
        const auto elements = [&](const std::string& name, std::size_t from) {
            const std::string text = folder_.Get("file.xml");
            const std::size_t start = text.find("<" + name + ">", from) + name.size() + 2;
            const std::string inner = text.substr(start, text.find("</" + name + ">", start) - start);
            return Without(Without(inner, "\n"), "\t");
        };
        EXPECT_EQ(elements("subfolder", 0), each.written);
        EXPECT_EQ(elements("account", folder_.Get("file.xml").find("<emailentries>")), each.written);
        Driver file(path_, Driver::Header::kRead);
        EXPECT_EQ(file.GetProfile()->accounts[0]->boxes[0]->subfolders, std::vector<std::u16string>{each.read});
        const CEmailItem* const read = file.Next();
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(read->account, each.read);
    }
}

TEST_F(MLXMLFile, ReadsWhatAPersonMayHaveWritten) {
    const orvale::StoppedClock clock(1280124015);
    auto file = Reading(
        "<!--c--><email/><EMAIL><account>text<a>1</a><!--c--></account><Status>9</Status><sent>x</sent>"
        "<received> 20100726T060000Z</received><accessory>\n<file>f</file><x>y<z>z</z></x></accessory>"
        "<account><b>&lt;</b></account><accessory><![CDATA[g]]></accessory><to>1</to><to>2</to></EMAIL>",
        "<account><box><subfolder/><type>1</type><Type>2</Type><subfolder><a>b</a></subfolder></box>"
        "<address>no</address><Address>a</Address><password> p </password></account><Device/><device/>"
        "<capacity>5</capacity>");
    const CEmailProfile& profile = *file.GetProfile();
    EXPECT_EQ(profile.capacity, 5);
    EXPECT_EQ(profile.devices.size(), 1U);
    ASSERT_EQ(profile.accounts.size(), 1U);
    EXPECT_EQ(profile.accounts[0]->Address + profile.accounts[0]->password, u"a p ");
    ASSERT_EQ(profile.accounts[0]->boxes.size(), 1U);
    EXPECT_EQ(profile.accounts[0]->boxes[0]->type, 1);
    EXPECT_EQ(profile.accounts[0]->boxes[0]->subfolders, (std::vector<std::u16string>{u"", u"<a>b</a>"}));

    const CEmailItem* const email = file.Next();
    ASSERT_NE(email, nullptr);
    EXPECT_TRUE(email->received.IsNone() && email->sent.IsNone() && email->accessory.empty());
    ASSERT_EQ(file.Next(), email);
    EXPECT_EQ(email->account, u"<a>1</a><b><</b>") << "a second account adds to the first";
    EXPECT_EQ(email->accessory, (std::vector<std::u16string>{u"f", u"yz", u"g"}));
    EXPECT_EQ(email->to, u"2");
    EXPECT_EQ(email->status, 0);
    EXPECT_EQ(email->sent.Value(), DateValue::FromFields({2010, 7, 26, 6, 0, 15}).Value()) << "the present moment";
    EXPECT_EQ(file.Next(), nullptr);
}

TEST_F(MLXMLFile, Log) {
    const auto four = [](const std::string& name, const std::string& outcome, const std::string& inner = {}) {
        return name + " : Begin\n" + inner + name + " : " + outcome + "\n" + name + " : Finish\n";
    };
    const std::string name = "Open : File Name[" + orvale::ToUtf8(path_) + "]\n";
    EXPECT_EQ(
        LogOf("CMLXMLFile",
              [&] {
                  auto file = Reading("<email/>", "<device/><account><box><subfolder/></box></account>");
                  EXPECT_EQ(file->Verify(), 0);
                  while (file.Next() != nullptr) {
                  }
                  file->Close();
              }),
        four("Open", "Succeeded", "Open : File identifier[suite-email]\n" + name) + "ReadFileHeader : Begin\n" +
            four("ReadXMLProfile", "Succeeded",
                 four("ReadXMLDeviceProfile", "Succeeded") + four("ReadXMLAccountProfile", "Succeeded",
                                                                  four("ReadXMLAccountBoxProfile", "succeeded",
                                                                       four("ReadXMLBoxFolderProfile", "Succeeded")))) +
            "ReadFileHeader : Finish\nVerify : Begin\nVerify : Succeeded\n" +
            four("Read", "Succeeded", "ReadEmail : Begin\nReadEmail : Succeeded\n") +
            four("Read", "Failed", "ReadEmail : Begin\nReadEmail : Failed\n") + four("Close", "Succeeded") +
            four("Close", "Succeeded"));
    EXPECT_EQ(LogOf("CMLXMLFile",
                    [&] {
                        const std::uint32_t flags = CFile::kModeRead;
                        CMLXMLFile closed;
                        EXPECT_EQ(closed.Open(folder_.Name("missing").c_str(), &flags), 0);
                        closed.SetProfile(&closed);
                        EXPECT_EQ(closed.Verify(), VERIFY_NOT_OPENED);
                        Driver file(path_, CFile::kModeWrite);
                        EXPECT_EQ(file->ReadFileHeader(), 0);
                        const CEmailProfile profile = SampleProfile();
                        const CEmailItem email;
                        file.WriteAll(&profile, {&email});
                    }),
              four("Open", "Failed", "Open : Failed to load the XML file\n") +
                  "SetProfile : Begin\nVerify : Begin\nVerify : Failed\n" + four("Open", "Succeeded", name) +
                  "ReadFileHeader : Begin\nReadFileHeader : NULL Profile Node\nReadFileHeader : Finish\n"
                  "SetProfile : Begin\nSetProfile : Profile[]\nSetProfile : Finish\n" +
                  four("WriteFileHeader", "Succeeded",
                       "WriteFileHeader : Empty the document\nWriteFileHeader : Create the document header\n"
                       "WriteFileHeader : Create the document root node\n"
                       "WriteFileHeader : Set the attributes of root node\n" +
                           four("WriteComments", "Succeeded") + "WriteXMLProfile : Begin\n" +
                           four("WriteXMLDeviceProfile", "Succeeded", four("WriteComments", "Succeeded")) +
                           four("WriteXMLAccountProfile", "Succeeded",
                                four("WriteComments", "Succeeded") +
                                    four("WriteXMLAccountBoxProfile", "Succeeded",
                                         four("WriteXMLBoxFolderProfile", "Succeeded") +
                                             four("WriteXMLBoxFolderProfile", "Succeeded")) +
                                    four("WriteXMLAccountBoxProfile", "Succeeded")) +
                           four("WriteComments", "Succeeded")) +
                  four("Write", "Succeeded", "WriteEmail : Begin\n") + four("Close", "Succeeded") +
                  four("Close", "Succeeded") + four("Close", "Failed"));
}
