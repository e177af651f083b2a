// How the plan looks: tracks as bands once the zoom shows their width, symbols in metres or
// pixels, the terrain's outline, and the selected objects last in the highlight colour.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "PlanLayoutText.h"
#include "RecordingCanvas.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeImmobilie.h"
#include "plan/CPlanImage.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CTrackBand.h"
#include "plan/CViewOptions.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

// A classic straight piece whose style model has the given name.
std::string NamedTrack(int id, const std::string& y, const std::string& model) {
    std::string text = Track(id, "0", y, "0", 0, 2000);
    const std::string from = "\\Gleisstile\\Gleis_" + std::to_string(id) + ".3dm";
    return text.replace(text.find(from), from.size(), "\\Gleisstile\\" + model + ".3dm");
}

class PlanLook : public SceneryLayoutFixture {
protected:
    // The fixture's layout is 500 m square around the origin.
    void Open(const std::string& inner) {
        ASSERT_TRUE(LoadInner(inner)) << (scope.ui.errors.empty() ? "" : scope.ui.errors.front());
        ASSERT_TRUE(CPlanPainter::InitView(view, anlage));
    }
    // Draws a picture of 500 x 500 pixels centred on the origin, `cm` centimetres a pixel.
    bool Draw(double cm, const CPlanImage* background = nullptr) {
        canvas = RecordingCanvas(500, 500);
        view.SetClientSize(500, 500);
        view.SetZoom(static_cast<float>(50000 / (500 * cm)));
        view.SetCentre(0, 0);
        CPlanPainter painter(anlage, view, options);
        painter.Background = background;
        const bool drawn = painter.DrawAll(canvas);
        EXPECT_NEAR(view.PixelSize(), cm, 1e-3 * cm);
        return drawn;
    }

    CPlanView view;
    CViewOptions options;
    RecordingCanvas canvas;
};

} // namespace

// At 75 cm a pixel rail (1.4 m) stays a hairline while a road lane (3.5 m) and a waterway (5 m)
// become bands; at 10 cm a pixel rail is a band too.
TEST_F(PlanLook, TracksBecomeBandsOnceTheirWidthShows) {
    struct Case {
        int system;
        std::string model;
        double cm;    // a pixel
        double width; // expected pen width of the first line drawn, in pixels; 1 for a hairline
    };
    const Case cases[] = {
        {1, "Gleise_Beton", 75, 1},
        {1, "Gleise_Beton", 10, 14},
        {3, "1Spur_re_oMl_AS3", 75, 350 / 75.0},
        {3, "Road_AsphaltTwoWay", 10, 70},
        {3, "Landstrasse_zweispurig_KV1", 10, 70},
        {3, "1Spur_unsichtbar_AS3", 10, 1}, // invisible guide roads stay hairlines
        {4, "Wasserweg", 75, 500 / 75.0},
        {2, "Strassenbahn", 10, 14},
    };
    for (const Case& c : cases) {
        Open(System(2, c.system, NamedTrack(1, "0", c.model)));
        ASSERT_TRUE(Draw(c.cm));
        auto lines = canvas.Of("Polyline");
        ASSERT_FALSE(lines.empty()) << c.model;
        EXPECT_NEAR(lines.front()->width, c.width, 1e-3 * c.width) << c.model << " at " << c.cm;
        const uint32_t color = options.TrackColor(c.system);
        if (c.width == 1) {
            EXPECT_EQ(lines.size(), 1u) << c.model;
            EXPECT_EQ(lines.front()->color, color) << c.model;
            continue;
        }
        const CTrackBand::Look look = CTrackBand::LookOf(c.system, color, options.BgColor());
        EXPECT_EQ(lines.front()->color, look.band) << c.model;
        // Rail-bound tracks: a narrower centre line in the track colour; roads: a lighter fill.
        ASSERT_EQ(lines.size(), look.fill || look.centreLine ? 2u : 1u) << c.model;
        if (lines.size() == 2) {
            EXPECT_LT(lines[1]->width, lines[0]->width) << c.model;
            EXPECT_EQ(lines[1]->color, look.fill ? *look.fill : color) << c.model;
        }
    }
}

// Every band lies under every centre line, also under that of the track drawn before it.
TEST_F(PlanLook, AllBandsGoDownBeforeTheLinesOnTop) {
    Open(System(2, 1, NamedTrack(1, "0", "Gleis") + NamedTrack(2, "300", "Gleis")) +
         System(3, 3, NamedTrack(1, "600", "1Spur")) + Building(1, "100", "0"));
    ASSERT_TRUE(Draw(10));
    std::vector<std::string> order;
    for (const auto& call : canvas.calls)
        if (call.kind == "Polyline" || call.kind == "TurnedSquare")
            order.push_back(call.kind + (call.kind == "Polyline" && call.width > 3 ? " band" : ""));
    EXPECT_EQ(order, (std::vector<std::string>{"Polyline band", "Polyline band", "Polyline band",
                                               "Polyline band", "Polyline", "Polyline", "TurnedSquare"}))
        << "rail bands, road border, road fill, then the rail centre lines and the object by the track";
}

