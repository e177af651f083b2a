#include <gtest/gtest.h>

#include <filesystem>

#include "SceneryLayoutFixture.h"
#include "core/CStringPack.h"
#include "nodes/CNodeBewegTeil.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/CNodeModell.h"

using namespace kavrin;
using test::FrameText;
using test::Written;

namespace {

class Scenery : public test::SceneryLayoutFixture {};

std::string Goods(const std::string& attributes, int goods, const std::string& extra = "") {
    std::string text = "<Goods" + attributes + ">";
    for (int i = 0; i < goods; ++i)
        text += "<Good gsbname=\"\\Kiste.gsb\">" + FrameText("1", "2") + "</Good>";
    return text + extra + "</Goods>";
}

TEST_F(Scenery, GoodsCountIsTheNumberOfGoodsWritten) {
    struct Case {
        std::string attributes;
        int goods;
        std::string extra;
        std::string writtenStart;
    };
    const Case cases[] = {
        {" count=\"5\"", 3, "", "<Goods count=\"3\">"},
        {" count=\"0\"", 2, "", "<Goods count=\"2\">"},
        {" count=\"4\"", 0, "", "<Goods count=\"0\"></Goods>"},
        // Only "Good" children count; other kept children do not.
        {" count=\"2\"", 1, "<Fremd a=\"1\"/>", "<Goods count=\"1\">"},
        // Unknown attributes keep their place around the count.
        {" vorher=\"x\" count=\"9\" nachher=\"\"", 1, "", "<Goods vorher=\"x\" count=\"1\" nachher=\"\">"},
        // A list read without a count is written without one.
        {"", 2, "", "<Goods>"},
    };
    for (const Case& c : cases) {
        std::string layout = test::LayoutText(Goods(c.attributes, c.goods, c.extra));
        // The layout text has a goods list of its own; the one under test stands first.
        ASSERT_TRUE(Load(layout)) << c.attributes;
        std::string saved = Save();
        EXPECT_NE(saved.find("<Version EEP=\"15\"/>" + c.writtenStart), std::string::npos)
            << c.attributes << "\n"
            << saved;
        CNodeGoods* goods = Nodes<CNodeGoods>().front();
        EXPECT_EQ(goods->CountGoods(), c.goods);
    }
}

TEST_F(Scenery, TerrainAndGoodsReportTheirVersionLabels) {
    std::string withGoods = test::LayoutText();
    std::string withoutGoods = withGoods;
    withoutGoods.erase(withoutGoods.find("<Goods count=\"0\"/>"), std::string("<Goods count=\"0\"/>").size());
    ASSERT_TRUE(Load(withoutGoods));
    EXPECT_EQ(anlage.Version().Label(), "2.4x");
    ASSERT_TRUE(Load(withGoods));
    EXPECT_EQ(anlage.Version().Label(), "3");
}

TEST_F(Scenery, TerrainKeepsItsFileNamesAndWritesDichteInLayoutFormat) {
    const std::string files = "HoehenFile=\"\\Mein Tal H.bmp\" FarbenFile=\"\\Täler &amp; Höhen F.bmp\" "
                              "TexturenFile=\"\" TextureBinFile=\"\\x\\B.bmp\"";
    const std::pair<std::string, std::string> dichten[] = {
        {"0.0015", "1.5E-03"}, {"0.05", "0.05"}, {"0.034", "0.034"}, {"2", "2"}};
    for (const auto& [read, written] : dichten) {
        std::string terrain =
            "<Schandlaft HorizonFile=\"Horizons\\h.3dm\" extX=\"150\" extY=\"90\" posX=\"-50000\" "
            "posY=\"-30000\" dichte=\"" +
            read + "\" " + files + " Routes=\"0\"><Atlas n=\"1\"/></Schandlaft>";
        ASSERT_TRUE(Load(test::LayoutText("", terrain))) << read;
        std::string expected =
            "<Schandlaft HorizonFile=\"Horizons\\h.3dm\" extX=\"150\" extY=\"90\" posX=\"-50000\" "
            "posY=\"-30000\" dichte=\"" +
            written + "\" " + files + " Routes=\"0\"><Atlas n=\"1\"/></Schandlaft>";
        EXPECT_NE(Save().find(expected), std::string::npos) << read;
        const CNodeLandschaft& land = Single<CNodeLandschaft>();
        EXPECT_EQ(land.HoehenFile(), "\\Mein Tal H.bmp");
        EXPECT_EQ(land.FarbenFile(), "\\Täler & Höhen F.bmp");
        EXPECT_EQ(land.TexturenFile(), "");
    }
}

TEST_F(Scenery, TerrainRectangleSpansTheGrid) {
    ASSERT_TRUE(Load(test::LayoutText(
        "", "<Schandlaft extX=\"150\" extY=\"90\" posX=\"-50000\" posY=\"-30000\" dichte=\"0.0015\"/>")));
    CRect rect = Single<CNodeLandschaft>().Rect();
    EXPECT_DOUBLE_EQ(rect.Left, -50000);
    EXPECT_DOUBLE_EQ(rect.Right, 50000);
    EXPECT_DOUBLE_EQ(rect.Bottom, -30000);
    EXPECT_DOUBLE_EQ(rect.Top, 30000);
    EXPECT_TRUE(rect.Contains(0, 0));
}

// The real layouts have all their buildings on the terrain: this holds only when the
// frames are grabbed from the right child and the rectangle is computed the right way round.
TEST_F(Scenery, SampleBuildingsStandOnTheirTerrain) {
    int buildings = 0;
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        ASSERT_TRUE(anlage.Load(entry.path().string())) << entry.path();
        CRect rect = Single<CNodeLandschaft>().Rect();
        EXPECT_GT(rect.Width(), 0);
        for (const CNodeImmobilie* building : Nodes<CNodeImmobilie>()) {
            ++buildings;
            ASSERT_TRUE(building->HasFrame());
            const CVector& pos = building->DreiBein().Pos();
            EXPECT_TRUE(rect.Contains(pos.X, pos.Y)) << entry.path() << " " << building->GsbName();
        }
    }
    EXPECT_GT(buildings, 100);
}

