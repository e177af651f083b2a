#include <gtest/gtest.h>

#include <cmath>

#include "PlanLayoutText.h"
#include "nodes/CVector.h"
#include "plan/CContentBox.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

// The layout of the fixture: 500 m square around the origin, -25000 .. 25000 cm.
const CRect kLayout(-25000, 25000, 25000, -25000);

std::string Good(const std::string& x, const std::string& y) {
    return "<Goods count=\"1\"><Good gsbname=\"\\Kiste.gsb\">" + FrameText(x, y) + "</Good></Goods>";
}

class ContentBox : public SceneryLayoutFixture {
protected:
    std::optional<CRect> Box(const std::string& inner) {
        if (!LoadInner(inner))
            return CRect(-1, -1, -1, -1);
        return CContentBox::Of(anlage, kLayout);
    }
};

} // namespace

TEST_F(ContentBox, CoversTracksBuildingsAndGoodsInsideTheLayout) {
    struct Case {
        const char* what;
        std::string inner;
        CRect box;
    };
    const double radius = 2000;
    const Case cases[] = {
        {"a straight piece", System(2, 1, Track(1, "100", "200", "0", 0, 1000)), {100, 200, 1100, 200}},
        {"a quarter circle, its middle included",
         System(2, 1, Track(1, "0", "0", "0", 1 / radius, kPi * radius / 2)),
         {0, radius, radius, 0}},
        {"tracks and a building of each kind",
         System(2, 3, Track(1, "0", "0", "0", 0, 500)) + Building(4, "-3000", "700") +
             Building(5, "200", "-900") + Building(1, "4000", "0"),
         {-3000, 700, 4000, -900}},
        {"a good", Good("-100", "-200"), {-100, -200, -100, -200}},
        {"the switchboard and steering tracks are not on the plan",
         System(2, 6, Track(1, "-20000", "0", "0", 0, 500)) +
             System(3, 5, Track(1, "20000", "0", "0", 0, 500)) + Building(4, "10", "20"),
         {10, 20, 10, 20}},
        {"damaged coordinates are left out",
         System(2, 1, Track(1, "1E+300", "0", "0", 0, 500) + Track(2, "0", "-1E+300", "0", 0, 500)) +
             Building(4, "30000", "0") + Building(5, "10", "20"),
         {10, 20, 10, 20}},
    };
    for (const Case& c : cases) {
        std::optional<CRect> box = Box(c.inner);
        ASSERT_TRUE(box) << c.what;
        EXPECT_NEAR(box->Left, c.box.Left, 0.01) << c.what;
        EXPECT_NEAR(box->Top, c.box.Top, 0.01) << c.what;
        EXPECT_NEAR(box->Right, c.box.Right, 0.01) << c.what;
        EXPECT_NEAR(box->Bottom, c.box.Bottom, 0.01) << c.what;
    }
}

TEST_F(ContentBox, AnEmptyLayoutHasNone) {
    EXPECT_FALSE(Box(""));
    EXPECT_FALSE(Box(Building(4, "90000", "0"))) << "only outside the layout";
}

// The opening view: the content fills the picture, not the layout rectangle.
TEST_F(ContentBox, FitToContentOrTheWholeLayout) {
    ASSERT_TRUE(LoadInner(System(2, 1, Track(1, "0", "0", "0", 0, 4000)) + Building(4, "2000", "1000")));
    CPlanView view;
    ASSERT_TRUE(CPlanPainter::InitView(view, anlage));
    view.SetClientSize(800, 400);
    ASSERT_TRUE(CPlanPainter::FitToContent(view, anlage));
    EXPECT_GT(view.Zoom(), 1);
    EXPECT_NEAR(view.CentreX(), 2000, 1e-6);
    EXPECT_NEAR(view.CentreY(), 500, 1e-6);
    EXPECT_LE(view.Left(), 0);
    EXPECT_GE(view.Left() + view.Width(), 4000);
    EXPECT_LT(view.Width(), 4000 * 1.2) << "the content fills the picture";

    ASSERT_TRUE(LoadInner(""));
    ASSERT_TRUE(CPlanPainter::InitView(view, anlage));
    ASSERT_TRUE(CPlanPainter::FitToContent(view, anlage));
    EXPECT_EQ(view.Zoom(), 1.0f);
    EXPECT_EQ(view.ZoomIndex(), 0);
}
