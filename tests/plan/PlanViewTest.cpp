#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "plan/CHoehenFilter.h"
#include "plan/CPlanView.h"

using namespace kavrin;

namespace {

CPlanView View(double extX, double extY, int width = 1000, int height = 500) {
    CPlanView view;
    view.SetLayout(-extX / 2, -extY / 2, extX, extY);
    view.SetClientSize(width, height);
    view.BuildZoomSteps();
    return view;
}

std::vector<float> Steps(double longer) {
    return View(longer, longer / 2).ZoomSteps();
}

} // namespace

TEST(PlanView, ZoomStepsFollowTheLongerSide) {
    EXPECT_EQ(Steps(7499), std::vector<float>{1});
    EXPECT_EQ(Steps(7500), (std::vector<float>{1, 2})); // 1.5 rounds half to even: 2
    EXPECT_EQ(Steps(12500), (std::vector<float>{1, 2}));
    EXPECT_EQ(Steps(500000), (std::vector<float>{1, 2, 4, 8, 16, 32, 64, 128}));
    EXPECT_EQ(Steps(0), std::vector<float>{1});
    EXPECT_EQ(Steps(std::numeric_limits<double>::quiet_NaN()), std::vector<float>{1});
}

TEST(PlanView, RebuildingForASmallerLayoutDropsSteps) {
    CPlanView view = View(500000, 500000);
    ASSERT_EQ(view.ZoomSteps().size(), 8u);
    view.SelectZoom(2);
    // Shrinking stops at the first step not above twice the new maximum, so a list that
    // shrinks keeps one step more than a list built afresh.
    view.SetLayout(0, 0, 20000, 20000); // maximum 4
    view.BuildZoomSteps();
    EXPECT_EQ(view.ZoomSteps(), (std::vector<float>{1, 2, 4, 8}));
    EXPECT_EQ(view.ZoomIndex(), 2) << "the selected entry survives";
    EXPECT_EQ(View(20000, 20000).ZoomSteps(), (std::vector<float>{1, 2, 4}));
    view.SetLayout(0, 0, 5000, 5000); // maximum 1
    view.BuildZoomSteps();
    EXPECT_EQ(view.ZoomSteps(), (std::vector<float>{1, 2}));
    EXPECT_EQ(view.ZoomIndex(), 1) << "a vanished entry gives way to the last one";
}

TEST(PlanView, ZoomCommandsAndRecentring) {
    CPlanView view = View(100000, 100000);
    EXPECT_EQ(view.ZoomIndex(), static_cast<int>(view.ZoomSteps().size()) - 1)
        << "last entry when none was chosen";
    EXPECT_FALSE(view.CanZoomIn());
    EXPECT_FALSE(view.ZoomIn());
    view.World();
    EXPECT_FALSE(view.CanZoomOut());
    EXPECT_TRUE(view.CanZoomIn());
    view.ZoomIn();
    view.SetCentre(1234, -567);
    view.ZoomIn(); // 2 -> 4 keeps the centre
    EXPECT_EQ(view.Zoom(), 4.0f);
    EXPECT_DOUBLE_EQ(view.CentreX(), 1234);
    EXPECT_DOUBLE_EQ(view.CentreY(), -567);
    EXPECT_FALSE(view.SetZoom(4)) << "the same factor changes nothing";
    view.World();
    EXPECT_DOUBLE_EQ(view.CentreX(), 0);
    EXPECT_DOUBLE_EQ(view.CentreY(), 0);
}

TEST(PlanView, ScalePlanKeepsOneScaleAndTouchesTheTighterAxis) {
    CPlanView wide = View(10000, 10000, 1000, 500); // square layout, wide window
    wide.World();
    ASSERT_TRUE(wide.Scaled());
    EXPECT_DOUBLE_EQ(wide.Height(), -10000);
    EXPECT_DOUBLE_EQ(wide.Width(), 20000);
    EXPECT_DOUBLE_EQ(wide.Left(), -10000);
    EXPECT_DOUBLE_EQ(wide.Top(), 5000);
    EXPECT_DOUBLE_EQ(wide.ScrollRangeX(), -10000);

    CPlanView tall = View(10000, 10000, 400, 800);
    tall.World();
    EXPECT_DOUBLE_EQ(tall.Width(), 10000);
    EXPECT_DOUBLE_EQ(tall.Height(), -20000);
    EXPECT_DOUBLE_EQ(tall.Width() / 400, -tall.Height() / 800) << "same scale on both axes";
}

