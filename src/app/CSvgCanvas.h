#pragma once

#include <cstdint>
#include <string>

#include "plan/Canvas.h"

namespace kavrin {

// The plan's canvas as an SVG picture: the same drawing code as the window, written as vector
// elements. Line work of one pen is joined into one path; coordinates are pixels of the
// picture with two decimals. Lines far outside the picture are clipped, text is escaped for
// XML, and the background bitmap is embedded as PNG.
class CSvgCanvas : public Canvas {
public:
    CSvgCanvas(int pixelWidth, int pixelHeight);

    int PixelWidth() const override { return width_; }
    int PixelHeight() const override { return height_; }
    void SetView(double left, double top, double width, double height) override;
    void Clear(uint32_t color) override;
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
    // An estimate from the number of characters: the viewer chooses the font.
    double TextWidth(std::string_view text) const override;
    double TextHeight() const override;
    void StretchImage(const CPlanImage& image, const CRect& world) override;
    void Flush() override;

    // The whole document, from the XML declaration to the closing tag.
    std::string Document();

    // Text for XML character data and attribute values: markup characters escaped, characters
    // XML does not allow dropped, broken UTF-8 replaced by "?".
    static std::string XmlText(std::string_view text);

private:
    struct Point {
        double x, y;
    };
    Point ToPixel(double x, double y) const;
    bool Tame(const Point& p) const;
    void Segment(Point a, Point b);
    std::string Paint(bool filled) const;
    // A closed shape through pixel points.
    void PolygonElement(const Point* points, int n, bool filled);

    int width_;
    int height_;
    double left_ = 0, top_ = 0, scaleX_ = 1, scaleY_ = 1;
    uint32_t color_ = 0;
    double penWidth_ = 1;
    std::string body_;
    // The path of the current pen and where it ends, so that joined segments continue it.
    std::string path_;
    Point pathEnd_{0, 0};
    bool pathOpen_ = false;
};

} // namespace kavrin
