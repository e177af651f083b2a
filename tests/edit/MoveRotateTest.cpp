#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <regex>
#include <set>

#include "../plan/RecordingCanvas.h"
#include "EditLayouts.h"
#include "edit/CEditHistory.h"
#include "edit/CPlacementChange.h"
#include "edit/CSelectionEdit.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPlanObjects.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

using namespace kavrin;

namespace {

class MoveRotate : public test::SceneryLayoutFixture {
protected:
    CNodeGleis& Track(int system, int id) { return *FindGleis(anlage, static_cast<int16_t>(system), id); }
    void SelectAll() { CPlanObjects(anlage, options).SelectAll(selection, 2); }

    CViewOptions options;
    CSelection selection;
};

void ExpectNear(const CVector& actual, double x, double y, double z, double tolerance = 1e-6) {
    EXPECT_NEAR(actual.X, x, tolerance);
    EXPECT_NEAR(actual.Y, y, tolerance);
    EXPECT_NEAR(actual.Z, z, tolerance);
}

// Each kind moves by its frame and turns about the centre, the newer track format included.
TEST_F(MoveRotate, EveryKindMovesAndTurnsThroughItsFrame) {
    ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" +
                          test::ClassicTrack(1, 100, 0, 1000, 0.001) + test::NewerTrack(2, 1, 2, 10) +
                          "</Gleissystem><Gebaeudesammlung GebaudesammlungID=\"4\">" +
                          test::Building("Haus", 100, 0) + "</Gebaeudesammlung><Goods count=\"1\">" +
                          test::Good(100, 0) + "</Goods>"));
    SelectAll();
    ASSERT_EQ(selection.Count(), 4);
    CNodeGleis& classic = Track(2, 1);
    CNodeGleis& newer = Track(2, 2);
    CVector classicEnd = CTrackGeometry(classic).End();
    selection.Move(50, -20, 7);
    ExpectNear(CTrackGeometry(classic).Start(), 150, -20, 7);
    ExpectNear(CTrackGeometry(classic).End(), classicEnd.X + 50, classicEnd.Y - 20, 7);
    ExpectNear(CTrackGeometry(newer).Start(), 150, 180, 7);
    ExpectNear(Nodes<CNodeImmobilie>()[0]->DreiBein().Pos(), 150, -20, 7);
    ExpectNear(Nodes<CNodeGood>()[0]->DreiBein().Pos(), 150, -20, 7);

    // A quarter turn to the left about (150, -20): east becomes north.
    selection.Rotate(90, 150, -20);
    ExpectNear(CTrackGeometry(classic).Start(), 150, -20, 7);
    CVector end = CTrackGeometry(classic).End();
    EXPECT_NEAR(end.X, 150 - (classicEnd.Y - 0), 1e-3);
    EXPECT_NEAR(end.Y, -20 + (classicEnd.X - 100), 1e-3);
    ExpectNear(CTrackGeometry(newer).Start(), -50, -20, 7, 1e-3);
    ExpectNear(CTrackGeometry(newer).End(), -50, 980, 7, 1e-3);
    const C3Bein& building = Nodes<CNodeImmobilie>()[0]->DreiBein();
    ExpectNear(building.Pos(), 150, -20, 7, 1e-9);
    ExpectNear(building.Dir(), 0, 1, 0, 1e-9);
    ExpectNear(building.Nor(), -1, 0, 0, 1e-9);
    ExpectNear(Nodes<CNodeGood>()[0]->DreiBein().Dir(), 0, 1, 0, 1e-9);
    // What is saved is what is drawn: the newer track's frame is written anew, in metres.
    std::string saved = Save();
    EXPECT_NE(saved.find("<Frame><Position x=\"-0.5\" y=\""), std::string::npos) << saved;
    ASSERT_TRUE(anlage.Load(dir.File("out.anl3")));
    ExpectNear(CTrackGeometry(Track(2, 2)).End(), -50, 980, 7, 1e-3);
}