TEST_F(Scenery, BuildingWritesItsChildrenInTheOrderRead) {
    const std::string frame = FrameText("12.5", "-3", "0.5");
    struct Case {
        std::string read;
        std::string written;
    };
    const Case cases[] = {
        // Moving parts after the frame and another child in the file: written where they stood.
        {"<Immobile gsbname=\"\\Haus.gsb\" ImmoIdx=\"4\" Light=\"0\">" + frame +
             "<Modell/><BeweglichesTeil kollektorID=\"9\" teilid=\"0\"/>"
             "<BeweglichesTeil teilid=\"1\"><Achse/></BeweglichesTeil></Immobile>",
         "<Immobile gsbname=\"\\Haus.gsb\" ImmoIdx=\"4\" Light=\"0\">" + frame +
             "<Modell/><BeweglichesTeil kollektorID=\"9\" teilid=\"0\"/>"
             "<BeweglichesTeil teilid=\"1\"><Achse/></BeweglichesTeil></Immobile>"},
        // An unknown child before the frame, as simulator files have "GBSObject".
        {"<Immobile gsbname=\"\\Stw.gsb\"><BeweglichesTeil teilid=\"0\"/><GBSObject a=\"1\"/>" + frame +
             "</Immobile>",
         "<Immobile gsbname=\"\\Stw.gsb\"><BeweglichesTeil teilid=\"0\"/><GBSObject a=\"1\"/>" + frame +
             "</Immobile>"},
        // Without "kollektorID" it is written without one.
        {"<Immobile Light=\"0\" gsbname=\"\\Baum.gsb\" ImmoIdx=\"7\">" + frame +
             "<Modell x=\"1\"/></Immobile>",
         "<Immobile Light=\"0\" gsbname=\"\\Baum.gsb\" ImmoIdx=\"7\">" + frame +
             "<Modell x=\"1\"/></Immobile>"},
        // Without a frame it is written without one.
        {"<Immobile gsbname=\"\\Leer.gsb\" kollektorID=\"3\"><Modell/></Immobile>",
         "<Immobile gsbname=\"\\Leer.gsb\" kollektorID=\"3\"><Modell/></Immobile>"},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(LoadInner("<Gebaeudesammlung GebaudesammlungID=\"4\">" + c.read + "</Gebaeudesammlung>"));
        EXPECT_NE(Save().find(c.written), std::string::npos) << c.read;
    }
}

