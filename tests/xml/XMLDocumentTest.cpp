#include "xml/XMLDocument.h"

#include <gtest/gtest.h>
#include <libxml/globals.h>
#include <libxml/parser.h>

#include <filesystem>

#include "platform/Text.h"
#include "support/Bytes.h"
#include "support/Cases.h"
#include "support/Child.h"
#include "support/ScratchFolder.h"

using orvale::FromUtf8;
using orvale::ToUtf8;
using orvale::test::Cases;
using orvale::test::InChild;
using orvale::test::ScratchFolder;
using orvale::test::Units;
using namespace std::string_literals;

namespace {

// What a walk meets, as one text: a(b{text} #comment{text}), a lone text being its parent's.
std::string Dump(const CXMLDocument& document, NodeHandle node) {
    std::string dump = ToUtf8(document.GetName(node));
    NodeHandle child = document.FirstChild(node);
    const bool isLone = document.HasName(child, u"#text") && !document.NextSibling(child);
    if (!node || !child || isLone) return dump + "{" + ToUtf8(document.GetText(node)) + "}";
    dump += "(";
    for (; child; child = document.NextSibling(child))
        dump += Dump(document, child) + " ";
    dump.back() = ')';
    return dump;
}

constexpr const char* kRefused = "refused";

class XMLDocument : public testing::Test {
 protected:
    std::string Load(std::string_view bytes) {
        folder_.Put("file.xml", bytes);
        CXMLDocument document;
        EXPECT_EQ(document.Create(path_), 1);
        return document.Load() == 1 ? Dump(document, document.GetRoot()) : kRefused;
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

}  // namespace

TEST_F(XMLDocument, LoadsWhatIsWellFormed) {
    folder_.Put("secret", "secret");
    folder_.Put("secret.dtd", "<!ENTITY e 'secret'><!ATTLIST a id CDATA 'secret'>");
    for (auto& each : Cases("documents.cases")) {
        if (const std::size_t at = each[1].find("FILE"); at != std::string::npos)
            each[1].replace(at, 4, folder_ / "secret");
        EXPECT_EQ(Load(each[1]), each[2]) << each[0];
        if (each.size() < 4) continue;
        CXMLDocument document;
        EXPECT_EQ(document.LoadXML(FromUtf8(each[1])), 1);
        EXPECT_EQ(ToUtf8(document.GetText(document.GetRoot())), each[3]) << each[0];
    }
    const std::string declared = "<?xml version='1.0' encoding='UTF-16'?><a/>";
    EXPECT_EQ(Load("\xFF\xFE" + Units(FromUtf8(declared))), "a{}");
    CXMLDocument document;
    document.Create(path_);
    folder_.Put("file.xml", "<!DOCTYPE a [<!ATTLIST a id CDATA 'own'>]><a x='&lt; &#x41;&#10;'/>");
    ASSERT_EQ(document.Load(), 1);
    EXPECT_EQ(document.GetAttribute(u"id", document.GetRoot()), u"own");
    EXPECT_EQ(document.GetAttribute(u"x", document.GetRoot()), u"< A\n");
    folder_.Put("file.xml", "<!DOCTYPE a SYSTEM '" + (folder_ / "secret.dtd").string() + "'><a/>");
    ASSERT_EQ(document.Load(), 1);
    EXPECT_EQ(document.GetAttribute(u"id", document.GetRoot()), u"");
}

TEST_F(XMLDocument, WhatIsCutOffAnywhereIsRefused) {
    const std::string whole =
        "<?xml version='1.0' encoding='utf-8'?>\n<a b='c'>\n\t<!--d--><e>f&amp;\xC3\xA9</e><![CDATA[g]]><h/>\n</a>";
    EXPECT_NE(Load(whole), kRefused);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(Load(whole.substr(0, length)), kRefused) << length;
}

TEST_F(XMLDocument, WhatIsTooLargeIsRefusedInPeace) {
    for (const auto& each : Cases("large-documents.cases")) {
        EXPECT_TRUE(Load(each[1]) == each[2]) << each[0];
        CXMLDocument parsed;
        EXPECT_EQ(parsed.LoadXML(FromUtf8(each[1])), 1) << each[0];
        EXPECT_EQ(static_cast<bool>(parsed.GetRoot()), each[2] != kRefused) << each[0];
    }
    CXMLDocument document;  // one that is built may be as deep as its builder likes
    document.Create(path_);
    NodeHandle node = document.CreateRoot(u"a");
    for (int i = 0; i < 100000; ++i)
        node = document.CreateNode(u"a", i == 99999 ? CXMLDocument::Text(u"x") : std::nullopt, node, true, -1);
    EXPECT_EQ(document.GetText(document.GetRoot()), u"x");
    EXPECT_EQ(document.Save(), 1);
}

TEST_F(XMLDocument, BuildsAndSavesExactlyTheseBytes) {
    CXMLDocument document;
    document.Create(path_);
    EXPECT_EQ(document.CreateHeader(), 1);
    EXPECT_EQ(document.CreateHeader(), 0) << "it opens the document";
    const NodeHandle root = document.CreateRoot(u"ro\x01ot");
    EXPECT_EQ(document.GetRoot(), root);
    EXPECT_EQ(document.SetAttribute(u"id", u"x", root), 1);
    EXPECT_EQ(document.SetAttribute(u"p:b", u"", root), 1);
    EXPECT_EQ(document.SetAttribute(u"id", u"<&\"\n\r\U0001F600", root), 1) << "in place of the first";
    const NodeHandle parent = document.CreateNode(u"p", {}, {}, true, 1);
    document.CreateNode(u"t", u"<&>\"'\r\n\t]]>\u00E9\u4E2D\uFFFD", parent, true, 2);
    document.CreateNode(u"c\xD83D\xDE00l", u"\x01\x1F\xD800z\xDFFF\xFFFE\xFFFF\U0001F600", parent, true, 2);
    document.CreateNode(u"e", u"", parent, true, -5);
    document.AddComment(u" \U0001F600-\r\n", parent);
    document.CreateNode(u"loose", u"x", parent, false, 0);
    document.CreateNode(u"", {}, parent, true, 1);
    EXPECT_EQ(document.Save(), 1);
    EXPECT_EQ(folder_.Get("file.xml"),
              "<?xml version='1.0' encoding='utf-8'?>\n"
              "<root id=\"&lt;&amp;&quot;&#10;&#13;\xF0\x9F\x98\x80\" p:b=\"\">\n"
              "\t<p>\n"
              "\t\t<t>&lt;&amp;&gt;\"'&#13;\n\t]]&gt;\xC3\xA9\xE4\xB8\xAD\xEF\xBF\xBD</t>\n"
              "\t\t<cl>z</cl><e/><!-- \xF0\x9F\x98\x80-\r\n-->\n"
              "\n"
              "\t</p></root>\n");
}

TEST_F(XMLDocument, NamesThatMakeNoElement) {
    CXMLDocument document;
    document.Create(path_);
    const NodeHandle root = document.CreateRoot(u"root");
    const std::u16string_view bad[] = {u"",   u"\x01", u"1a",     u"-a",      u"a b",       u"a<",
                                       u"a/", u"a&",   u"\u00D7", u"a\u037E", u"\U0001F600"};
    for (const std::u16string_view name : bad) {
        EXPECT_FALSE(document.CreateNode(name, u"text", root, true, -1)) << ToUtf8(name);
        EXPECT_EQ(document.SetAttribute(name, u"", root), 0) << ToUtf8(name);
    }
    EXPECT_FALSE(document.FirstChild(root)) << "nothing came of them";
    EXPECT_FALSE(document.CreateNode(u"", {}, root, true, 2));
    EXPECT_EQ(Dump(document, root), "root{\n\t\t}") << "but the indent goes in";
    EXPECT_FALSE(document.NextSibling(document.FirstChild(root)));
    EXPECT_FALSE(document.CreateNode({}, u"text", root, true, 2));
    EXPECT_FALSE(document.NextSibling(document.FirstChild(root))) << "unless the name is null";
    for (const std::u16string_view name : {u"C-1", u"a.b:c_", u"\u00E9\u4E2D\u0300", u"_"})
        EXPECT_EQ(document.GetName(document.CreateNode(name, {}, root, true, -1)), name) << ToUtf8(name);
}

TEST_F(XMLDocument, WhatNoFileCanHoldStaysAndIsNotSaved) {
    // A text, and whether a comment and an attribute can hold it.
    const std::tuple<std::u16string, bool, bool> cases[] = {
        {u"a-b -", false, true},
        {u"a--b", false, true},
        {u"a\x01", false, false},
        {u"\xDC00-\xD83D", false, false},
        {{u"a\0b", 3}, false, false},
        {u"\xFFFF", false, false},
        {u"\U0001F600 - \t\r\n", true, true},
    };
    for (const auto& [text, comment, attribute] : cases) {
        SCOPED_TRACE(ToUtf8(text));
        folder_.Put("file.xml", "old");
        CXMLDocument document;
        document.Create(path_);
        const NodeHandle root = document.CreateRoot(u"root");
        EXPECT_EQ(document.SetAttribute(u"id", text, root), 1);
        EXPECT_EQ(document.GetAttribute(u"id", root), text);
        EXPECT_EQ(document.Save(), attribute);
        EXPECT_EQ(folder_.Get("file.xml") == "old", !attribute);
        document.SetAttribute(u"id", u"good", root);
        EXPECT_EQ(document.GetText(document.AddComment(text, root)), text);
        EXPECT_EQ(document.Save(), comment);
        EXPECT_EQ(folder_.Get("file.xml") == "old", !attribute && !comment);
        document.LoadXML(u"<new/>");
        EXPECT_EQ(document.Save(), 1);
    }
}

TEST_F(XMLDocument, FindsByTheExactName) {
    CXMLDocument document;
    document.LoadXML(u"<a><b n='1'><c n='2'/></b><B n='3'/><b n='4'/><\u00E9 n='5'/>#text</a>");
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"b", u"1"}, {u"B", u"3"}, {u"c", u""}, {u"", u""}, {u"bb", u""}, {u"\u00E9", u"5"}, {u"\u00C9", u""}};
    for (const auto& [name, number] : cases)
        EXPECT_EQ(document.GetAttribute(u"n", document.FindChild(name, {})), number) << ToUtf8(name);
    const NodeHandle accented = document.FindChild(u"\u00E9", {});
    EXPECT_TRUE(document.HasNameNoCase(accented, u"\u00C9"));
    EXPECT_FALSE(document.HasNameNoCase(accented, u"\u00C9\u00C9") || document.HasName(accented, u"\u00C9"));
    EXPECT_TRUE(document.HasNameNoCase(document.FindChild(u"b", {}), u"B"));
    EXPECT_EQ(document.GetAttribute(u"N", accented), u"");
}