// The gap between any two connected ends of a moved or turned group stays what it was, in
// memory and after saving and loading again.
TEST_F(MoveRotate, ConnectedEndsStayTogetherOnBothTrackFormats) {
    struct Joint {
        int16_t system;
        int32_t a, b;
        int16_t endA, endB;
        double gap;
    };
    auto gaps = [&] {
        std::vector<Joint> joints;
        for (CNodeGleisSys* system : TrackSystems(anlage))
            for (const CGleisVerbindung& record : system->Verbindungen()) {
                CNodeGleis* a = system->FindGleis(record.GleisID1());
                CNodeGleis* b = system->FindGleis(record.GleisID2());
                if (!a || !b || !a->Selected() || !b->Selected())
                    continue;
                CVector p = CTrackGeometry(*a).Endpunkt(record.Anschluss1());
                CVector q = CTrackGeometry(*b).Endpunkt(record.Anschluss2());
                joints.push_back({system->ID(), a->ID(), b->ID(), record.Anschluss1(), record.Anschluss2(),
                                  std::hypot(p.X - q.X, p.Y - q.Y, p.Z - q.Z)});
            }
        return joints;
    };
    int newerSamples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        SCOPED_TRACE(entry.path().filename().string());
        ASSERT_TRUE(anlage.Load(entry.path().string()));
        CEditHistory history(anlage);
        selection.Clear();
        SelectAll();
        std::vector<Joint> before = gaps();
        ASSERT_FALSE(before.empty());
        newerSamples += FindGleis(anlage, before[0].system, before[0].a)->IsNewFormat();
        CSelectionEdit edit(selection, history);
        ASSERT_TRUE(edit.Move(123456.7, -98765.4, 321.5));
        ASSERT_TRUE(edit.Rotate(33.3, 5000, -7000));
        ASSERT_TRUE(edit.Rotate(-271.7, -12.5, 0.25));
        std::vector<Joint> after = gaps();
        ASSERT_EQ(after.size(), before.size());
        for (size_t i = 0; i < before.size(); ++i)
            EXPECT_NEAR(after[i].gap, before[i].gap, 0.01) << "Gleis " << before[i].a << " - " << before[i].b;
        std::string out = dir.File("moved.anl3");
        ASSERT_TRUE(anlage.Save(out));
        selection.Clear();
        ASSERT_TRUE(anlage.Load(out));
        SelectAll();
        std::vector<Joint> reloaded = gaps();
        ASSERT_EQ(reloaded.size(), before.size());
        for (size_t i = 0; i < before.size(); ++i)
            EXPECT_NEAR(reloaded[i].gap, before[i].gap, 0.01)
                << "Gleis " << before[i].a << " - " << before[i].b;
        selection.Clear();
    }
    EXPECT_EQ(newerSamples, 1);
}

