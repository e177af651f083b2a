#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "../document/LayoutText.h"
#include "TestSupport.h"
#include "document/CAnlage.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"

using namespace kavrin;

namespace {

double Distance(const CVector& a, const CVector& b) {
    return std::sqrt((a.X - b.X) * (a.X - b.X) + (a.Y - b.Y) * (a.Y - b.Y) + (a.Z - b.Z) * (a.Z - b.Z));
}

std::string Vektor(const char* name, double x, double y, double z) {
    return "<Vektor x=\"" + NumberToText(x) + "\" y=\"" + NumberToText(y) + "\" z=\"" + NumberToText(z) +
           "\">" + name + "</Vektor>";
}

// A classic straight or curved piece starting at (x, 0, 0) heading east.
std::string Track(int id, double x, double k, double length, const std::string& extra = "",
                  const std::string& attributes = "") {
    return "<Gleis GleisID=\"" + std::to_string(id) + "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\"" +
           attributes + "><Dreibein>" + Vektor("Pos", x, 0, 0) + Vektor("Dir", 1, 0, 0) +
           Vektor("Nor", 0, 1, 0) + Vektor("Bin", 0, 0, 1) +
           "</Dreibein><Anfangsfuehrungsverdrehung Wert=\"0\"/><Charakteristik Kruemmung=\"" +
           NumberToText(k) + "\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" Laenge=\"" + NumberToText(length) +
           "\"/>" + extra + "</Gleis>";
}

std::string System(const std::string& content) {
    return "<Gleissystem GleissystemID=\"1\" TrackSystemNumber=\"1\"><Dreibein>" + Vektor("Pos", 0, 0, 0) +
           Vektor("Dir", 1, 0, 0) + Vektor("Nor", 0, 1, 0) + Vektor("Bin", 0, 0, 1) + "</Dreibein>" +
           content + "</Gleissystem>";
}

std::string Connection(int id1, const char* end1, int id2, const char* end2, const std::string& extra = "") {
    return "<Gleisverbindung GleisID1=\"" + std::to_string(id1) + "\" Anschluss1=\"" + end1 +
           "\" GleisID2=\"" + std::to_string(id2) + "\" Anschluss2=\"" + end2 + "\"" + extra + "/>";
}

class TrackNetwork : public ::testing::Test {
protected:
    bool Load(const std::string& inner) {
        test::WriteFile(path, test::LayoutText(inner));
        return anlage.Load(path);
    }
    std::string Saved() {
        EXPECT_TRUE(anlage.Save(dir.File("out.anl3")));
        return test::ReadFile(dir.File("out.anl3"));
    }
    CNodeGleis* Gleis(int id) const { return FindGleis(anlage, 1, id); }

