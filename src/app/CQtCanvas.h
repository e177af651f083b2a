#pragma once

#include <QFont>
#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/CHairlineRaster.h"
#include "app/CPixelStamps.h"
#include "plan/Canvas.h"

class QImage;
class QPainter;

namespace kavrin {

// The plan's canvas on a QPainter: the window's picture and the PNG export draw through it.
// World coordinates are mapped to pixels here; lines far outside the picture are clipped
// first, so huge coordinates from a damaged file cannot upset the painter. Lines of the same pen
// are collected and drawn together; the owner calls Flush when the drawing is complete. The
// painter's antialiasing hint decides whether edges are smoothed, on both paths.
class CQtCanvas : public Canvas {
public:
    CQtCanvas(QPainter& painter, int pixelWidth, int pixelHeight);
    // On a 32-bit image that the painter draws on: thin lines and marks are then set straight
    // into its pixels, which is many times faster for large layouts.
    CQtCanvas(QPainter& painter, QImage& image);
    ~CQtCanvas() override;

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
    double TextWidth(std::string_view text) const override;
    double TextHeight() const override;
    void StretchImage(const CPlanImage& image, const CRect& world) override;
    void Flush() override;

private:
    QPointF ToPixel(double x, double y) const;
    // Whether a pixel point is near enough to the picture to be handed to the painter as is.
    bool Tame(const QPointF& p) const;
    void ClippedLine(QPointF a, QPointF b);
    bool WidePolyline(const double* xs, const double* ys, int n);
    void SetFill(bool filled);
    void FillOnly();
    // Text drawing changes the painter's pen; this puts the canvas's pen back.
    void RestorePen();
    // Whether a mark of this pixel size goes straight into the picture.
    bool DirectMark(double sizePx) const;
    // A small polygon straight into the picture; false when it is not small or not for the raster.
    bool PolygonDirect(const double* xs, const double* ys, int n, bool filled);
    // Whether a mark is the first of its kind at its place since the pen changed.
    bool FirstMark(QPointF centre, double sizePx, uint32_t kind);

    QPainter& painter_;
    int width_;
    int height_;
    double left_ = 0, top_ = 0, scaleX_ = 1, scaleY_ = 1;
    uint32_t color_ = 0;
    double penWidth_ = 1;
    bool penSet_ = false;
    // Line work and squares of one pen, drawn in one call each: far cheaper than a call per
    // track or building.
    std::vector<QLineF> pending_;
    std::vector<QRectF> pendingSquares_;
    std::vector<QRectF> pendingFilled_;
    CPixelStamps stamps_;
    QFont font_;
    mutable std::unordered_map<std::string, double> textWidths_;
    std::unique_ptr<CHairlineRaster> raster_;
    // The pen is thin and the image can be written directly.
    bool Direct() const { return raster_ && penWidth_ <= 1; }
};

} // namespace kavrin
