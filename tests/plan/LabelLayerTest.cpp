// Names and ids on the plan: placed where they overlap no label placed before, else left out.
#include <gtest/gtest.h>

#include "RecordingCanvas.h"
#include "plan/CLabelLayer.h"
#include "plan/CPlanView.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

// A picture of 400 x 300 pixels showing the world 0..400 x 0..300 (1 cm a pixel, y up).
CPlanView View() {
    CPlanView view;
    view.SetLayout(0, 0, 400, 300);
    view.SetClientSize(400, 300);
    view.SetZoom(1);
    return view;
}

struct Box {
    double left, top, right, bottom; // pixels
};

// The pixel boxes of the labels drawn (RecordingCanvas: 7 pixels a character, 12 high).
std::vector<Box> Placed(const RecordingCanvas& canvas, const CPlanView& view) {
    std::vector<Box> boxes;
    for (const auto* text : canvas.Of("Text")) {
        const double left = view.ToPixelX(text->xs[0]) + text->xs[1];
        const double bottom = view.ToPixelY(text->ys[0]) - text->ys[1];
        boxes.push_back({left, bottom - 12, left + 7.0 * static_cast<double>(text->text.size()), bottom});
    }
    return boxes;
}

bool Overlap(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

} // namespace

TEST(LabelLayer, PlacesEachLabelWhereItFitsOrNotAtAll) {
    struct Label {
        double x, y;
        std::string text;
    };
    struct Case {
        const char* what;
        std::vector<Label> labels;
        std::vector<std::string> drawn;
    };
    const Case cases[] = {
        {"far apart: all",
         {{50, 250, "Bahnhof"}, {300, 50, "Kirche"}, {200, 150, "Brücke"}},
         {"Bahnhof", "Kirche", "Brücke"}},
        {"on one point: right, left, above and below it, then no more",
         {{200, 150, "Haus_1"},
          {200, 150, "Haus_2"},
          {200, 150, "Haus_3"},
          {200, 150, "Haus_4"},
          {200, 150, "Haus_5"}},
         {"Haus_1", "Haus_2", "Haus_3", "Haus_4"}},
        {"the same text nearby once, far off again",
         {{20, 150, "Gleis_B"}, {80, 150, "Gleis_B"}, {20, 20, "Gleis_B"}, {330, 20, "Gleis_B"}},
         {"Gleis_B", "Gleis_B"}},
        {"points outside the picture have none", {{-5, 150, "Links"}, {200, 301, "Oben"}}, {}},
        {"at the right edge the text goes to the left of its point", {{395, 150, "Rand"}}, {"Rand"}},
    };
    for (const Case& c : cases) {
        CPlanView view = View();
        RecordingCanvas canvas(400, 300);
        CLabelLayer layer;
        for (const Label& label : c.labels)
            layer.Add(label.x, label.y, label.text, 0x123456, 5, -5);
        EXPECT_EQ(layer.Place(canvas, view, 0xFFFFFF), static_cast<int>(c.drawn.size())) << c.what;
        EXPECT_EQ(layer.Count(), 0u) << c.what;
        std::vector<std::string> drawn;
        for (const auto* text : canvas.Of("Text")) {
            drawn.push_back(text->text);
            EXPECT_EQ(text->width, 0xFFFFFF) << "drawn with its halo";
            EXPECT_NE(text->color, 0x123456u) << "a little darker than the kind's colour";
        }
        EXPECT_EQ(drawn, c.drawn) << c.what;
        for (const Box& box : Placed(canvas, view)) {
            EXPECT_GE(box.left, 0) << c.what;
            EXPECT_LE(box.right, 400) << c.what;
        }
    }
}

// Many names crowded into a small part of the picture: a few readable ones, none covering
// another, with room between them.
TEST(LabelLayer, CrowdedNamesDoNotOverlap) {
    CPlanView view = View();
    RecordingCanvas canvas(400, 300);
    CLabelLayer layer;
    for (int i = 0; i < 2000; ++i)
        layer.Add(100 + (i * 37) % 200, 80 + (i * 53) % 140, "Haus_" + std::to_string(i), 0, 5, -5);
    const int drawn = layer.Place(canvas, view, 0xFFFFFF);
    EXPECT_GT(drawn, 10);
    EXPECT_LT(drawn, 120);
    const std::vector<Box> boxes = Placed(canvas, view);
    ASSERT_EQ(boxes.size(), static_cast<size_t>(drawn));
    for (size_t a = 0; a < boxes.size(); ++a)
        for (size_t b = a + 1; b < boxes.size(); ++b) {
            const Box grown{boxes[a].left - 2, boxes[a].top - 2, boxes[a].right + 2, boxes[a].bottom + 2};
            EXPECT_FALSE(Overlap(grown, boxes[b])) << a << " and " << b;
        }
}
