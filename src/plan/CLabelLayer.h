#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kavrin {

class Canvas;
class CPlanView;

// The names and ids written on the plan. They are collected while the objects are drawn and
// placed at the end, above everything: each one in the first of a few spots around its point
// where it overlaps no label placed before (with some room between them), else not at all.
// So a view with more names than room shows as many as fit, readable, instead of a black mass;
// a text already placed nearby (the style of a run of track pieces) is not written again.
class CLabelLayer {
public:
    // Pixels kept free around every label.
    static constexpr int kGap = 4;
    // A text is not repeated closer than this many pixels (the track style on every piece).
    static constexpr double kRepeat = 300;

    // A label for a world point; (dxPx, dyPx) is where its lower-left corner goes by preference,
    // in pixels from the point (y up).
    void Add(double x, double y, std::string text, uint32_t color, int dxPx, int dyPx);
    size_t Count() const { return labels_.size(); }
    void Clear() { labels_.clear(); }

    // Places and draws the labels in the order they were added, with a halo in `halo`; returns
    // how many were drawn. The layer is empty afterwards.
    int Place(Canvas& canvas, const CPlanView& view, uint32_t halo);

private:
    struct Label {
        double x, y;
        std::string text;
        uint32_t color;
        int dx, dy;
    };
    // The occupied cells of the picture, kCell pixels square.
    class Occupancy {
    public:
        Occupancy(int width, int height);
        bool Free(double left, double top, double right, double bottom) const;
        void Take(double left, double top, double right, double bottom);

    private:
        bool Cells(double left, double top, double right, double bottom, int& x0, int& y0, int& x1,
                   int& y1) const;
        int columns_, rows_;
        std::vector<bool> taken_;
    };
    static constexpr int kCell = 4;

    std::vector<Label> labels_;
};

} // namespace kavrin
