#pragma once

#include <QPointF>
#include <vector>

#include "plan/Canvas.h"

class QPainter;

namespace kavrin {

// The plan's canvas on a QPainter: the window's picture and the PNG export draw through it.
// World coordinates are mapped to pixels here; lines far outside the picture are clipped
// first, so huge coordinates from a damaged file cannot upset the painter.
class CQtCanvas : public Canvas {
public:
    CQtCanvas(QPainter& painter, int pixelWidth, int pixelHeight);

    int PixelWidth() const override { return width_; }
    int PixelHeight() const override { return height_; }
    void SetView(double left, double top, double width, double height) override;
    void Clear(uint32_t color) override;
    void SetPen(uint32_t color, double widthPx) override;
    void Line(double x1, double y1, double x2, double y2) override;
    void Polyline(const double* xs, const double* ys, int n) override;
    void Circle(double x, double y, double radiusPx, bool filled) override;
    void Square(double x, double y, double halfPx, bool filled) override;
    void Triangle(double x, double y, double dx, double dy, double sizePx, bool filled) override;
    void Text(double x, double y, std::string_view text, uint32_t color, int dxPx, int dyPx) override;
    void StretchImage(const CPlanImage& image, const CRect& world) override;

private:
    QPointF ToPixel(double x, double y) const;
    // Whether a pixel point is near enough to the picture to be handed to the painter as is.
    bool Tame(const QPointF& p) const;
    void ClippedLine(QPointF a, QPointF b);
    void SetFill(bool filled);

    QPainter& painter_;
    int width_;
    int height_;
    double left_ = 0, top_ = 0, scaleX_ = 1, scaleY_ = 1;
    uint32_t color_ = 0;
    double penWidth_ = 1;
    std::vector<QPointF> points_;
};

} // namespace kavrin
