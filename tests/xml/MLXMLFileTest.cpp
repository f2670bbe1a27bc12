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

    const orvale::StoppedClock clock(1280124015);
    EXPECT_EQ(JsonOf(Sample()), Data("email.json"));
    EXPECT_EQ(JsonOf(Data("email-odd.xml")), Data("email-odd.json"));
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