// A building's own collector (a road object's road) and the collectors of its moving parts
// move and turn with it, with their tracks; a track that is selected itself, or that two
// selected buildings share, moves once.
TEST_F(MoveRotate, CollectorsGoAlongWithTheirBuilding) {
    ASSERT_TRUE(LoadInner(
        "<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" + test::ClassicTrack(1, 0, 0, 1000) +
        test::ClassicTrack(2, 1000, 0, 1000) + test::ClassicTrack(3, 0, 500, 1000) +
        test::ClassicTrack(4, 5000, 0, 1000) + "</Gleissystem>" + "<Kollektor id=\"7\">" +
        test::FrameText("1000", "0") +
        "<Gleis gleisID=\"2\" gleissystemID=\"2\"/><Gleis gleisID=\"3\" gleissystemID=\"2\"/></Kollektor>" +
        "<Kollektor id=\"8\">" + test::FrameText("0", "0") +
        "<Gleis gleisID=\"1\" gleissystemID=\"2\"/></Kollektor>" +
        "<Gebaeudesammlung GebaudesammlungID=\"4\">" +
        test::Building("Drehscheibe", 1000, 0,
                       "<BeweglichesTeil kollektorID=\"7\"/><BeweglichesTeil kollektorID=\"99\"/>") +
        test::Building("Schuppen", 0, 0, "<BeweglichesTeil kollektorID=\"7\"/>") +
        test::Building("Bahnhof", 5000, 0) + "</Gebaeudesammlung>"));
    auto& turntable = *Nodes<CNodeImmobilie>()[0];
    auto& shed = *Nodes<CNodeImmobilie>()[1];
    turntable.SetKollektorId(8);
    std::vector<CNodeKollektor*> kollektors = Nodes<CNodeKollektor>();
    ASSERT_EQ(kollektors.size(), 2u);
    EXPECT_EQ(turntable.FirstKollektor(), kollektors[1]);
    EXPECT_EQ(turntable.GetAllKollektors(), (std::vector<CNodeKollektor*>{kollektors[1], kollektors[0]}));
    EXPECT_TRUE(turntable.hasBewegtesGleis());
    EXPECT_FALSE(Nodes<CNodeImmobilie>()[2]->hasBewegtesGleis());

    // Both buildings name collector 7: it and its tracks move once.
    selection.Add(turntable);
    selection.Add(shed);
    selection.Add(Track(2, 3));
    CEditHistory history(anlage);
    CSelectionEdit edit(selection, history);
    ASSERT_TRUE(edit.Move(10, 20, 0));
    ExpectNear(kollektors[0]->DreiBein().Pos(), 1010, 20, 0);
    ExpectNear(Track(2, 2).DreiBein().Pos(), 1010, 20, 0);
    ExpectNear(Track(2, 3).DreiBein().Pos(), 10, 520, 0);   // selected and listed: moved once
    ExpectNear(kollektors[1]->DreiBein().Pos(), 10, 20, 0); // the turntable's own collector
    ExpectNear(Track(2, 1).DreiBein().Pos(), 10, 20, 0);
    ExpectNear(Track(2, 4).DreiBein().Pos(), 5000, 0, 0);

    // A half turn about a point that is no object's start: every frame turns about it.
    ASSERT_TRUE(edit.Rotate(180, 1010, 20));
    ExpectNear(kollektors[0]->DreiBein().Pos(), 1010, 20, 0, 0);
    ExpectNear(kollektors[0]->DreiBein().Dir(), -1, 0, 0, 0);
    ExpectNear(Track(2, 2).DreiBein().Dir(), -1, 0, 0, 0);
    ExpectNear(Track(2, 3).DreiBein().Pos(), 2010, -480, 0, 0);
    ExpectNear(Track(2, 1).DreiBein().Pos(), 2010, 20, 0, 0);
    ExpectNear(kollektors[1]->DreiBein().Pos(), 2010, 20, 0, 0);
    ExpectNear(shed.DreiBein().Pos(), 2010, 20, 0, 0);
    ASSERT_TRUE(history.Undo());
    ASSERT_TRUE(history.Undo());
    ExpectNear(kollektors[0]->DreiBein().Pos(), 1000, 0, 0, 0);
    ExpectNear(kollektors[1]->DreiBein().Pos(), 0, 0, 0, 0);
    ExpectNear(Track(2, 1).DreiBein().Pos(), 0, 0, 0, 0);
    ExpectNear(Track(2, 2).DreiBein().Dir(), 1, 0, 0, 0);
    ExpectNear(Track(2, 3).DreiBein().Pos(), 0, 500, 0, 0);

    // The building alone (its IPaint Move) takes the same company along.
    selection.Clear();
    turntable.Move(0, 5, 0);
    ExpectNear(Track(2, 3).DreiBein().Pos(), 0, 505, 0);
    ExpectNear(Track(2, 1).DreiBein().Pos(), 0, 5, 0);
    ExpectNear(kollektors[0]->DreiBein().Pos(), 1000, 5, 0);
    turntable.ClearKollektors();
    EXPECT_EQ(turntable.GetAllKollektors().size(), 2u);
}