TEST(PlanView, ScalePlanRefusesWhatCannotBeDrawn) {
    CPlanView view = View(10000, 10000, 0, 500);
    EXPECT_FALSE(view.ScalePlan());
    view.SetClientSize(500, 0);
    EXPECT_FALSE(view.ScalePlan());
    CPlanView empty = View(0, 0);
    EXPECT_FALSE(empty.ScalePlan());
    CPlanView huge = View(1e308, 1e308);
    huge.SetZoom(1);
    huge.SetCentre(1e308, 1e308);
    EXPECT_FALSE(huge.ScalePlan()) << "overflowing arithmetic is no view";
    CPlanView none;
    none.SetClientSize(100, 100);
    EXPECT_FALSE(none.ScalePlan()) << "no zoom yet";
}

TEST(PlanView, ScrollValuesMoveTheCentreWithinTheLayout) {
    CPlanView view = View(100000, 50000, 1000, 500);
    view.SelectZoom(2); // factor 4: visible 25000 x 12500
    ASSERT_DOUBLE_EQ(view.Width(), 25000);
    view.SetScrollValueX(0);
    view.SetScrollValueY(0);
    EXPECT_DOUBLE_EQ(view.Left(), -50000);
    EXPECT_DOUBLE_EQ(view.Top(), 25000);
    view.SetScrollValueX(1e9);
    view.SetScrollValueY(-5);
    EXPECT_DOUBLE_EQ(view.Left() + view.Width(), 50000) << "clamped to the range";
    EXPECT_DOUBLE_EQ(view.ScrollValueX(), view.ScrollRangeX());
    EXPECT_DOUBLE_EQ(view.ScrollValueY(), 0);
}

TEST(PlanView, CullingIncludesTheMarginEdges) {
    CPlanView view = View(10000, 10000, 500, 500);
    view.World(); // window -5000..5000 both ways
    const double r = 100;
    EXPECT_TRUE(view.IsVisible(-5100, 0, r));
    EXPECT_TRUE(view.IsVisible(5100, 5100, r));
    EXPECT_TRUE(view.IsVisible(0, -5100, r));
    EXPECT_FALSE(view.IsVisible(-5100.001, 0, r));
    EXPECT_FALSE(view.IsVisible(0, 5100.001, r));
    EXPECT_FALSE(view.IsVisible(std::numeric_limits<double>::quiet_NaN(), 0, r));
    EXPECT_DOUBLE_EQ(view.ToWorldX(view.ToPixelX(1234)), 1234);
}

TEST(HoehenFilter, LimitsAreInclusiveAndIndependent) {
    CHoehenFilter filter;
    EXPECT_TRUE(filter.inRange(-1e9));
    filter.SetTopLine(1000);
    EXPECT_TRUE(filter.inRange(1000));
    EXPECT_FALSE(filter.inRange(1001));
    EXPECT_TRUE(filter.inRange(-1e9)) << "no lower limit";
    filter.ClearTopLine();
    filter.SetBottomLine(-500);
    EXPECT_FALSE(filter.inRange(-500.5));
    EXPECT_TRUE(filter.inRange(-500));
    EXPECT_FALSE(filter.inRange(std::numeric_limits<double>::quiet_NaN()));
    filter.SetFilter(300, 300);
    EXPECT_TRUE(filter.inRange(300));
    EXPECT_FALSE(filter.inRange(299.9));
    EXPECT_FALSE(filter.inRange(300.1));
    filter.Clear();
    EXPECT_FALSE(filter.Active());
    EXPECT_TRUE(filter.inRange(1e9));
}

TEST(PlanView, FactorsBetweenTheStepsAndTheStepsAroundThem) {
    CPlanView view = View(100000, 100000); // steps 1 .. 32
    view.World();
    ASSERT_TRUE(view.SetZoom(2.5f));
    EXPECT_EQ(view.ZoomIndex(), -1) << "no entry between the steps";
    EXPECT_EQ(view.ZoomSteps()[static_cast<size_t>(view.StepAbove())], 4.0f);
    EXPECT_EQ(view.ZoomSteps()[static_cast<size_t>(view.StepBelow())], 2.0f);
    EXPECT_TRUE(view.ZoomIn());
    EXPECT_EQ(view.Zoom(), 4.0f);
    EXPECT_EQ(view.ZoomIndex(), 2);
    view.SetZoom(3.99999f);
    EXPECT_EQ(view.ZoomIndex(), 2) << "a hair off a step is the step";
    view.SetZoom(40);
    EXPECT_FALSE(view.CanZoomIn()) << "beyond the last step";
    EXPECT_TRUE(view.ZoomOut());
    EXPECT_EQ(view.Zoom(), 32.0f);
    EXPECT_EQ(view.MaxZoom(), 100.0f) << "ten metres across a kilometre";
    EXPECT_EQ(View(5000, 5000).MaxZoom(), 5.0f);
    EXPECT_EQ(View(500000, 500000).MaxZoom(), 500.0f);
    // Rebuilding the steps keeps a factor between them.
    view.SetZoom(5.5f);
    view.BuildZoomSteps();
    EXPECT_EQ(view.Zoom(), 5.5f);
}

