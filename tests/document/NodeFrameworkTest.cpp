#include <gtest/gtest.h>
#include <pugixml.hpp>

#include "TestSupport.h"
#include "core/CStringPack.h"
#include "document/CNodeFactory.h"
#include "document/CNodeUnknown.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "document/NodeTree.h"

using namespace kavrin;

namespace {

// Parses an XML fragment into a root node the way a layout load does, and writes it back.
struct Fragment {
    explicit Fragment(const std::string& xml) {
        document.load_string(xml.c_str(), (pugi::parse_default & ~pugi::parse_wconv_attribute) |
                                              pugi::parse_comments | pugi::parse_pi);
        pugi::xml_node element = document.document_element();
        root.SetName(element.name());
        ok = root.ParseAttributes(element) && root.ParseSubnodes(element) && root.CheckNode();
    }
    std::string Written() {
        CXmlWriter writer;
        WriteNode(writer, root);
        return writer.Result();
    }
    pugi::xml_document document;
    CNodeRoot root;
    bool ok = false;
};

// Names are matched exactly: a near miss of a known element is kept as an unknown one.
TEST(NodeFactory, NearMissesOfKnownNamesStayUnknown) {
    for (const char* element : {"Landschaft", "vektor", "Kamerasammlung", "Achse", "GLEISSYSTEM", "Kontakt "})
        EXPECT_STREQ(CNodeFactory::Create(element, "sutrackp")->ClassName(), "CNodeUnknown") << element;
}

TEST(NodeFactory, GleisIsATrackOnlyInsideATrackSystem) {
    EXPECT_STREQ(CNodeFactory::Create("Gleis", "Gleissystem")->ClassName(), "CNodeGleis");
    EXPECT_STREQ(CNodeFactory::Create("Gleis", "sutrackp")->ClassName(), "CNodeUnknown");
    EXPECT_STREQ(CNodeFactory::Create("Gleis", "Kollektor")->ClassName(), "CNodeUnknown");
}

TEST(ChildWalk, UnknownElementsSurviveWithAttributesTextAndOrder) {
    test::RecordingScope scope;
    const std::string xml =
        "<r a=\"1\" b=\"zwei\"><Gleis GleisID=\"4\"><X/></Gleis><Unbekannt z=\"&lt;&gt;&amp;&quot;\">"
        "Text &amp; mehr</Unbekannt><Leer q=\"\"/><Tief><Tiefer><Am_Tiefsten k=\"v\"/></Tiefer></Tief>"
        "<Multi t=\"Zeile 1\nZeile 2\"/></r>";
    Fragment fragment(xml);
    ASSERT_TRUE(fragment.ok);
    EXPECT_EQ(fragment.Written(), xml);
    EXPECT_TRUE(scope.ui.parseLog.Hints().empty());
}

TEST(ChildWalk, ConsumesTheDomAsItGoes) {
    Fragment fragment("<r><a/><b><c/></b></r>");
    ASSERT_TRUE(fragment.ok);
    EXPECT_FALSE(fragment.document.document_element().first_child());
    EXPECT_EQ(fragment.root.SubNodes().Count(), 2);
}

TEST(ChildWalk, ParentsAndNamesAreSet) {
    Fragment fragment("<r><a><b/></a></r>");
    INode* a = fragment.root.SubNodes().Item(0);
    INode* b = a->SubNodes().Item(0);
    EXPECT_EQ(a->Parent(), &fragment.root);
    EXPECT_EQ(b->Parent(), a);
    EXPECT_EQ(b->Name(), "b");
}

TEST(ChildWalk, CommentOrCdataStopsTheWalkWithAHint) {
    for (const char* xml : {"<r><a/><!-- Notiz --><b/></r>", "<r><a><![CDATA[x<y]]></a></r>"}) {
        test::RecordingScope scope;
        Fragment fragment(xml);
        EXPECT_FALSE(fragment.ok) << xml;
        ASSERT_EQ(scope.ui.parseLog.Hints().size(), 1u) << xml;
        EXPECT_EQ(
            scope.ui.parseLog.Hints()[0].rfind("Unerwarteter Eintrag in .anl3 Datei!\r\nNode-Typ:  ", 0), 0u);
    }
    test::RecordingScope scope;
    Fragment fragment("<r><a/><!-- Notiz --><b/></r>");
    EXPECT_NE(scope.ui.parseLog.Hints()[0].find("Node-Typ:  comment\r\nNode-Text:  Notiz "),
              std::string::npos);
    EXPECT_EQ(fragment.root.SubNodes().Count(), 1); // b was never read
}

TEST(ChildWalk, CancelStopsBetweenElements) {
    test::RecordingScope scope;
    scope.ui.cancelAfterRounds = 3;
    Fragment fragment("<r><a/><b/><c/><d/><e/></r>");
    EXPECT_FALSE(fragment.ok);
    EXPECT_EQ(fragment.root.SubNodes().Count(), 2);
    EXPECT_TRUE(scope.ui.parseLog.Cancelled());
}

TEST(ChildWalk, NestingBeyondTheLimitFailsWithoutOverflowingTheStack) {
    test::RecordingScope scope;
    std::string xml;
    const int depth = 100000;
    for (int i = 0; i < depth; ++i)
        xml += "<e>";
    for (int i = 0; i < depth; ++i)
        xml += "</e>";
    Fragment fragment(xml);
    EXPECT_FALSE(fragment.ok);
    ASSERT_FALSE(scope.ui.parseLog.Hints().empty());
    EXPECT_NE(scope.ui.parseLog.Hints()[0].find("verschachtelt"), std::string::npos);
}

TEST(ChildWalk, NoAttributeStoreWithoutAttributesAndNoTextWithoutText) {
    Fragment fragment("<r><a/><b></b></r>");
    EXPECT_TRUE(fragment.root.SubNodes().Item(0)->Attributes().Empty());
    EXPECT_EQ(fragment.Written(), "<r><a/><b/></r>");
}

// A class that keeps one attribute in a typed field.
class OwningNode : public CNodeUnknown {
public:
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override {
        if (name != "Laenge")
            return value;
        laenge = TextToNumber(value);
        return kOwnedValue;
    }
    Variant XmlAttr(std::string_view name) const override {
        return name == "Laenge" ? Variant{laenge} : Variant{};
    }
    double laenge = 0;
};

TEST(NodeBase, OwnedAttributeKeepsItsPosition) {
    pugi::xml_document document;
    document.load_string("<Gleis a=\"1\" Laenge=\"0.0015\" b=\"2\"/>");
    OwningNode node;
    node.SetName("Gleis");
    ASSERT_TRUE(node.ParseAttributes(document.document_element()));
    node.laenge = 2.5;
    CXmlWriter writer;
    WriteNode(writer, node);
    EXPECT_EQ(writer.Result(), "<Gleis a=\"1\" Laenge=\"2.5\" b=\"2\"/>");
    EXPECT_EQ(AttributeText(node, "Laenge"), "2.5");
}

TEST(NodeBase, CloneCopiesKeptContentDeeply) {
    Fragment fragment("<r><a k=\"v\">t<b/></a></r>");
    auto copy = CloneNode(*fragment.root.SubNodes().Item(0));
    fragment.root.Clear();
    CXmlWriter writer;
    WriteNode(writer, *copy);
    EXPECT_EQ(writer.Result(), "<a k=\"v\">t<b/></a>");
}

TEST(XmlWriter, EscapingAndEmptyElements) {
    CXmlWriter writer;
    writer.StartElement("A");
    writer.Attribute("t", "a<b>&\"c'\nd");
    writer.StartElement("B");
    writer.EndElement();
    writer.Text("x<y>&\"z");
    writer.EndElement();
    EXPECT_EQ(writer.Result(), "<A t=\"a&lt;b&gt;&amp;&quot;c'\nd\"><B/>x&lt;y&gt;&amp;\"z</A>");
    EXPECT_EQ(writer.OpenElements(), 0);
}

} // namespace