// Quarter turns use exact factors, and steps that come back to where they started give back
// the placements from before them: four quarter turns, or one full turn (which is no edit at
// all), save the very bytes of no turn, for every sample turned about the middle of its content.
TEST_F(MoveRotate, QuarterTurnsAndFullTurnsGiveBackTheBytes) {
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        SCOPED_TRACE(entry.path().filename().string());
        ASSERT_TRUE(anlage.Load(entry.path().string()));
        const std::string untouched = Save();
        SelectAll();
        CBox box = selection.BoundingBox();
        const double cx = std::round((box.West + box.East) / 2), cy = std::round((box.South + box.North) / 2);
        CEditHistory history(anlage);
        CSelectionEdit edit(selection, history);
        for (double quarter : {90.0, -90.0, 450.0}) {
            for (int i = 0; i < 4; ++i)
                ASSERT_TRUE(edit.Rotate(quarter, cx, cy));
            EXPECT_EQ(Save(), untouched) << quarter;
        }
        // The last of them undone and done again; any steps that come back: three turns of
        // 33,3 left and one of 99,9 right, a move there and back.
        ASSERT_TRUE(history.Undo());
        EXPECT_NE(Save(), untouched);
        ASSERT_TRUE(history.Redo());
        EXPECT_EQ(Save(), untouched);
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(edit.Rotate(33.3, cx + 1234, cy));
        ASSERT_TRUE(edit.Rotate(-99.9, cx + 1234, cy));
        EXPECT_EQ(Save(), untouched);
        ASSERT_TRUE(edit.Move(1234.5, -77, 3));
        ASSERT_TRUE(edit.Move(-1234.5, 77, -3));
        EXPECT_EQ(Save(), untouched);
        // Residues of a turn are numbers like 6.46E-15.
        auto residues = [](const std::string& text) {
            const std::regex tiny("E-1[0-9]\"");
            return std::distance(std::sregex_iterator(text.begin(), text.end(), tiny),
                                 std::sregex_iterator());
        };
        ASSERT_TRUE(edit.Rotate(180, cx, cy));
        EXPECT_EQ(residues(Save()), residues(untouched));
        ASSERT_TRUE(edit.Rotate(-180, cx, cy));
        for (double full : {360.0, -720.0})
            EXPECT_FALSE(edit.Rotate(full, cx, cy));
        EXPECT_EQ(history.Count(), 20u);
        EXPECT_EQ(Save(), untouched);
        selection.Clear();
    }
}

// The question before a step: only when something would lie further outside the layout than
// it does now, measured on what is drawn (a curve's bulge, not only its ends).
TEST_F(MoveRotate, OnlyAStepFurtherOutOfTheLayoutCounts) {
    // A half circle (radius 3 m) starting north 2 m below the layout's northern edge: its ends
    // lie inside, its top 1 m outside.
    const std::string northward =
        "<Dreibein><Vektor x=\"5000\" y=\"9800\" z=\"0\">Pos</Vektor><Vektor x=\"0\" y=\"1\" "
        "z=\"0\">Dir</Vektor><Vektor x=\"-1\" y=\"0\" z=\"0\">Nor</Vektor><Vektor x=\"0\" y=\"0\" "
        "z=\"1\">Bin</Vektor></Dreibein>";
    ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\"><Gleis GleisID=\"1\">" +
                          northward +
                          "<Charakteristik Kruemmung=\"-0.0033333333333333\" Torsion=\"0\" "
                          "Fuehrungsverdrehung=\"0\" Laenge=\"942.477796\"/></Gleis></Gleissystem>"
                          "<Schandlaft extX=\"100\" extY=\"100\" posX=\"0\" posY=\"0\" dichte=\"0.01\"/>"));
    SelectAll();
    ASSERT_EQ(selection.Count(), 1);
    CTrackGeometry geometry(Track(2, 1));
    ASSERT_LT(std::max(geometry.Start().Y, geometry.End().Y), 10000);
    EXPECT_NEAR(selection.BoundingBox().North, 10100, 1.5);
    using T = CPlacementChange::Transform;
    struct Case {
        const char* what;
        T step;
        bool asks;
    };
    const Case cases[] = {
        {"further north: the bulge goes further out", T::Move(0, 50, 0), true},
        {"back south", T::Move(0, -50, 0), false},
        {"along the edge", T::Move(2000, 0, 0), false},
        {"a half turn about its middle puts the bulge inside", T::Rotate(180, 5300, 9800), false},
        {"a quarter turn about a far point", T::Rotate(90, 5000, 0), true},
        {"out over the western edge", T::Move(-5500, -5000, 0), true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(CSelectionEdit::GoesFurtherOut(selection, anlage, c.step), c.asks);
    }
}

