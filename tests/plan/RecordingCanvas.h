#pragma once

#include <string>
#include <vector>

#include "plan/CPlanImage.h"
#include "plan/Canvas.h"

namespace kavrin::test {

// A canvas that keeps what was drawn, in world coordinates and in order.
class RecordingCanvas : public Canvas {
public:
    struct Call {
        std::string kind; // Clear, Line, Polyline, Circle, Square, Triangle, Text, Image
        uint32_t color = 0;
        std::vector<double> xs, ys;
        std::string text;
    };

    RecordingCanvas(int width = 800, int height = 600) : width_(width), height_(height) {}
    int PixelWidth() const override { return width_; }
    int PixelHeight() const override { return height_; }
    void SetView(double left, double top, double width, double height) override {
        view = CRect(left, top, left + width, top + height);
    }
    void Clear(uint32_t color) override { calls.push_back({"Clear", color, {}, {}, {}}); }
    void SetPen(uint32_t color, double) override { color_ = color; }
    void Line(double x1, double y1, double x2, double y2) override {
        calls.push_back({"Line", color_, {x1, x2}, {y1, y2}, {}});
    }
    void Polyline(const double* xs, const double* ys, int n) override {
        calls.push_back({"Polyline", color_, {xs, xs + n}, {ys, ys + n}, {}});
    }
    void Circle(double x, double y, double, bool) override { Mark("Circle", x, y); }
    void Square(double x, double y, double, bool) override { Mark("Square", x, y); }
    void Triangle(double x, double y, double, double, double, bool) override { Mark("Triangle", x, y); }
    void Text(double x, double y, std::string_view text, uint32_t color, int, int) override {
        calls.push_back({"Text", color, {x}, {y}, std::string(text)});
    }
    void StretchImage(const CPlanImage& image, const CRect& world) override {
        calls.push_back({"Image",
                         0,
                         {world.Left, world.Right},
                         {world.Top, world.Bottom},
                         std::to_string(image.Width()) + "x" + std::to_string(image.Height())});
    }

    std::vector<const Call*> Of(const std::string& kind) const {
        std::vector<const Call*> found;
        for (const Call& call : calls)
            if (call.kind == kind)
                found.push_back(&call);
        return found;
    }

    std::vector<Call> calls;
    // The world window set last.
    CRect view;

private:
    void Mark(const char* kind, double x, double y) { calls.push_back({kind, color_, {x}, {y}, {}}); }
    int width_;
    int height_;
    uint32_t color_ = 0;
};

} // namespace kavrin::test
