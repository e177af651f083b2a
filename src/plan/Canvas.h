#pragma once

#include <cstdint>
#include <string_view>

#include "nodes/CRect.h"

namespace kavrin {

class CPlanImage;

// What the plan is drawn on: the window's picture, an off-screen image for export, or a
// recording canvas in tests. Coordinates are world units (cm, y up); the canvas maps them to
// its pixels through the view window set last. Colours are 24-bit values, red in the low byte.
// Sizes of marks and widths are in pixels (the symbols work out what a size in metres comes to).
class Canvas {
public:
    virtual ~Canvas() = default;

    virtual int PixelWidth() const = 0;
    virtual int PixelHeight() const = 0;
    // The world window shown: left, top, width (> 0) and height (< 0, y grows upwards).
    virtual void SetView(double left, double top, double width, double height) = 0;

    virtual void Clear(uint32_t color) = 0;
    virtual void SetPen(uint32_t color, double widthPx) = 0;
    virtual void Line(double x1, double y1, double x2, double y2) = 0;
    // Joins n points (xs[i], ys[i]) with lines.
    virtual void Polyline(const double* xs, const double* ys, int n) = 0;
    // A circle of the given pixel radius around a world point, in the pen's colour.
    virtual void Circle(double x, double y, double radiusPx, bool filled) = 0;
    // An axis-aligned square of the given pixel half-size around a world point.
    virtual void Square(double x, double y, double halfPx, bool filled) = 0;
    // A square of the given pixel half-size around a world point, turned so that one side faces
    // the world direction (dx, dy).
    virtual void TurnedSquare(double x, double y, double halfPx, double dx, double dy, bool filled) = 0;
    // A triangle pointing along (dx, dy) (a world direction), of the given pixel size.
    virtual void Triangle(double x, double y, double dx, double dy, double sizePx, bool filled) = 0;
    // A closed polygon through n world points, in the pen's colour; filled or outlined.
    virtual void Polygon(const double* xs, const double* ys, int n, bool filled) = 0;
    // UTF-8 text whose lower-left corner is offset by (dxPx, dyPx) pixels from a world point.
    virtual void Text(double x, double y, std::string_view text, uint32_t color, int dxPx = 0,
                      int dyPx = 0) = 0;
    // Text as Text draws it, inside a light outline (halo) that keeps it readable over lines.
    virtual void Label(double x, double y, std::string_view text, uint32_t color, uint32_t halo, int dxPx,
                       int dyPx) = 0;
    // The size in pixels that Text and Label give a text.
    virtual double TextWidth(std::string_view text) const = 0;
    virtual double TextHeight() const = 0;
    // An image stretched onto a world rectangle (normalised: Top >= Bottom).
    virtual void StretchImage(const CPlanImage& image, const CRect& world) = 0;
    // Hands on what a canvas collected to draw in one go; called at the end of a drawing.
    virtual void Flush() {}
};

} // namespace kavrin