TEST_F(XMLDocument, LoadXmlTakesTheTextAsItIs) {
    CXMLDocument document;
    EXPECT_EQ(document.LoadXML(u"<?xml version='1.0' encoding='UTF-16'?><a>\u00E9\x01\U0001F600</a>"), 1);
    EXPECT_EQ(document.GetText(document.GetRoot()), u"\u00E9");
    for (const CXMLDocument::Text text : {CXMLDocument::Text(u"<a>"), CXMLDocument::Text(u""), CXMLDocument::Text()}) {
        EXPECT_EQ(document.LoadXML(text), 1);
        EXPECT_FALSE(document.GetRoot());
        EXPECT_FALSE(document.FirstChild({}));
    }
    EXPECT_EQ(document.CreateHeader(), 1) << "an empty document";
    EXPECT_TRUE(document.CreateRoot(u"b"));
    EXPECT_FALSE(document.CreateRoot(u"c")) << "it has a root";
    EXPECT_FALSE(document.GetRoot()) << "which is given up all the same";
}

TEST_F(XMLDocument, HandlesOutliveTheirTree) {
    folder_.Put("file.xml", "<a><b>1</b> <b>2</b></a>");
    CXMLDocument document;
    document.Create(path_);
    ASSERT_EQ(document.Load(), 1);
    const NodeHandle old = document.GetRoot();
    const NodeHandle oldComment = document.AddComment(u"--", old);
    folder_.Put("file.xml", "broken");
    EXPECT_EQ(document.Load(), 0);
    EXPECT_EQ(document.GetRoot(), old) << "what fails to load changes nothing";
    document.LoadXML(u"");
    document.CreateRoot(u"new");
    document.Create(path_);
    EXPECT_EQ(Dump(document, old), "a(b{1} b{2} #comment{--})");
    EXPECT_EQ(document.GetText(oldComment), u"--");
    EXPECT_TRUE(document.CreateNode(u"c", u"3", old, true, -1));
    EXPECT_EQ(document.GetText(old), u"123");

    document.CreateRoot(u"r");
    document.CreateNode(u"", {}, {}, true, 0);
    const NodeHandle first = document.FirstChild({});
    document.CreateNode(u"", {}, {}, true, 1);  // adjacent texts stay two
    EXPECT_EQ(document.GetText(first), u"\n");
    EXPECT_EQ(document.GetText(document.NextSibling(first)), u"\n\t");
}

