#include <gtest/gtest.h>

#include <cmath>

#include "../nodes/SceneryLayoutFixture.h"
#include "PlanLayoutText.h"
#include "RecordingCanvas.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/modNodes.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CViewOptions.h"
#include "plan/modPlanSymbols.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

class PlanPainter : public SceneryLayoutFixture {
protected:
    // Loads the layout (500 m square around the origin) and shows it whole.
    void Open(const std::string& inner) {
        ASSERT_TRUE(LoadInner(inner)) << (scope.ui.errors.empty() ? "" : scope.ui.errors.front());
        ASSERT_TRUE(CPlanPainter::InitView(view, anlage));
        view.SetClientSize(750, 750);
        view.World();
    }
    bool Draw() {
        canvas = RecordingCanvas(750, 750);
        CPlanPainter painter(anlage, view, options);
        painter.WithNames = withNames;
        painter.WithSignals = withSignals;
        return painter.DrawAll(canvas);
    }

    CPlanView view;
    CViewOptions options;
    RecordingCanvas canvas;
    bool withNames = false;
    bool withSignals = false;
};

} // namespace

TEST_F(PlanPainter, DrawsKindsInOrderInTheirColours) {
    Open(System(2, 2, Track(1, "0", "0", "0", 0, 1000)) + Building(4, "100", "100") +
         Building(5, "200", "200") + Building(2, "300", "300"));
    options.SetBgColor(0x112233);
    options.SetTrackColor(2, 0x0000FF);
    options.SetImmoColor(4, 0x00FF00);
    options.SetImmoColor(5, 0xFF0000);
    ASSERT_TRUE(Draw());
    ASSERT_FALSE(canvas.calls.empty());
    EXPECT_EQ(canvas.calls.front().kind, "Clear");
    EXPECT_EQ(canvas.calls.front().color, 0x112233u);
    std::vector<uint32_t> order;
    for (const auto& call : canvas.calls)
        if ((call.color == 0x0000FF || call.color == 0x00FF00 || call.color == 0xFF0000) &&
            (order.empty() || order.back() != call.color))
            order.push_back(call.color);
    // Tracks of the Strassenbahn with its track-accompanying object, then kind 4, then kind 5.
    EXPECT_EQ(order, (std::vector<uint32_t>{0x0000FF, 0x00FF00, 0xFF0000}));
    auto lines = canvas.Of("Polyline");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_DOUBLE_EQ(lines[0]->xs.front(), 0);
    EXPECT_DOUBLE_EQ(lines[0]->xs.back(), 1000);
    // The object along the track an open square, the building a filled one, the tree a disc.
    auto outlines = canvas.Of("TurnedSquare");
    ASSERT_EQ(outlines.size(), 2u) << "the track object and the building";
    EXPECT_EQ(outlines[0]->color, 0x0000FFu);
    EXPECT_EQ(outlines[1]->color, 0x00FF00u);
    EXPECT_EQ(canvas.Of("FilledTurnedSquare").size(), 1u);
    EXPECT_EQ(canvas.Of("Polygon").size(), 1u) << "the terrain's outline";
    ASSERT_EQ(canvas.Of("Disc").size(), 1u);
    EXPECT_DOUBLE_EQ(canvas.Of("Disc")[0]->xs[0], 200);
}

TEST_F(PlanPainter, CurvesFollowTheirCentreLine) {
    const double radius = 2000, length = kPi * radius / 2; // a quarter circle
    Open(System(2, 1, Track(1, "0", "0", "0", 1 / radius, length)));
    ASSERT_TRUE(Draw());
    auto lines = canvas.Of("Polyline");
    ASSERT_EQ(lines.size(), 1u);
    ASSERT_GT(lines[0]->xs.size(), 4u);
    for (size_t i = 0; i < lines[0]->xs.size(); ++i)
        EXPECT_NEAR(std::hypot(lines[0]->xs[i], lines[0]->ys[i] - radius), radius, 1e-6);
    EXPECT_NEAR(lines[0]->xs.back(), radius, 1e-6);
    EXPECT_NEAR(lines[0]->ys.back(), radius, 1e-6);
}

TEST_F(PlanPainter, HiddenKindsDropOutOfWhatTheUserSees) {
    Open(System(2, 1, Track(1, "0", "0", "0", 0, 1000)) + Building(4, "100", "100"));
    options.SetTrackVisible(1, false);
    ASSERT_TRUE(Draw());
    auto& track = Single<CNodeGleis>();
    auto& building = Single<CNodeImmobilie>();
    EXPECT_TRUE(canvas.Of("Polyline").empty());
    EXPECT_FALSE(track.Active());
    EXPECT_FALSE(track.Consider(0));
    EXPECT_FALSE(track.Consider(2));
    EXPECT_TRUE(track.Consider(1));
    EXPECT_TRUE(building.Consider(0));
    options.SetTrackVisible(1, true);
    ASSERT_TRUE(Draw());
    EXPECT_TRUE(track.Consider(0)) << "shown again";
}

TEST_F(PlanPainter, HeightFilterHidesAndIsRemembered) {
    Open(System(2, 1, Track(1, "0", "0", "1001", 0, 1000) + Track(2, "0", "500", "1000", 0, 1000)) +
         Building(4, "0", "0", "-600"));
    anlage.HoehenFilter().SetTopLine(1000);
    anlage.HoehenFilter().SetBottomLine(-500);
    ASSERT_TRUE(Draw());
    auto tracks = Nodes<CNodeGleis>();
    ASSERT_EQ(tracks.size(), 2u);
    EXPECT_FALSE(tracks[0]->OnPlan());
    EXPECT_FALSE(tracks[0]->InHeightRange());
    EXPECT_FALSE(tracks[0]->Consider(2));
    EXPECT_TRUE(tracks[0]->Consider(1));
    EXPECT_TRUE(tracks[1]->Consider(0)) << "exactly at the upper limit";
    EXPECT_FALSE(Single<CNodeImmobilie>().InHeightRange());
    EXPECT_EQ(canvas.Of("Polyline").size(), 1u);
    EXPECT_TRUE(canvas.Of("Square").empty());
}