    test::RecordingScope scope;
    test::TempDir dir;
    std::string path = dir.File("Anlage.anl3");
    CAnlage anlage;
};

TEST_F(TrackNetwork, ConnectionRecordsAreAppliedToBothTracksAndWrittenAsRead) {
    // The switch (id 7) meets track 9's start with its branch; track 3 hangs at the switch's start.
    std::string records = Connection(9, "Anfang", 7, "EndeAbzweig") + Connection(7, "Anfang", 3, "Ende");
    std::string tracks = Track(9, 0, 0, 100) + Track(7, 100, 0, 100) + Track(3, 200, 0, 100);
    ASSERT_TRUE(Load(System(tracks + records)));
    EXPECT_EQ(Gleis(7)->Verbindung(kEndeAbzweig), 9);
    EXPECT_EQ(Gleis(7)->Anschluss(kEndeAbzweig), kAnfang);
    EXPECT_EQ(Gleis(9)->Verbindung(kAnfang), 7);
    EXPECT_EQ(Gleis(9)->Anschluss(kAnfang), kEndeAbzweig);
    EXPECT_EQ(Gleis(3)->Verbindung(kEnde), 7);
    // Direction and order as the file has them, after the tracks.
    EXPECT_NE(Saved().find(records + "</Gleissystem>"), std::string::npos);
}

TEST_F(TrackNetwork, OneEndMayCarrySeveralRecordsAndEachIsKept) {
    // As version-17 files have them: the branch end of 489 in two records with different partners.
    std::string records = Connection(489, "EndeAbzweig", 496, "Ende") +
                          Connection(496, "EndeAbzweig", 489, "EndeAbzweig") +
                          Connection(489, "Ende", 500, "Anfang", " Flags=\"1\"");
    ASSERT_TRUE(
        Load(System(Track(489, 0, 0, 100) + Track(496, 100, 0, 100) + Track(500, 200, 0, 100) + records)));
    EXPECT_TRUE(scope.ui.parseLog.Hints().empty());
    EXPECT_FALSE(anlage.Changed());
    CNodeGleisSys* system = FindGleisSys(anlage, 1);
    EXPECT_EQ(system->Verbindungen().size(), 3u);
    // The track end names its first record.
    EXPECT_EQ(Gleis(489)->Verbindung(kEndeAbzweig), 496);
    EXPECT_EQ(Gleis(489)->Anschluss(kEndeAbzweig), kEnde);
    EXPECT_NE(Saved().find(records), std::string::npos);

    // Cutting 496 loose takes every record it has with the others, and only those.
    auto removed = system->CutConnections([](const CNodeGleis& track) { return track.ID() == 496; });
    EXPECT_EQ(removed.records.size(), 2u);
    EXPECT_EQ(Gleis(489)->Verbindung(kEndeAbzweig), 0);
    EXPECT_EQ(Gleis(489)->Verbindung(kEnde), 500);
    std::string cut = Saved();
    EXPECT_EQ(cut.find(Connection(489, "EndeAbzweig", 496, "Ende")), std::string::npos);
    EXPECT_EQ(cut.find(Connection(496, "EndeAbzweig", 489, "EndeAbzweig")), std::string::npos);
    EXPECT_NE(cut.find(Connection(489, "Ende", 500, "Anfang", " Flags=\"1\"")), std::string::npos);
    // Put back, the file is as before.
    system->RestoreConnections(removed);
    EXPECT_NE(Saved().find(records), std::string::npos);
    EXPECT_EQ(Gleis(489)->Verbindung(kEndeAbzweig), 496);
}

TEST_F(TrackNetwork, BadConnectionsAreDroppedWithAHintAndTheRestLoads) {
    struct Case {
        std::string connection;
        std::string hint;
    };
    const Case cases[] = {
        {Connection(1, "Anfang", 2, "Mitte"),
         "Unbekannter Anschluss-Eintrag 'Mitte' im Gleisverbindungs-Node"},
        {"<Gleisverbindung GleisID1=\"1\" Anschluss1=\"Ende\" GleisID2=\"2\"/>",
         "Unvollständige Anschlussdaten in Gleisverbindung!"},
        {"<Gleisverbindung GleisId1=\"1\" Anschluss1=\"Ende\" GleisID2=\"2\" Anschluss2=\"Anfang\"/>",
         "Unvollständige Anschlussdaten in Gleisverbindung!"},
        {"<Gleisverbindung GleisID1=\"eins\" Anschluss1=\"Ende\" GleisID2=\"2\" Anschluss2=\"Anfang\"/>",
         "Gleisverbindung mit unlesbarer Gleis-ID 'eins'"},
        {Connection(1, "Ende", 99, "Anfang"), "eines der beiden Gleise gibt es nicht"},
    };
    std::string good = Connection(2, "Ende", 3, "Anfang");
    for (const Case& c : cases) {
        scope.ui.parseLog.Open("");
        ASSERT_TRUE(Load(System(Track(1, 0, 0, 100) + Track(2, 100, 0, 100) + Track(3, 200, 0, 100) +
                                c.connection + good)))
            << c.connection;
        ASSERT_FALSE(scope.ui.parseLog.Hints().empty()) << c.connection;
        EXPECT_NE(scope.ui.parseLog.Hints()[0].find(c.hint), std::string::npos)
            << scope.ui.parseLog.Hints()[0];
        EXPECT_TRUE(anlage.Changed()) << c.connection; // the dropped record is a repair
        EXPECT_EQ(Gleis(1)->Verbindung(kEnde), 0);
        EXPECT_EQ(Gleis(2)->Verbindung(kEnde), 3);
        std::string saved = Saved();
        EXPECT_EQ(saved.find(c.connection), std::string::npos);
        EXPECT_NE(saved.find(good), std::string::npos);
    }
}

TEST_F(TrackNetwork, NonNumericIdFailsTheLoadWithTheProcedureName) {
    EXPECT_FALSE(Load(System(Track(1, 0, 0, 100, "", " Key_Id=\"zwölf\""))));
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    EXPECT_NE(scope.ui.errors[0].find("Prozedur: CNodeGleis.INode_ParseAttributes"), std::string::npos);
    EXPECT_NE(scope.ui.errors[0].find("Fehler 13: Typen unverträglich"), std::string::npos);
    scope.ui.errors.clear();
    EXPECT_FALSE(Load(System(Track(1, 0, 0, 100, "<KontaktZiel>x</KontaktZiel>"))));
    EXPECT_NE(scope.ui.errors.at(0).find("Prozedur: CNodeGleis.INode_AddChild"), std::string::npos);
}

TEST_F(TrackNetwork, KontaktZielIsWrittenAsReadAndRegisteredFromOne) {
    std::string withTargets =
        test::LayoutText(System(Track(1, 0, 0, 100) + Track(2, 0, 0, 100) + Track(3, 0, 0, 100)));
    auto addTarget = [&](int id, int target) {
        std::string tag = "<Gleis GleisID=\"" + std::to_string(id) + "\"";
        size_t at = withTargets.find('>', withTargets.find(tag)) + 1;
        withTargets.insert(at, "<KontaktZiel>" + std::to_string(target) + "</KontaktZiel>");
    };
    addTarget(2, 0);
    addTarget(3, 17);
    test::WriteFile(path, withTargets);
    ASSERT_TRUE(anlage.Load(path));
    EXPECT_EQ(Gleis(1)->KontaktZiel(), -1);
    EXPECT_EQ(Gleis(2)->KontaktZiel(), 0);
    EXPECT_EQ(anlage.KontaktZiele(), std::vector<int32_t>{17});
    std::string saved = Saved();
    EXPECT_NE(saved.find("<Gleis GleisID=\"2\" "
                         "clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\"><KontaktZiel>0</KontaktZiel>"),
              std::string::npos);
    EXPECT_EQ(saved.find("<Gleis GleisID=\"1\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\"><KontaktZiel>"),
              std::string::npos);
}

TEST_F(TrackNetwork, ClsidTextsAreStoredOnceAndStilIsAddedOnDemand) {
    ASSERT_TRUE(Load(System(Track(1, 0, 0, 100) + Track(2, 0, 0, 100))));
    EXPECT_EQ(Gleis(1)->ClsIDIndex(), Gleis(2)->ClsIDIndex());
    Gleis(1)->SetStil(42);
    Gleis(1)->AddAttrStil();
    Gleis(1)->AddAttrStil();
    EXPECT_NE(Saved().find("clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\" stil=\"42\">"), std::string::npos);
}

TEST_F(TrackNetwork, CollectorLinksItsTracksAndWritesIdsInItsOrder) {
    std::string kollektor = "<Kollektor id=\"5\"><Dreibein>" + Vektor("Pos", 0, 0, 0) +
                            Vektor("Dir", 1, 0, 0) + Vektor("Nor", 0, 1, 0) + Vektor("Bin", 0, 0, 1) +
                            "</Dreibein><Gleis gleissystemID=\"1\" gleisID=\"2\" Farbe=\"rot\"/></Kollektor>";
    ASSERT_TRUE(Load(System(Track(2, 0, 0, 100)) + kollektor));
    ASSERT_NE(Gleis(2)->Kollektor(), nullptr);
    EXPECT_EQ(Gleis(2)->Kollektor()->ID(), 5);
    ASSERT_EQ(scope.ui.parseLog.Hints().size(), 1u);
    EXPECT_EQ(scope.ui.parseLog.Hints()[0], "Unbekanntes Attribut 'Farbe' im Kollektor Gleis-Node");
    // Entries are written as read when they carry more than the two ids.
    EXPECT_NE(Saved().find("<Gleis gleissystemID=\"1\" gleisID=\"2\" Farbe=\"rot\"/></Kollektor>"),
              std::string::npos);
}

TEST_F(TrackNetwork, CutConnectionsSeparatesOnlyTracksThatDifferInTheFlag) {
    ASSERT_TRUE(Load(System(Track(1, 0, 0, 100) + Track(2, 100, 0, 100) + Track(3, 200, 0, 100) +
                            Connection(1, "Ende", 2, "Anfang") + Connection(2, "Ende", 3, "Anfang"))));
    CNodeGleisSys* system = FindGleisSys(anlage, 1);
    auto selected = [](const CNodeGleis& track) { return track.ID() != 3; };
    EXPECT_EQ(system->CutConnections(*Gleis(2), selected).records.size(), 1u);
    EXPECT_EQ(Gleis(2)->Verbindung(kAnfang), 1);
    EXPECT_EQ(Gleis(2)->Verbindung(kEnde), 0);
    EXPECT_EQ(Gleis(3)->Verbindung(kAnfang), 0);
}

TEST_F(TrackNetwork, ClassicGeometryOfStraightsAndArcs) {
    const double radius = 1000;
    ASSERT_TRUE(Load(System(Track(1, 0, 0, 500) + Track(2, 0, 1 / radius, kPi / 2 * radius))));
    CTrackGeometry straight(*Gleis(1));
    EXPECT_NEAR(Distance(straight.End(), CVector(500, 0, 0)), 0, 1e-9);
    CTrackGeometry arc(*Gleis(2));
    // A quarter circle turning towards Nor (north) ends one radius east and one radius north.
    EXPECT_NEAR(Distance(arc.End(), CVector(radius, radius, 0)), 0, 1e-3);
    EXPECT_NEAR(Distance(arc.Endpunkt(kEndeAbzweig), arc.End()), 0, 1e-12);
    std::vector<CVector> line = arc.Polyline(100);
    EXPECT_EQ(line.size(), 17u); // 1571 cm in steps of at most 100 cm
    for (const CVector& point : line)
        EXPECT_NEAR(Distance(point, CVector(0, radius, 0)), radius, 1e-6);
    EXPECT_EQ(straight.Polyline(1).size(), 2u);
}

TEST_F(TrackNetwork, TorsionAndCantFollowTheFormula) {
    // A cant of 90 degrees makes a curve that turns towards Nor bend downwards instead.
    std::string canted = Track(3, 0, 0.001, 1000);
    canted.replace(canted.find("Wert=\"0\""), 8, "Wert=\"" + NumberToText(kPi / 2) + "\"");
    ASSERT_TRUE(Load(System(canted)));
    CTrackGeometry geometry(*Gleis(3));
    CVector end = geometry.End();
    EXPECT_NEAR(end.Y, 0, 1e-6);
    EXPECT_NEAR(end.Z, -(1 - std::cos(1.0)) / 0.001, 1e-3); // N = -B after a cant of pi/2
}

// Connected ends of real layouts, both track formats, must meet.
TEST(TrackGeometrySamples, ConnectedEndsCoincide) {
    test::RecordingScope scope;
    long joints = 0, close = 0;
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        CAnlage anlage;
        ASSERT_TRUE(anlage.Load(entry.path().string())) << entry.path();
        // Each connection record is a joint, also where one end has several.
        for (CNodeGleisSys* system : TrackSystems(anlage)) {
            for (const CGleisVerbindung& record : system->Verbindungen()) {
                const CNodeGleis* a = system->FindGleis(record.GleisID1());
                const CNodeGleis* b = system->FindGleis(record.GleisID2());
                ASSERT_TRUE(a && b);
                double gap = Distance(CTrackGeometry(*a).Endpunkt(record.Anschluss1()),
                                      CTrackGeometry(*b).Endpunkt(record.Anschluss2()));
                ++joints;
                close += gap <= 1.0;
            }
        }
    }
    ASSERT_GT(joints, 500);
    EXPECT_GE(static_cast<double>(close) / static_cast<double>(joints), 0.95) << close << " of " << joints;
}

} // namespace