// Turning a frame about a point: the position turns about it, the axes only turn, z stays.
TEST(FrameTurn, PositionTurnsAboutTheCentreAxesOnlyTurn) {
    C3Bein frame;
    frame.Pos() = CVector(11, 0, 5);
    frame.Dir() = CVector(1, 0, 0);
    frame.Nor() = CVector(0, 1, 0);
    frame.Bin() = CVector(0, 0, 1);
    frame.Rotate(90, 10, 0);
    ExpectNear(frame.Pos(), 10, 1, 5, 0);
    ExpectNear(frame.Dir(), 0, 1, 0, 0);
    ExpectNear(frame.Nor(), -1, 0, 0, 0);
    ExpectNear(frame.Bin(), 0, 0, 1, 0);
    frame.Rotate(-45, 10, 0);
    ExpectNear(frame.Pos(), 10 + std::sqrt(0.5), std::sqrt(0.5), 5, 1e-12);
    ExpectNear(frame.Dir(), std::sqrt(0.5), std::sqrt(0.5), 0, 1e-12);
}

TEST_F(MoveRotate, CutLeavesTheSelectionJoinedInsideAndLooseOutside) {
    ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" +
                          test::ClassicTrack(1, 0, 0, 1000) + test::ClassicTrack(2, 1000, 0, 1000) +
                          test::ClassicTrack(3, 2000, 0, 1000) + test::Connection(1, "Ende", 2, "Anfang") +
                          test::Connection(2, "Ende", 3, "Anfang") + "</Gleissystem>"));
    selection.Add(Track(2, 1));
    selection.Add(Track(2, 2));
    CEditHistory history(anlage);
    CSelectionEdit edit(selection, history);
    EXPECT_EQ(edit.CutSelection(), 1u);
    EXPECT_EQ(Track(2, 2).Verbindung(kEnde), 0);
    EXPECT_EQ(Track(2, 3).Verbindung(kAnfang), 0);
    EXPECT_EQ(Track(2, 1).Verbindung(kEnde), 2);
    EXPECT_EQ(Track(2, 2).Verbindung(kAnfang), 1);
    EXPECT_EQ(history.UndoName(), "Auswahl lösen");
    // Nothing left to cut: no step.
    EXPECT_EQ(edit.CutSelection(), 0u);
    EXPECT_EQ(history.Count(), 1u);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(Track(2, 2).Verbindung(kEnde), 3);
    EXPECT_EQ(Track(2, 3).Anschluss(kAnfang), kEnde);
    ASSERT_TRUE(history.Redo());
    EXPECT_EQ(Track(2, 3).Verbindung(kAnfang), 0);
}