TEST_F(PlanPainter, TracksAreCulledWithTheirLengthAsMargin) {
    Open(System(2, 1, Track(1, "0", "0", "0", 0, 1000)));
    view.SelectZoom(1); // factor 2
    ASSERT_EQ(view.Zoom(), 2.0f);
    view.SetCentre(view.Width() / 2 + 1000, 0); // left edge exactly 1000 right of the track's start
    view.ScalePlan();
    ASSERT_DOUBLE_EQ(view.Left(), 1000);
    ASSERT_TRUE(Draw());
    EXPECT_TRUE(Single<CNodeGleis>().OnPlan()) << "L - r <= X holds with equality";
    view.SetCentre(view.Width() / 2 + 1000.01, 0);
    ASSERT_TRUE(Draw());
    EXPECT_FALSE(Single<CNodeGleis>().OnPlan());
    EXPECT_FALSE(Single<CNodeGleis>().Consider(0));
    EXPECT_TRUE(Single<CNodeGleis>().Consider(2));
}

TEST_F(PlanPainter, NamesSignalsAndContactsOnRequest) {
    std::string contact =
        "<Kontakt Position=\"250\" SetType=\"1\" clsid=\"5E9A3049-D465-4602-A285-6A9774DCF1BF\"/>";
    std::string signal = "<Meldung Key_Id=\"7\" name=\"Ks_Signal\" Position=\"500\" ParaOderAnti=\"1\"/>";
    Open(System(2, 1, Track(1, "0", "0", "0", 0, 1000, contact + signal)) + Building(4, "100", "100"));
    ASSERT_TRUE(Draw());
    EXPECT_TRUE(canvas.Of("Text").empty());
    EXPECT_TRUE(canvas.Of("Triangle").empty());
    EXPECT_FALSE(Single<CNodeKontakt>().Active()) << "hidden signals are not selectable";
    withNames = withSignals = true;
    ASSERT_TRUE(Draw());
    EXPECT_EQ(canvas.Of("Text").size(), 1u) << "a 10 m piece seen from afar carries no name";
    view.SetZoom(16);
    ASSERT_TRUE(Draw());
    std::vector<std::string> texts;
    for (const auto* call : canvas.Of("Text"))
        texts.push_back(call->text);
    EXPECT_EQ(texts, (std::vector<std::string>{"Gleis_1", "Haus_4"}));
    auto triangles = canvas.Of("Triangle");
    ASSERT_EQ(triangles.size(), 1u);
    EXPECT_DOUBLE_EQ(triangles[0]->xs[0], 500);
    EXPECT_TRUE(Single<CNodeMeldung>().OnPlan());
    auto squares = canvas.Of("Square");
    ASSERT_EQ(squares.size(), 1u) << "the contact";
    EXPECT_DOUBLE_EQ(squares[0]->xs[0], 250);
    EXPECT_EQ(squares[0]->color, ContactColor(1));
}

TEST_F(PlanPainter, TrackIdsAndRotationCentre) {
    Open(System(2, 1, Track(17, "0", "0", "0", 0, 1000)));
    options.SetGleisId(true);
    canvas = RecordingCanvas(750, 750);
    CPlanPainter painter(anlage, view, options);
    painter.RotCenterShown = true;
    painter.RotCenterX = 300;
    ASSERT_TRUE(painter.DrawAll(canvas));
    auto texts = canvas.Of("Text");
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0]->text, "17");
    EXPECT_DOUBLE_EQ(texts[0]->xs[0], 500);
    ASSERT_FALSE(canvas.Of("Circle").empty());
    EXPECT_DOUBLE_EQ(canvas.Of("Circle").back()->xs[0], 300);
}

TEST_F(PlanPainter, DamagedCoordinatesDrawNothingStray) {
    Open(System(2, 1,
                Track(1, "nan", "0", "0", 0, 1000) + Track(2, "0", "0", "0", 1e-3, 1e300) +
                    Track(3, "1E+300", "-1E+300", "0", 0, 1000) + Track(4, "0", "0", "0", 0, 500)));
    ASSERT_TRUE(Draw());
    for (const auto* line : canvas.Of("Polyline")) {
        EXPECT_LE(line->xs.size(), 2000u) << "a bounded number of points";
        for (size_t i = 0; i < line->xs.size(); ++i)
            EXPECT_TRUE(std::isfinite(line->xs[i]) && std::isfinite(line->ys[i]));
    }
    EXPECT_TRUE(Nodes<CNodeGleis>()[3]->OnPlan()) << "the sound track is still drawn";
    EXPECT_FALSE(Nodes<CNodeGleis>()[2]->OnPlan()) << "far outside the layout";
}

TEST_F(PlanPainter, NothingIsDrawnWithoutZoomOrPicture) {
    Open("");
    CPlanView fresh;
    RecordingCanvas empty(0, 0);
    CPlanPainter painter(anlage, view, options);
    EXPECT_FALSE(painter.DrawAll(empty));
    CPlanPainter unzoomed(anlage, fresh, options);
    RecordingCanvas some(100, 100);
    EXPECT_FALSE(unzoomed.DrawAll(some));
    EXPECT_TRUE(some.calls.empty());
}
