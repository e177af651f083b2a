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
        // Clear, Line, Polyline, Circle, Disc, Square, (Filled)TurnedSquare, Triangle,
        // (Filled)Polygon, Text, Image. A turned square keeps its direction as the second point.
        std::string kind;
        uint32_t color = 0;
        double width = 0; // the pen's width in pixels, or a mark's size; a text's halo colour
        std::vector<double> xs, ys;
        std::string text;
    };

    RecordingCanvas(int width = 800, int height = 600) : width_(width), height_(height) {}
    int PixelWidth() const override { return width_; }
    int PixelHeight() const override { return height_; }
    void SetView(double left, double top, double width, double height) override {
        view = CRect(left, top, left + width, top + height);
    }
    void Clear(uint32_t color) override { calls.push_back({"Clear", color, 0, {}, {}, {}}); }
    void SetPen(uint32_t color, double width) override {
        color_ = color;
        penWidth_ = width;
    }
    void Line(double x1, double y1, double x2, double y2) override {
        calls.push_back({"Line", color_, penWidth_, {x1, x2}, {y1, y2}, {}});
    }
    void Polyline(const double* xs, const double* ys, int n) override {
        calls.push_back({"Polyline", color_, penWidth_, {xs, xs + n}, {ys, ys + n}, {}});
    }
    void Circle(double x, double y, double radius, bool filled) override {
        Mark(filled ? "Disc" : "Circle", x, y, radius);
    }
    void Square(double x, double y, double half, bool) override { Mark("Square", x, y, half); }
    void TurnedSquare(double x, double y, double half, double dx, double dy, bool filled) override {
        calls.push_back({filled ? "FilledTurnedSquare" : "TurnedSquare", color_, half, {x, dx}, {y, dy}, {}});
    }
    void Triangle(double x, double y, double, double, double size, bool) override {
        Mark("Triangle", x, y, size);
    }
    void Polygon(const double* xs, const double* ys, int n, bool filled) override {
        calls.push_back(
            {filled ? "FilledPolygon" : "Polygon", color_, penWidth_, {xs, xs + n}, {ys, ys + n}, {}});
    }
    void Text(double x, double y, std::string_view text, uint32_t color, int dx, int dy) override {
        calls.push_back({"Text", color, 0, {x, double(dx)}, {y, double(dy)}, std::string(text)});
    }
    void Label(double x, double y, std::string_view text, uint32_t color, uint32_t halo, int dx,
               int dy) override {
        calls.push_back({"Text", color, double(halo), {x, double(dx)}, {y, double(dy)}, std::string(text)});
    }
    // Every character 7 pixels wide, lines 12 high.
    double TextWidth(std::string_view text) const override { return 7.0 * static_cast<double>(text.size()); }
    double TextHeight() const override { return 12; }
    void StretchImage(const CPlanImage& image, const CRect& world) override {
        calls.push_back({"Image",
                         0,
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
    void Mark(const char* kind, double x, double y, double size) {
        calls.push_back({kind, color_, size, {x}, {y}, {}});
    }
    int width_;
    int height_;
    uint32_t color_ = 0;
    double penWidth_ = 1;
};

} // namespace kavrin::test