TEST_F(Scenery, BuildingKeepsItsValuesAndMovingParts) {
    ASSERT_TRUE(LoadInner("<Gebaeudesammlung GebaudesammlungID=\"1\"><Immobile gsbname=\"\\Signal.gsb\" "
                          "kollektorID=\"17\" ImmoIdx=\"-2\">" +
                          FrameText("5", "6") +
                          "<BeweglichesTeil kollektorID=\"18\"/><BeweglichesTeil kollektorID=\"19\"/>"
                          "</Immobile><Immobile gsbname=\"\\Signal.gsb\"/></Gebaeudesammlung>"));
    std::vector<CNodeImmobilie*> buildings = Nodes<CNodeImmobilie>();
    ASSERT_EQ(buildings.size(), 2u);
    const CNodeImmobilie& first = *buildings[0];
    EXPECT_EQ(first.GsbName(), "\\Signal.gsb");
    EXPECT_EQ(first.GsbNameId(), buildings[1]->GsbNameId()); // pooled once
    EXPECT_EQ(first.KollektorId(), 17);
    EXPECT_EQ(first.ImmoIdx(), -2);
    ASSERT_EQ(first.BewegTeile().Count(), 2);
    EXPECT_EQ(first.SubNodes().Count(), 0); // moving parts are not kept children
    EXPECT_EQ(dynamic_cast<CNodeBewegTeil&>(*first.BewegTeile().Item(1)).KollektorId(), 19);
    EXPECT_EQ(first.BewegTeile().Item(0)->Parent(), &first);
    EXPECT_DOUBLE_EQ(first.DreiBein().Pos().X, 5);
}

TEST_F(Scenery, MovingAPlacedObjectMovesTheWrittenFrame) {
    ASSERT_TRUE(LoadInner("<Gebaeudesammlung GebaudesammlungID=\"4\"><Immobile gsbname=\"a\">" +
                          FrameText("10", "20") +
                          "</Immobile></Gebaeudesammlung><Goods count=\"1\"><Good gsbname=\"b\">" +
                          FrameText("1", "2", "3") + "</Good></Goods>"));
    Single<CNodeImmobilie>().MovePos(5, -25);
    Nodes<CNodeGood>().front()->MovePos(0.5, 0);
    std::string saved = Save();
    EXPECT_NE(saved.find("<Immobile gsbname=\"a\">" + FrameText("15", "-5") + "</Immobile>"),
              std::string::npos);
    EXPECT_NE(saved.find("<Good gsbname=\"b\">" + FrameText("1.5", "2", "3") + "</Good>"), std::string::npos);
}

TEST_F(Scenery, GoodKeepsItsChildOrderAndPoolsItsModelName) {
    ASSERT_TRUE(LoadInner("<Goods count=\"2\"><Good gsbname=\"\\Ladegut\\Kiste.gsb\" x=\"1\"><Fremd/>" +
                          FrameText("7", "8") + "</Good><Good gsbname=\"\\Ladegut\\Kiste.gsb\"/></Goods>"));
    std::vector<CNodeGood*> goods = Nodes<CNodeGood>();
    ASSERT_EQ(goods.size(), 2u);
    EXPECT_EQ(goods[0]->GsbNameId(), goods[1]->GsbNameId());
    EXPECT_EQ(FileNames().GetString(goods[0]->GsbNameId()), "\\Ladegut\\Kiste.gsb");
    EXPECT_FALSE(goods[1]->HasFrame());
    EXPECT_NE(Save().find("<Goods count=\"2\"><Good gsbname=\"\\Ladegut\\Kiste.gsb\" x=\"1\"><Fremd/>" +
                          FrameText("7", "8") + "</Good><Good gsbname=\"\\Ladegut\\Kiste.gsb\"/></Goods>"),
              std::string::npos);
}

