#pragma once

#include "plan/Canvas.h"

namespace kavrin {

// A canvas of a given size that draws nothing: the plan's arithmetic runs in full all the same,
// so every object learns whether it is on the plan. For measuring and for checks that only need
// the drawing to run.
class CNullCanvas : public Canvas {
public:
    CNullCanvas(int width, int height) : width_(width), height_(height) {}

    int PixelWidth() const override { return width_; }
    int PixelHeight() const override { return height_; }
    void SetView(double, double, double, double) override {}
    void Clear(uint32_t) override {}
    void SetPen(uint32_t, double) override {}
    void Line(double, double, double, double) override {}
    void Polyline(const double*, const double*, int) override {}
    void Circle(double, double, double, bool) override {}
    void Square(double, double, double, bool) override {}
    void TurnedSquare(double, double, double, double, double, bool) override {}
    void Triangle(double, double, double, double, double, bool) override {}
    void Polygon(const double*, const double*, int, bool) override {}
    void Text(double, double, std::string_view, uint32_t, int, int) override {}
    void Label(double, double, std::string_view, uint32_t, uint32_t, int, int) override {}
    // About the size of the window's font, so that labels are placed as often as there.
    double TextWidth(std::string_view text) const override { return 7.0 * static_cast<double>(text.size()); }
    double TextHeight() const override { return 12; }
    void StretchImage(const CPlanImage&, const CRect&) override {}

private:
    int width_;
    int height_;
};

} // namespace kavrin
