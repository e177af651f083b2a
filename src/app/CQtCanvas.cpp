#include "app/CQtCanvas.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "app/modQtText.h"
#include "plan/CPlanImage.h"

namespace kavrin {

namespace {
// Pixel coordinates beyond this distance from the picture are clipped before drawing.
constexpr double kSlack = 4096;
// Marks up to this size in pixels are told apart by the pixel they stand on; shapes up to the
// larger size are set straight into the picture (their fills with hard edges, which the outline
// drawn over them smooths).
constexpr double kDirectMark = 16;
constexpr double kDirectShape = 512;
// Polygons of up to this many corners may go straight into the picture.
constexpr int kDirectCorners = 8;
// Marks from this size on are told apart by the cell of 2 x 2 pixels their centre falls into.
constexpr double kCoarseMark = 3;
// The text of names and ids on the plan, and the width of its halo.
constexpr int kLabelPixels = 11;
constexpr double kHaloWidth = 3;
// Kinds of marks told apart on one pixel.
enum MarkKind : uint32_t { kSquare, kFilledSquare, kPolygon, kFilledPolygon, kRing, kDisc };
} // namespace

CQtCanvas::CQtCanvas(QPainter& painter, int pixelWidth, int pixelHeight)
    : painter_(painter), width_(pixelWidth), height_(pixelHeight), font_(painter.font()) {
    stamps_.Resize(pixelWidth, pixelHeight);
    font_.setPixelSize(kLabelPixels);
    painter_.setFont(font_);
}

CQtCanvas::CQtCanvas(QPainter& painter, QImage& image) : CQtCanvas(painter, image.width(), image.height()) {
    if (image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32 ||
        image.format() == QImage::Format_ARGB32_Premultiplied)
        raster_ =
            std::make_unique<CHairlineRaster>(reinterpret_cast<uint32_t*>(image.bits()), image.width(),
                                              image.height(), static_cast<int>(image.bytesPerLine() / 4));
    if (raster_)
        raster_->SetAntialiased(painter.testRenderHint(QPainter::Antialiasing));
}

CQtCanvas::~CQtCanvas() {
    Flush();
}

void CQtCanvas::Flush() {
    if (!pending_.empty())
        painter_.drawLines(pending_.data(), static_cast<int>(pending_.size()));
    if (!pendingSquares_.empty()) {
        SetFill(false);
        painter_.drawRects(pendingSquares_.data(), static_cast<int>(pendingSquares_.size()));
    }
    if (!pendingFilled_.empty()) {
        SetFill(true);
        painter_.drawRects(pendingFilled_.data(), static_cast<int>(pendingFilled_.size()));
    }
    pending_.clear();
    pendingSquares_.clear();
    pendingFilled_.clear();
    stamps_.NextGeneration();
}

void CQtCanvas::SetView(double left, double top, double width, double height) {
    left_ = left;
    top_ = top;
    scaleX_ = width != 0 ? width_ / width : 0;
    scaleY_ = height != 0 ? height_ / height : 0;
}

QPointF CQtCanvas::ToPixel(double x, double y) const {
    return {(x - left_) * scaleX_, (y - top_) * scaleY_};
}

bool CQtCanvas::Tame(const QPointF& p) const {
    return p.x() >= -kSlack && p.x() <= width_ + kSlack && p.y() >= -kSlack && p.y() <= height_ + kSlack;
}

void CQtCanvas::Clear(uint32_t color) {
    pending_.clear();
    pendingSquares_.clear();
    pendingFilled_.clear();
    stamps_.NextGeneration();
    painter_.fillRect(QRect(0, 0, width_, height_), ColorFromBgr(color));
}

void CQtCanvas::SetPen(uint32_t color, double widthPx) {
    if (color == color_ && widthPx == penWidth_ && penSet_)
        return;
    Flush();
    penSet_ = true;
    color_ = color;
    if (raster_)
        raster_->SetColor(ColorFromBgr(color).rgb());
    penWidth_ = widthPx;
    QPen pen(ColorFromBgr(color));
    // Thin lines take the painter's fast path for hairlines; only wider ones need round ends.
    if (widthPx <= 1) {
        pen.setWidth(0);
    } else {
        pen.setWidthF(widthPx);
        pen.setCapStyle(Qt::RoundCap);
        pen.setJoinStyle(Qt::RoundJoin);
    }
    painter_.setPen(pen);
}

void CQtCanvas::SetFill(bool filled) {
    painter_.setBrush(filled ? QBrush(ColorFromBgr(color_)) : QBrush(Qt::NoBrush));
}

// A filled shape of the painter is only filled: its outline, where wanted, is drawn apart (often
// in another colour), and stroking the edge twice costs as much as the fill.
void CQtCanvas::FillOnly() {
    painter_.setPen(Qt::NoPen);
    penSet_ = false;
}

void CQtCanvas::Line(double x1, double y1, double x2, double y2) {
    ClippedLine(ToPixel(x1, y1), ToPixel(x2, y2));
}

// Liang-Barsky against the picture widened by the slack; segments with a coordinate that is
// no number are dropped.
void CQtCanvas::ClippedLine(QPointF a, QPointF b) {
    if (Direct()) {
        raster_->Line(a.x(), a.y(), b.x(), b.y());
        return;
    }
    if (Tame(a) && Tame(b)) {
        if (stamps_.FirstSegment(a.x(), a.y(), b.x(), b.y()))
            pending_.emplace_back(a, b);
        return;
    }
    double x0 = a.x(), y0 = a.y(), x1 = b.x(), y1 = b.y();
    if (CHairlineRaster::ClipLine(x0, y0, x1, y1, -kSlack, width_ + kSlack, height_ + kSlack))
        pending_.emplace_back(QPointF(x0, y0), QPointF(x1, y1));
}

void CQtCanvas::Polyline(const double* xs, const double* ys, int n) {
    if (n < 2)
        return;
    if (n > 2 && !Direct() && WidePolyline(xs, ys, n))
        return;
    QPointF previous = ToPixel(xs[0], ys[0]);
    for (int i = 1; i < n; ++i) {
        QPointF next = ToPixel(xs[i], ys[i]);
        ClippedLine(previous, next);
        previous = next;
    }
}

bool CQtCanvas::DirectMark(double sizePx) const {
    return Direct() && sizePx <= kDirectShape;
}

// Marks of a few pixels whose centres fall into the same cell of 2 x 2 pixels look the same:
// only the first is drawn. Larger shapes are always drawn.
bool CQtCanvas::FirstMark(QPointF centre, double sizePx, uint32_t kind) {
    if (sizePx > kDirectMark)
        return true;
    const double cell = sizePx >= kCoarseMark ? 2 : 1;
    return stamps_.FirstMark(centre.x() / cell, centre.y() / cell, kind);
}

// A wide line of many points (a curved track's band) is stroked as one path with round joins:
// far cheaper than stroking each chord with its own round ends. Not for lines reaching far
// beyond the picture, which go by their clipped chords.
bool CQtCanvas::WidePolyline(const double* xs, const double* ys, int n) {
    QPolygonF points;
    points.reserve(n);
    for (int i = 0; i < n; ++i) {
        points.append(ToPixel(xs[i], ys[i]));
        if (!Tame(points.back()))
            return false;
    }
    Flush();
    painter_.drawPolyline(points);
    return true;
}

void CQtCanvas::Circle(double x, double y, double radiusPx, bool filled) {
    QPointF centre = ToPixel(x, y);
    if (!Tame(centre) || !(radiusPx > 0))
        return;
    if (DirectMark(2 * radiusPx)) {
        if (FirstMark(centre, 2 * radiusPx, filled ? kDisc : kRing))
            raster_->Circle(centre.x(), centre.y(), radiusPx, filled);
        return;
    }
    Flush();
    SetFill(filled);
    if (filled)
        FillOnly();
    painter_.drawEllipse(centre, radiusPx, radiusPx);
    if (filled)
        RestorePen();
}

// Small polygons (the symbols of a layout seen from afar) go straight into the picture, one per
// pixel; larger ones, and polygons reaching far beyond the picture, to the painter (outlines
// far out as clipped lines).
void CQtCanvas::Polygon(const double* xs, const double* ys, int n, bool filled) {
    if (n < 2)
        return;
    if (n <= kDirectCorners && PolygonDirect(xs, ys, n, filled))
        return;
    QPolygonF points;
    points.reserve(n);
    bool tame = true;
    for (int i = 0; i < n; ++i) {
        points.append(ToPixel(xs[i], ys[i]));
        tame = tame && Tame(points.back());
    }
    if (!tame) {
        if (!filled)
            for (int i = 0; i < n; ++i)
                ClippedLine(points[i], points[(i + 1) % n]);
        return;
    }
    Flush();
    SetFill(filled);
    if (filled)
        FillOnly();
    painter_.drawPolygon(points);
    if (filled)
        RestorePen();
}

bool CQtCanvas::PolygonDirect(const double* xs, const double* ys, int n, bool filled) {
    if (!Direct())
        return false;
    double px[kDirectCorners], py[kDirectCorners];
    double left = HUGE_VAL, right = -HUGE_VAL, top = HUGE_VAL, bottom = -HUGE_VAL;
    for (int i = 0; i < n; ++i) {
        px[i] = (xs[i] - left_) * scaleX_;
        py[i] = (ys[i] - top_) * scaleY_;
        left = std::min(left, px[i]);
        right = std::max(right, px[i]);
        top = std::min(top, py[i]);
        bottom = std::max(bottom, py[i]);
    }
    const double size = std::max(right - left, bottom - top);
    if (!(size <= kDirectShape))
        return false;
    if (!FirstMark(QPointF((left + right) / 2, (top + bottom) / 2), size, filled ? kFilledPolygon : kPolygon))
        return true;
    if (filled) {
        raster_->FillPolygon(px, py, n);
        return true;
    }
    for (int i = 0; i < n; ++i)
        raster_->Line(px[i], py[i], px[(i + 1) % n], py[(i + 1) % n]);
    return true;
}

void CQtCanvas::Square(double x, double y, double halfPx, bool filled) {
    QPointF centre = ToPixel(x, y);
    if (!Tame(centre) || !stamps_.FirstMark(centre.x(), centre.y(), filled ? kFilledSquare : kSquare))
        return;
    if (Direct()) {
        raster_->Square(centre.x() - halfPx, centre.y() - halfPx, static_cast<int>(std::lround(2 * halfPx)),
                        filled);
        return;
    }
    (filled ? pendingFilled_ : pendingSquares_)
        .emplace_back(centre.x() - halfPx, centre.y() - halfPx, 2 * halfPx, 2 * halfPx);
}

// Small filled squares are stamped into the picture; outlines are four lines; large squares go
// to the painter.
void CQtCanvas::TurnedSquare(double x, double y, double halfPx, double dx, double dy, bool filled) {
    const QPointF centre = ToPixel(x, y);
    const double norm = std::sqrt(dx * dx + dy * dy);
    if (!Tame(centre) || !(halfPx > 0) || !std::isfinite(halfPx))
        return;
    // Pixel y grows downwards.
    const double ux = norm > 0 && std::isfinite(norm) ? dx / norm : 1;
    const double uy = norm > 0 && std::isfinite(norm) ? -dy / norm : 0;
    const bool direct = DirectMark(2 * halfPx);
    if (direct && !FirstMark(centre, 2 * halfPx, filled ? kFilledPolygon : kPolygon))
        return;
    if (direct && filled) {
        raster_->TurnedSquare(centre.x(), centre.y(), halfPx, ux, uy);
        return;
    }
    const double cx = centre.x(), cy = centre.y(), h = halfPx;
    const QPointF corners[4] = {{cx + (ux - uy) * h, cy + (uy + ux) * h},
                                {cx + (-ux - uy) * h, cy + (ux - uy) * h},
                                {cx + (-ux + uy) * h, cy + (-uy - ux) * h},
                                {cx + (ux + uy) * h, cy + (uy - ux) * h}};
    if (direct) {
        for (int i = 0; i < 4; ++i)
            raster_->Line(corners[i].x(), corners[i].y(), corners[(i + 1) % 4].x(), corners[(i + 1) % 4].y());
        return;
    }
    Flush();
    SetFill(filled);
    if (filled)
        FillOnly();
    painter_.drawPolygon(corners, 4);
    if (filled)
        RestorePen();
}

void CQtCanvas::Triangle(double x, double y, double dx, double dy, double sizePx, bool filled) {
    Flush();
    QPointF tip = ToPixel(x, y);
    double norm = std::hypot(dx, dy);
    if (!Tame(tip) || !(norm > 0))
        return;
    // Pixel y grows downwards.
    double ux = dx / norm, uy = -dy / norm;
    QPointF base(tip.x() - ux * sizePx, tip.y() - uy * sizePx);
    QPointF side(-uy * sizePx / 2, ux * sizePx / 2);
    QPolygonF polygon({tip, base + side, base - side});
    SetFill(filled);
    painter_.drawPolygon(polygon);
}

void CQtCanvas::Text(double x, double y, std::string_view text, uint32_t color, int dxPx, int dyPx) {
    Flush();
    QPointF at = ToPixel(x, y);
    if (!Tame(at))
        return;
    painter_.setPen(ColorFromBgr(color));
    painter_.drawText(at + QPointF(dxPx, -dyPx),
                      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    RestorePen();
}

void CQtCanvas::RestorePen() {
    penSet_ = false;
    SetPen(color_, penWidth_);
}

// The halo is the text's outline drawn wide in a light colour, under the text itself.
void CQtCanvas::Label(double x, double y, std::string_view text, uint32_t color, uint32_t halo, int dxPx,
                      int dyPx) {
    Flush();
    const QPointF at = ToPixel(x, y);
    if (!Tame(at))
        return;
    const QString string = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    // (dxPx, dyPx) place the lower-left corner of the text's box; the baseline lies above it.
    const QPointF origin = at + QPointF(dxPx, -dyPx - QFontMetricsF(font_).descent());
    QPainterPath outline;
    outline.addText(origin, font_, string);
    painter_.setBrush(Qt::NoBrush);
    painter_.strokePath(outline,
                        QPen(ColorFromBgr(halo), kHaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setPen(ColorFromBgr(color));
    painter_.drawText(origin, string);
    RestorePen();
}

double CQtCanvas::TextWidth(std::string_view text) const {
    auto [entry, added] = textWidths_.try_emplace(std::string(text), 0.0);
    if (added)
        entry->second = QFontMetricsF(font_).horizontalAdvance(
            QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    return entry->second;
}

double CQtCanvas::TextHeight() const {
    const QFontMetricsF metrics(font_);
    return metrics.ascent() + metrics.descent();
}

// Only the part of the image inside the picture is handed to the painter, so a deep zoom
// does not scale the whole image up.
void CQtCanvas::StretchImage(const CPlanImage& image, const CRect& world) {
    Flush();
    if (image.Empty() || scaleX_ == 0 || scaleY_ == 0)
        return;
    QPointF topLeft = ToPixel(world.Left, world.Top);
    QPointF bottomRight = ToPixel(world.Right, world.Bottom);
    QRectF target(topLeft, bottomRight);
    QRectF visible = target.intersected(QRectF(0, 0, width_, height_));
    if (visible.isEmpty() || !target.isValid())
        return;
    double sx = image.Width() / target.width(), sy = image.Height() / target.height();
    QRectF source((visible.left() - target.left()) * sx, (visible.top() - target.top()) * sy,
                  visible.width() * sx, visible.height() * sy);
    QImage wrapped(reinterpret_cast<const uchar*>(image.Data()), image.Width(), image.Height(),
                   static_cast<qsizetype>(image.Width()) * 4, QImage::Format_RGB32);
    painter_.drawImage(visible, wrapped, source);
}

} // namespace kavrin
