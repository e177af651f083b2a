#include <gtest/gtest.h>

#include "core/CError.h"
#include "nodes/CBox.h"
#include "nodes/CPoints.h"
#include "nodes/CRect.h"

using namespace kavrin;

namespace {

TEST(CRect, NormalizeWidthHeightAndInclusiveContains) {
    CRect rect(5, 0, 1, 3); // Left, Top, Right, Bottom
    rect.Normalize();
    EXPECT_EQ(rect.Left, 1);
    EXPECT_EQ(rect.Right, 5);
    EXPECT_EQ(rect.Top, 3);
    EXPECT_EQ(rect.Bottom, 0);
    EXPECT_EQ(rect.Width(), 4);
    EXPECT_EQ(rect.Height(), -3);
    EXPECT_TRUE(rect.Contains(1, 0));
    EXPECT_TRUE(rect.Contains(5, 3));
    EXPECT_FALSE(rect.Contains(5.0001, 3));
}

TEST(CBox, FirstAddSetsAllSidesThenGrows) {
    CBox box;
    EXPECT_TRUE(box.IsEmpty());
    box.Add(1, 2, 3);
    EXPECT_EQ(box.West, 1);
    EXPECT_EQ(box.East, 1);
    EXPECT_EQ(box.North, 2);
    EXPECT_EQ(box.South, 2);
    EXPECT_EQ(box.Bottom, 3);
    EXPECT_EQ(box.Top, 3);
    box.Add(-1, 5, 0);
    box.Move(10, 0, 1);
    EXPECT_EQ(box.West, 9);
    EXPECT_EQ(box.East, 11);
    EXPECT_EQ(box.North, 5);
    EXPECT_EQ(box.Bottom, 1);
}

TEST(CPoints, CountDiscardsAndBoundsAreChecked) {
    CPoints points;
    EXPECT_THROW(points.SetCount(0), CError);
    points.SetCount(3);
    points.SetPoint(2, 1.5f, -2);
    EXPECT_EQ(points.X(2), 1.5f);
    EXPECT_THROW(points.SetPoint(3, 0, 0), CError);
    EXPECT_THROW(points.Y(-1), CError);
    points.SetCount(3);
    EXPECT_EQ(points.X(2), 0.0f);
}

} // namespace