TEST_F(XMLDocument, NothingGivenIsNoHarm) {
    CXMLDocument document;
    const NodeHandle none;
    EXPECT_EQ(document.Create({}) + document.CreateHeader() + document.Load() + document.Save(), 0);
    EXPECT_FALSE(document.CreateRoot(u"a") || document.CreateNode(u"a", u"x", none, true, 0));
    EXPECT_EQ(document.Create(u""), 1);
    EXPECT_EQ(document.Load() + document.Save(), 0) << "an empty path";
    EXPECT_EQ(document.Create(path_), 1);
    EXPECT_EQ(document.Load(), 0) << "no such file";
    EXPECT_FALSE(document.CreateRoot({}) || document.AddComment(u"x", none) || document.FirstChild(none));
    const NodeHandle root = document.CreateRoot(u"a", u"x");
    const NodeHandle text = document.FirstChild(root);
    EXPECT_FALSE(document.AddComment({}, root) || document.CreateNode(u"a", u"x", text, true, 0));
    EXPECT_FALSE(document.FirstChild(text) || document.NextSibling(root) || document.NextSibling(none));
    EXPECT_FALSE(document.FindChild({}, root) || document.HasName(none, u""));
    EXPECT_EQ(document.SetAttribute({}, u"", root) + document.SetAttribute(u"id", {}, root) +
                  document.SetAttribute(u"id", u"", none) + document.SetAttribute(u"id", u"", text),
              0);
    EXPECT_EQ(document.GetAttribute({}, root) + document.GetAttribute(u"id", none) + document.GetName(none) +
                  document.GetText(none) + document.GetAttribute(u"id", text),
              u"");
    EXPECT_EQ(Dump(document, root), "a{x}");
}