TEST(PlanView, ZoomAtKeepsThePointUnderTheMouse) {
    CPlanView view = View(200000, 200000, 1000, 500);
    view.World();
    struct Case {
        float factor;
        double px, py;
    };
    for (const Case& c :
         {Case{1.5f, 500, 250}, Case{3.3f, 400, 200}, Case{7, 600, 300}, Case{2.2f, 450, 260}}) {
        const double x = view.ToWorldX(c.px), y = view.ToWorldY(c.py);
        ASSERT_TRUE(view.ZoomAt(c.factor, c.px, c.py)) << c.factor;
        EXPECT_NEAR(view.ToWorldX(c.px), x, 1e-6 * 200000) << c.factor;
        EXPECT_NEAR(view.ToWorldY(c.py), y, 1e-6 * 200000) << c.factor;
        EXPECT_EQ(view.Zoom(), c.factor);
    }
    // At the picture's corner, which lies beyond the layout at factor 1, the view stays on the
    // layout; beyond the limits the factor is clamped.
    view.World();
    view.ZoomAt(8, 0, 0);
    EXPECT_DOUBLE_EQ(view.Left(), -100000);
    EXPECT_DOUBLE_EQ(view.Top(), 100000);
    EXPECT_TRUE(view.ZoomAt(1e9f, 10, 10));
    EXPECT_EQ(view.Zoom(), view.MaxZoom());
    EXPECT_TRUE(view.ZoomAt(0.01f, 10, 10));
    EXPECT_EQ(view.Zoom(), 1.0f);
    EXPECT_DOUBLE_EQ(view.CentreX(), 0) << "the whole layout, centred";
    EXPECT_FALSE(view.ZoomAt(1, 10, 10)) << "no change";
}

TEST(PlanView, FitToShowsARectangleWhole) {
    struct Case {
        CRect box;
        int width, height;
        float zoom; // expected factor
    };
    // A 1 km square layout around the origin.
    const Case cases[] = {
        {{-10000, 10000, 10000, -10000}, 1000, 1000, 100000.0f / 20000 / 1.08f}, // 200 m square
        {{5000, 5000, 45000, -5000}, 1000, 500, 200000.0f / 40000 / 1.08f},      // wide box, wide window
        {{0, 40000, 1000, -40000}, 1000, 500, 100000.0f / 80000 / 1.08f},        // tall box
        {{-50000, 50000, 50000, -50000}, 800, 600, 1.0f},                        // everything: 1
        {{500, 500, 500, 500}, 1000, 1000, 100000.0f / 2000 / 1.08f},            // a point: 20 m
    };
    for (const Case& c : cases) {
        CPlanView view = View(100000, 100000, c.width, c.height);
        ASSERT_TRUE(view.FitTo(c.box));
        EXPECT_NEAR(view.Zoom(), c.zoom, 1e-3 * c.zoom) << c.box.Left;
        // The whole box is visible.
        EXPECT_LE(view.Left(), c.box.Left);
        EXPECT_GE(view.Left() + view.Width(), c.box.Right);
        EXPECT_GE(view.Top(), c.box.Top);
        EXPECT_LE(view.Top() + view.Height(), c.box.Bottom);
        if (view.Zoom() > 1 && view.ScrollRangeX() > 0) {
            const double middle = (c.box.Left + c.box.Right) / 2;
            const double wanted = std::clamp(middle, -50000 + view.Width() / 2, 50000 - view.Width() / 2);
            EXPECT_NEAR(view.CentreX(), wanted, 1e-6) << "centred on the box as far as the layout allows";
        }
    }
    CPlanView noPicture = View(100000, 100000, 0, 0);
    EXPECT_FALSE(noPicture.FitTo({0, 10, 10, 0}));
    CPlanView view = View(100000, 100000);
    ASSERT_TRUE(view.FitTo({std::nan(""), 0, 10, 0}));
    EXPECT_EQ(view.Zoom(), 1.0f) << "a box that is no number shows the whole layout";
}

TEST(PlanView, ScrollByMovesWithinTheLayout) {
    CPlanView view = View(100000, 100000, 1000, 1000);
    view.SetZoom(4); // 250 m visible, 25 cm a pixel
    const double left = view.Left(), top = view.Top();
    view.ScrollBy(100, -40);
    EXPECT_DOUBLE_EQ(view.Left(), left + 2500);
    EXPECT_DOUBLE_EQ(view.Top(), top + 1000);
    view.ScrollBy(-1e6, -1e6);
    EXPECT_DOUBLE_EQ(view.Left(), -50000);
    EXPECT_DOUBLE_EQ(view.Top(), 50000);
}
