#pragma once

#include <string>
#include <vector>

#include "plan/Canvas.h"

namespace kavrin {

// A canvas that keeps what is drawn on it and hands it on later to another canvas, in order.
// The plan draws the bands of wide tracks straight away and the line work meant to lie on top
// of all of them through recorders, which are replayed once every band is down. Sizes and text
// measures are those of the canvas it stands in for.
class CCanvasRecorder : public Canvas {
public:
    explicit CCanvasRecorder(const Canvas& target) : target_(target) {}

    int PixelWidth() const override { return target_.PixelWidth(); }
    int PixelHeight() const override { return target_.PixelHeight(); }
    void SetView(double, double, double, double) override {}
    void Clear(uint32_t) override {}
    void SetPen(uint32_t color, double widthPx) override;
    void Line(double x1, double y1, double x2, double y2) override;
    void Polyline(const double* xs, const double* ys, int n) override;
    void Circle(double x, double y, double radiusPx, bool filled) override;
    void Square(double x, double y, double halfPx, bool filled) override;
    void TurnedSquare(double x, double y, double halfPx, double dx, double dy, bool filled) override;
    void Triangle(double x, double y, double dx, double dy, double sizePx, bool filled) override;
    void Polygon(const double* xs, const double* ys, int n, bool filled) override;
    void Text(double x, double y, std::string_view text, uint32_t color, int dxPx, int dyPx) override;
    void Label(double x, double y, std::string_view text, uint32_t color, uint32_t halo, int dxPx,
               int dyPx) override;
    double TextWidth(std::string_view text) const override { return target_.TextWidth(text); }
    double TextHeight() const override { return target_.TextHeight(); }
    void StretchImage(const CPlanImage&, const CRect&) override {}

    bool Empty() const { return ops_.empty(); }
    // Draws everything recorded on `canvas` and forgets it.
    void Replay(Canvas& canvas);

private:
    enum class Op : uint8_t {
        Pen,
        Line,
        Polyline,
        Circle,
        Square,
        TurnedSquare,
        Triangle,
        Polygon,
        Text,
        Label
    };
    struct Entry {
        Op op;
        bool filled;
        int count;      // points of a polyline or polygon
        size_t first;   // first of its numbers in numbers_
        uint32_t color; // pen or text colour
        uint32_t halo;
        int text; // index into texts_
    };
    void Record(Op op, std::initializer_list<double> numbers, bool filled = false);
    void RecordPoints(Op op, const double* xs, const double* ys, int n, bool filled);
    void RecordText(Op op, double x, double y, std::string_view text, uint32_t color, uint32_t halo, int dx,
                    int dy);

    const Canvas& target_;
    std::vector<Entry> ops_;
    std::vector<double> numbers_;
    std::vector<std::string> texts_;
};

} // namespace kavrin
