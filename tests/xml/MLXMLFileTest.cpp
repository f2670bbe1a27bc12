#include "platform/Clock.h"
#include "xml/SuiteSupport.h"

using namespace orvale::test;

namespace {

using MLXMLFile = SuiteTest<CMLXMLFile>;

}  // namespace

// A run that is gathered again isn't escaped: one with an ampersand doesn't survive being written once more.
TEST_F(MLXMLFile, EveryMemberHasItsElement) {
    std::string sample = Replaced(Sample(), "Friends &amp; more", "Friends");
    sample = Replaced(sample, "<name>Ann &amp;</name>", "<name>Ann</name>");
    std::string expected = sample;
    const std::size_t broken = expected.rfind("\n\t\t\t<account>");
    expected.erase(broken, expected.rfind("\n\t\t\t<importance>") - broken);
    EXPECT_EQ(WrittenAgain(sample), expected) << "an account without elements reads as none";

    Driver file = Reading(Sample());
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CEmailProfile& p = *file.GetProfile();
    ASSERT_TRUE(p.devices.size() == 2 && p.accounts.size() == 2 && p.accounts[0]->boxes.size() == 2);
    const CEmailDevice& d = *p.devices[1];
    const CEmailAccount& a = *p.accounts[0];
    const CEmailBox& b = *a.boxes[0];
    EXPECT_EQ((Numbers{p.config, p.capacity, d.id, d.config, d.capacity, a.id, a.config, a.capacity, b.type, b.config,
                       b.capacity, a.boxes[1]->type, p.accounts[1]->id}),
              (Numbers{3, 1000, -5, 1, -1, 1, 0, 200, 1, 255, 50, 53, 2}));
    EXPECT_EQ((Texts{p.handset, p.dllname, p.devices[0]->name, a.name, a.password, a.Address, b.name}),
              (Texts{u"Handset", u"driver.dll", u"Phone", u"Default", u"p<a>ss", u"ann@example.org", u"Inbox"}));
    EXPECT_EQ(b.subfolders, (Texts{u"<id>100</id><name>Friends & more</name>", u""}));
    const CEmailItem* const e = file.Next();
    ASSERT_NE(e, nullptr);
    EXPECT_EQ((Numbers{e->type, e->device, e->status, e->importance, e->symbol, e->sensitivity, e->received.Second(),
                       e->sent.Second()}),
              (Numbers{1, 2, 65537, 3, 7, 4, 15, 0}));
    EXPECT_EQ((Texts{e->account, e->box, e->folder, e->from, e->to, e->cc, e->bcc, e->subject, e->body, e->entryid}),
              (Texts{u"<id>1</id><name>Ann &</name><x:empty></x:empty>", u"Inbox", u"Friends", u"ann@example.org",
                     u"bob@example.org; carl@example.org", u"c", u"b", u"Gr\u00FC\u00DFe <1>",
                     u"Hello,\r\n\r\n\tworld & all\n", u"0001-FFFF"}));
    EXPECT_EQ(e->accessory, (Texts{u"a.jpg", u"", u"b & c.txt"}));
}

TEST_F(MLXMLFile, FragmentsComeOutAsTheirFirstLevel) {
    for (const auto& each : Cases("email-fragments.cases")) {
        const std::u16string fragment = orvale::FromUtf8(each[0]);
        CEmailProfile profile;
        profile.devices.push_back(nullptr);
        profile.accounts.push_back(nullptr);
        profile.accounts.push_back(std::make_unique<CEmailAccount>());
        profile.accounts[1]->boxes.push_back(nullptr);
        profile.accounts[1]->boxes.push_back(std::make_unique<CEmailBox>());
        profile.accounts[1]->boxes[1]->subfolders = {fragment};
        CEmailItem email;
        email.account = fragment;
        const std::string text = Written(&profile, {&email});
        const auto elements = [&](const std::string& name, std::size_t from) {
            const std::size_t start = text.find("<" + name + ">", from) + name.size() + 2;
            return Without(Without(text.substr(start, text.find("</" + name + ">", start) - start), "\n"), "\t");
        };
        EXPECT_EQ(elements("subfolder", 0), each[1]);
        EXPECT_EQ(elements("account", text.find("<emailentries>")), each[1]);
        Driver file(path_);
        EXPECT_EQ(file->ReadFileHeader(), 1);
        EXPECT_EQ(file.GetProfile()->accounts[0]->boxes[0]->subfolders, Texts{orvale::FromUtf8(each[2])});
        const CEmailItem* const read = file.Next();
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(orvale::ToUtf8(read->account), each[2]);
    }
}

TEST_F(MLXMLFile, ReadsWhatAPersonMayHaveWritten) {
    const orvale::StoppedClock clock(1280124015);
    Driver file = Reading(Document(
        "<account><box><subfolder/><type>1</type><Type>2</Type><subfolder><a>b</a></subfolder></box><address>no"
        "</address><Address>a</Address><password> p </password></account><Device/><device/><capacity>5</capacity>",
        "<!--c--><email/><EMAIL><account>text<a>1</a><!--c--></account><Status>9</Status><sent>x</sent><received> "
        "20100726T060000Z</received><accessory>\n<file>f</file><x>y<z>z</z></x></accessory><account><b>&lt;</b>"
        "</account><accessory><![CDATA[g]]></accessory><to>1</to><to>2</to></EMAIL>"));
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CEmailProfile& profile = *file.GetProfile();
    EXPECT_EQ(profile.capacity, 5);
    ASSERT_TRUE(profile.devices.size() == 1 && profile.accounts.size() == 1 && profile.accounts[0]->boxes.size() == 1);
    EXPECT_EQ(profile.accounts[0]->Address + profile.accounts[0]->password, u"a p ");
    EXPECT_EQ(profile.accounts[0]->boxes[0]->type, 1);
    EXPECT_EQ(profile.accounts[0]->boxes[0]->subfolders, (Texts{u"", u"<a>b</a>"}));

    const CEmailItem* const email = file.Next();
    ASSERT_NE(email, nullptr);
    EXPECT_TRUE(email->received.IsNone() && email->sent.IsNone() && email->accessory.empty());
    ASSERT_EQ(file.Next(), email);
    EXPECT_EQ(email->account, u"<a>1</a><b><</b>") << "a second account adds to the first";
    EXPECT_EQ(email->accessory, (Texts{u"f", u"yz", u"g"}));
    EXPECT_EQ(email->to, u"2");
    EXPECT_EQ((Numbers{email->status, email->sent.Second()}), (Numbers{0, 15})) << "the present moment";
}