// All-zero frames move and turn into numbers, never into NaN.
TEST_F(MoveRotate, DegenerateFramesMoveAndTurnWithoutNaN) {
    const std::string zero =
        "<Dreibein><Vektor x=\"0\" y=\"0\" z=\"0\">Pos</Vektor><Vektor x=\"0\" y=\"0\" "
        "z=\"0\">Dir</Vektor><Vektor x=\"0\" y=\"0\" z=\"0\">Nor</Vektor><Vektor x=\"0\" "
        "y=\"0\" z=\"0\">Bin</Vektor></Dreibein>";
    ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\"><Gleis GleisID=\"1\">" +
                          zero +
                          "<Charakteristik Kruemmung=\"0.01\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" "
                          "Laenge=\"100\"/></Gleis></Gleissystem><Gebaeudesammlung GebaudesammlungID=\"4\">"
                          "<Immobile gsbname=\"\\a.3dm\">" +
                          zero + "</Immobile></Gebaeudesammlung>"));
    SelectAll();
    ASSERT_EQ(selection.Count(), 2);
    CEditHistory history(anlage);
    CSelectionEdit edit(selection, history);
    ASSERT_TRUE(edit.Move(10, 10, 10));
    ASSERT_TRUE(edit.Rotate(45, 3, 4));
    CBox box = selection.BoundingBox();
    for (float value : {box.West, box.East, box.South, box.North, box.Bottom, box.Top})
        EXPECT_TRUE(std::isfinite(value));
    const C3Bein& frame = Nodes<CNodeImmobilie>()[0]->DreiBein();
    for (const CVector* v : {&frame.Pos(), &frame.Dir(), &frame.Nor(), &frame.Bin()})
        EXPECT_TRUE(std::isfinite(v->X) && std::isfinite(v->Y) && std::isfinite(v->Z));
    EXPECT_EQ(Save().find("nan"), std::string::npos);
}

// The plan keeps where each object stands for its culling: after a move, and after its undo,
// it is drawn where it is now. (Selected objects are drawn twice, the second time highlighted,
// so the places are compared as sets.)
TEST_F(MoveRotate, WhatMovedIsDrawnWhereItStandsNow) {
    ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" +
                          test::ClassicTrack(1, 100, 0, 1000) + test::NewerTrack(2, 1, 2, 10) +
                          "</Gleissystem><Gebaeudesammlung GebaudesammlungID=\"4\">" +
                          test::Building("Haus", 100, 0) + "</Gebaeudesammlung>"));
    CPlanView view;
    ASSERT_TRUE(CPlanPainter::InitView(view, anlage));
    view.World();
    CPlanPainter painter(anlage, view, options);
    auto drawn = [&](double dx, double dy) {
        test::RecordingCanvas canvas;
        EXPECT_TRUE(painter.DrawAll(canvas));
        std::set<std::pair<long, long>> at;
        auto add = [&](double x, double y) {
            at.emplace(std::lround((x - dx) * 1000), std::lround((y - dy) * 1000));
        };
        for (const auto* kind : {"Square", "TurnedSquare", "Circle", "Line", "Polyline"})
            for (const auto* call : canvas.Of(kind))
                add(call->xs[0], call->ys[0]);
        return at;
    };
    const auto before = drawn(0, 0);
    ASSERT_GE(before.size(), 2u); // the building stands where track 1 begins; track 2
    SelectAll();
    CEditHistory history(anlage);
    CSelectionEdit edit(selection, history);
    ASSERT_TRUE(edit.Move(500, 700, 0));
    EXPECT_EQ(drawn(500, 700), before);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(drawn(0, 0), before);
}

TEST(SelectionEditValues, RefusedUnlessFiniteAndWithinTheLimits) {
    struct Case {
        double a, b, c;
        bool move, rotate;
    };
    const double nan = std::nan("");
    const double inf = INFINITY;
    const Case cases[] = {
        {1, 2, 3, true, true},     {1e7, -1e7, 0, true, false},   {1e7 + 1, 0, 0, false, false},
        {36000, 0, 0, true, true}, {-36000.5, 0, 0, true, false}, {1e300, 0, 0, false, false},
        {nan, 0, 0, false, false}, {0, inf, 0, false, false},     {0, 0, nan, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.a) + " " + std::to_string(c.b) + " " + std::to_string(c.c));
        EXPECT_EQ(CSelectionEdit::CheckMove(c.a, c.b, c.c).empty(), c.move);
        EXPECT_EQ(CSelectionEdit::CheckRotate(c.a, c.b, c.c).empty(), c.rotate);
    }
}

} // namespace