TEST_F(PlanLook, SymbolsInMetresOnceTheZoomAllows) {
    std::string turned = Building(4, "1000", "2000");
    const std::string east = "x=\"1\" y=\"0\" z=\"0\">Dir";
    turned.replace(turned.find(east), east.size(), "x=\"0\" y=\"1\" z=\"0\">Dir");
    Open(turned + Building(5, "-1000", "0") + Building(3, "0", "-1000"));
    struct Case {
        double cm;                                   // a pixel
        double buildingHalf, treeRadius, objectHalf; // pixels
    };
    // At 10 cm a pixel a house is 8 m square, a tree crown 5 m, a mast 2 m; at 1.5 m a pixel
    // the smallest sizes in pixels hold (but the house is a little larger).
    for (const Case& c : {Case{10, 40, 25, 10}, Case{150, 400 / 150.0, 2, 2}}) {
        ASSERT_TRUE(Draw(c.cm));
        const bool inMetres = c.cm == 10;
        auto at = [&](const char* kind, double x) {
            std::vector<const RecordingCanvas::Call*> found;
            for (const auto* call : canvas.Of(kind))
                if (call->xs[0] == x)
                    found.push_back(call);
            return found;
        };
        // The house: in metres filled lighter and outlined, in pixels filled in its colour.
        auto house = at("FilledTurnedSquare", 1000);
        ASSERT_EQ(house.size(), 1u);
        EXPECT_NEAR(house[0]->width, c.buildingHalf, 1e-3 * c.buildingHalf);
        EXPECT_DOUBLE_EQ(house[0]->xs[1], 0) << "facing its Dir: north";
        EXPECT_DOUBLE_EQ(house[0]->ys[1], 1);
        EXPECT_EQ(house[0]->color,
                  inMetres ? MixColor(options.ImmoColor(4), options.BgColor(), 0.55) : options.ImmoColor(4));
        EXPECT_EQ(at("TurnedSquare", 1000).size(), inMetres ? 1u : 0u);
        auto discs = canvas.Of("Disc");
        ASSERT_EQ(discs.size(), 1u);
        EXPECT_NEAR(discs[0]->width, c.treeRadius, 1e-3 * c.treeRadius);
        // The object by the track: an open square in the track colour.
        auto object = at("TurnedSquare", 0);
        ASSERT_EQ(object.size(), 1u);
        EXPECT_NEAR(object[0]->width, c.objectHalf, 1e-3 * c.objectHalf);
        EXPECT_EQ(object[0]->color, options.TrackColor(3));
    }
}

TEST_F(PlanLook, TerrainOutlinedWithoutAColourMap) {
    Open("");
    ASSERT_TRUE(Draw(200));
    auto outline = canvas.Of("Polygon");
    ASSERT_EQ(outline.size(), 1u);
    EXPECT_EQ(outline[0]->xs, (std::vector<double>{-25000, 25000, 25000, -25000}));
    EXPECT_EQ(outline[0]->ys, (std::vector<double>{25000, 25000, -25000, -25000}));
    EXPECT_NE(outline[0]->color, options.BgColor());
    CPlanImage map(2, 2);
    ASSERT_TRUE(Draw(200, &map));
    EXPECT_EQ(canvas.Of("Image").size(), 1u);
    EXPECT_TRUE(canvas.Of("Polygon").empty());
}

// Selected objects are drawn once more after everything else, in the highlight colour; hidden
// kinds and objects outside the view are not.
TEST_F(PlanLook, SelectedObjectsLastInTheHighlightColour) {
    Open(System(2, 1, NamedTrack(1, "0", "Gleis") + NamedTrack(2, "500", "Gleis")) +
         System(3, 2, NamedTrack(1, "1000", "Tram")) + Building(4, "100", "-800") +
         Building(5, "0", "-2000"));
    auto tracks = Nodes<CNodeGleis>();
    ASSERT_EQ(tracks.size(), 3u);
    tracks[1]->SetSelected(true);
    tracks[2]->SetSelected(true); // a tram track; trams are hidden below
    auto buildings = Nodes<CNodeImmobilie>();
    buildings[0]->SetSelected(true);
    options.SetTrackVisible(2, false);
    ASSERT_TRUE(Draw(150));
    const uint32_t pink = CPlanPainter::kHighlightColor;
    auto first = std::find_if(canvas.calls.begin(), canvas.calls.end(),
                              [pink](const RecordingCanvas::Call& call) { return call.color == pink; });
    ASSERT_NE(first, canvas.calls.end());
    EXPECT_TRUE(std::all_of(first, canvas.calls.end(), [](const RecordingCanvas::Call& call) {
        return call.color == CPlanPainter::kHighlightColor;
    })) << "nothing drawn over the highlight";
    std::vector<std::string> kinds;
    for (auto it = first; it != canvas.calls.end(); ++it)
        kinds.push_back(it->kind);
    EXPECT_EQ(kinds, (std::vector<std::string>{"Polyline", "FilledTurnedSquare"}));
    EXPECT_DOUBLE_EQ(first->ys[0], 500) << "the selected rail track";
    EXPECT_EQ(first->width, 3) << "wider than the track itself";
    // The same object unselected draws no pink at all.
    tracks[1]->SetSelected(false);
    buildings[0]->SetSelected(false);
    ASSERT_TRUE(Draw(150));
    EXPECT_TRUE(std::none_of(canvas.calls.begin(), canvas.calls.end(),
                             [pink](const RecordingCanvas::Call& call) { return call.color == pink; }));
}