// A frame with more than its four vectors is kept whole; it still moves with the object.
TEST_F(Scenery, FrameWithExtraContentIsKeptWhole) {
    std::string frame = FrameText("1", "1");
    std::string rich = frame;
    rich.insert(std::string("<Dreibein").size(), " art=\"x\"");
    rich.insert(rich.size() - std::string("</Dreibein>").size(), "<Notiz>n</Notiz>");
    std::string moved = rich;
    moved.replace(moved.find("x=\"1\" y=\"1\""), 11, "x=\"3\" y=\"1\"");
    ASSERT_TRUE(LoadInner("<Goods count=\"1\"><Good gsbname=\"g\">" + rich + FrameText("9", "9") +
                          "</Good></Goods>"));
    std::string saved = Save();
    // The second frame is kept as an ordinary child, after the first.
    EXPECT_NE(saved.find("<Good gsbname=\"g\">" + rich + FrameText("9", "9") + "</Good>"), std::string::npos);
    Nodes<CNodeGood>().front()->MovePos(2, 0);
    EXPECT_NE(Save().find("<Good gsbname=\"g\">" + moved), std::string::npos);
}

TEST_F(Scenery, BuildingCollectionKeepsItsIdAttributeName) {
    ASSERT_TRUE(LoadInner("<Gebaeudesammlung GebaudesammlungID=\"4\" x=\"y\"><Immobile gsbname=\"h\"/>"
                          "<Fremd/></Gebaeudesammlung>"));
    std::string saved = Save();
    EXPECT_NE(saved.find("<Gebaeudesammlung GebaudesammlungID=\"4\" x=\"y\"><Immobile gsbname=\"h\"/><Fremd/>"
                         "</Gebaeudesammlung>"),
              std::string::npos);
    EXPECT_EQ(saved.find("GebaeudesammlungID"), std::string::npos);
    EXPECT_TRUE(anlage.FoundChapter().Found("Gebaeudesammlung"));
    EXPECT_EQ(Nodes<CNodeImmoSammlung>().front()->ID(), 4);
}

TEST_F(Scenery, TrackObjectsAreTheBuildingsOfCollectionsOneTwoThreeAndSix) {
    std::string collections;
    for (int id = 1; id <= 6; ++id)
        collections += "<Gebaeudesammlung GebaudesammlungID=\"" + std::to_string(id) +
                       "\"><Immobile gsbname=\"h\"/></Gebaeudesammlung>";
    ASSERT_TRUE(Load("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<sutrackp>" + collections +
                     "<Schandlaft extX=\"1\" extY=\"1\" posX=\"0\" posY=\"0\" dichte=\"1\"/></sutrackp>\n"));
    std::vector<CNodeImmobilie*> buildings = Nodes<CNodeImmobilie>();
    ASSERT_EQ(buildings.size(), 6u);
    const bool expected[] = {true, true, true, false, false, true};
    for (size_t i = 0; i < buildings.size(); ++i)
        EXPECT_EQ(buildings[i]->isGleisObjekt(), expected[i]) << "collection " << i + 1;
    CNodeImmobilie loose;
    EXPECT_FALSE(loose.isGleisObjekt());
}

// The repair of a wrong collection id must also write the id for a collection read without one.
TEST_F(Scenery, RepairedCollectionWithoutIdGetsOneWritten) {
    ASSERT_TRUE(Load("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<sutrackp>"
                     "<Gebaeudesammlung GebaudesammlungID=\"1\"/><Gebaeudesammlung GebaudesammlungID=\"2\"/>"
                     "<Gebaeudesammlung GebaudesammlungID=\"3\"/><Gebaeudesammlung leer=\"\"/>"
                     "<Schandlaft extX=\"1\" extY=\"1\" posX=\"0\" posY=\"0\" dichte=\"1\"/></sutrackp>\n"));
    EXPECT_EQ(Nodes<CNodeImmoSammlung>().back()->ID(), 6);
    EXPECT_NE(Save().find("<Gebaeudesammlung leer=\"\" GebaudesammlungID=\"6\"/>"), std::string::npos);
}