TEST_F(XMLDocument, WhatCannotBeSavedLeavesTheOldFile) {
    std::filesystem::create_directory(folder_ / "folder");
    const std::u16string paths[] = {u"/dev/full", folder_.Name("folder"), folder_.Name("missing/file.xml"),
                                    u"/proc/version", path_ + u"\xD800"};
    for (const std::u16string& path : paths) {
        CXMLDocument document;
        document.Create(path);
        document.CreateRoot(u"a", u"x");
        EXPECT_EQ(document.Save(), 0) << ToUtf8(path);
    }
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
    for (const auto& entry : std::filesystem::directory_iterator(folder_ / ""))
        EXPECT_EQ(entry.path().filename(), "folder");
}

// A host may use the library too: what it set for itself neither hears of our documents nor changes them.
TEST_F(XMLDocument, NeitherTheHostNorStandardErrorHearsOfIt) {
    const auto run = [&] {
        int heard = 0;
        const auto hear = [](void* count, auto) { ++*static_cast<int*>(count); };
        xmlSetStructuredErrorFunc(&heard, hear);
        xmlKeepBlanksDefault(0);
        xmlLoadExtDtdDefaultValue = 1;
        xmlDoValidityCheckingDefaultValue = 1;
        const xmlStructuredErrorFunc before = xmlStructuredError;
        for (const std::string_view bytes :
             {"<a>"s, "<p:a/>"s, "<?xml version='1.0' encoding='Shift_JIS'?><a>\x81\xFF\xFF</a>"s, "\xFF\xFE<\0a"s,
              "<?xml version='1.0' encoding='no-such'?><a/>"s, "<!DOCTYPE a SYSTEM 'no-such.dtd'><a>&b;</a>"s})
            Load(bytes);
        EXPECT_EQ(Load("<a> </a>"), "a{ }");
        EXPECT_EQ(heard, 0);
        EXPECT_EQ(xmlStructuredError, before);
        EXPECT_EQ(xmlStructuredErrorContext, &heard);
        xmlSetStructuredErrorFunc(nullptr, nullptr);
        Load("<a>\x01");
    };
    const orvale::test::ChildResult result = InChild(run);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
}