TEST_F(Scenery, NonNumericIdsFailTheLoadWithTheProcedureNamed) {
    const std::pair<std::string, std::string> cases[] = {
        {"<Gebaeudesammlung GebaudesammlungID=\"eins\"/>", "CNodeImmoSammlung.INode_ParseAttributes"},
        {"<Gebaeudesammlung GebaudesammlungID=\"4\"><Immobile kollektorID=\"x1\"/></Gebaeudesammlung>",
         "CNodeImmobilie.INode_ParseAttributes"},
        {"<Gebaeudesammlung GebaudesammlungID=\"4\"><Immobile ImmoIdx=\"\"/></Gebaeudesammlung>",
         "CNodeImmobilie.INode_ParseAttributes"},
        {"<Gebaeudesammlung GebaudesammlungID=\"4\"><Immobile><BeweglichesTeil kollektorID=\"?\"/></Immobile>"
         "</Gebaeudesammlung>",
         "CNodeBewegTeil.INode_ParseAttributes"},
        {"<Goods count=\"viele\"/>", "CNodeGoods.INode_ParseAttributes"},
    };
    for (const auto& [inner, procedure] : cases) {
        scope.ui.errors.clear();
        EXPECT_FALSE(LoadInner(inner)) << inner;
        EXPECT_EQ(anlage.RootNode(), nullptr);
        ASSERT_EQ(scope.ui.errors.size(), 1u) << inner;
        EXPECT_NE(scope.ui.errors[0].find("Prozedur: " + procedure), std::string::npos) << scope.ui.errors[0];
        EXPECT_NE(scope.ui.errors[0].find("Fehler 13"), std::string::npos) << scope.ui.errors[0];
    }
    std::string terrain = "<Schandlaft extX=\"1O\" extY=\"1\" posX=\"0\" posY=\"0\" dichte=\"1\"/>";
    scope.ui.errors.clear();
    EXPECT_FALSE(Load(test::LayoutText("", terrain)));
    ASSERT_FALSE(scope.ui.errors.empty());
    EXPECT_NE(scope.ui.errors[0].find("Prozedur: CNodeLandschaft.INode_ParseAttributes"), std::string::npos);
}

TEST_F(Scenery, ModellIsCarriedAsRead) {
    const std::string modell =
        "<Modell b=\"2\" a=\"\"><Achse name=\"Tor\" Stellung=\"0.50\"/><Achse/></Modell>";
    ASSERT_TRUE(LoadInner("<Gebaeudesammlung GebaudesammlungID=\"5\"><Immobile>" + modell +
                          "</Immobile></Gebaeudesammlung>"));
    EXPECT_EQ(Nodes<CNodeModell>().size(), 1u);
    EXPECT_NE(Save().find(modell), std::string::npos);
}

// Copies own their frames: moving a copy leaves the original where it was.
TEST_F(Scenery, CopiesTakeFramesByValueAndMovingPartsWithThem) {
    const std::string building =
        "<Immobile gsbname=\"\\Haus.gsb\" kollektorID=\"3\" ImmoIdx=\"8\" Light=\"1\">"
        "<BeweglichesTeil kollektorID=\"4\" teilid=\"0\"/>" +
        FrameText("10", "20") + "<Modell/></Immobile>";
    ASSERT_TRUE(LoadInner("<Gebaeudesammlung GebaudesammlungID=\"2\">" + building + "</Gebaeudesammlung>"));
    CNodeImmoSammlung& collection = *Nodes<CNodeImmoSammlung>().front();
    CNodeImmobilie& original = Single<CNodeImmobilie>();

    std::unique_ptr<INode> copy = original.Clone();
    auto& copied = dynamic_cast<CNodeImmobilie&>(*copy);
    EXPECT_EQ(Written(copied), building);
    ASSERT_EQ(copied.BewegTeile().Count(), 1);
    EXPECT_NE(copied.BewegTeile().Item(0), original.BewegTeile().Item(0));
    EXPECT_EQ(copied.BewegTeile().Item(0)->Parent(), &copied);
    copied.MovePos(1, 1);
    EXPECT_DOUBLE_EQ(original.DreiBein().Pos().X, 10);
    EXPECT_EQ(Written(original), building);

    std::unique_ptr<INode> collectionCopy = collection.Clone();
    auto& copiedCollection = dynamic_cast<CNodeImmoSammlung&>(*collectionCopy);
    EXPECT_EQ(copiedCollection.ID(), 2);
    EXPECT_EQ(Written(copiedCollection), Written(collection));
    dynamic_cast<CNodeImmobilie&>(*copiedCollection.SubNodes().Item(0)).MovePos(-10, 0);
    EXPECT_DOUBLE_EQ(original.DreiBein().Pos().X, 10);

    CNodeBewegTeil part;
    part.Copy(*original.BewegTeile().Item(0));
    EXPECT_EQ(part.KollektorId(), 4);
    EXPECT_EQ(Written(part), "<BeweglichesTeil kollektorID=\"4\" teilid=\"0\"/>");
}

} // namespace
