#include "app/CQtCanvas.h"

#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "app/modQtText.h"
#include "plan/CPlanImage.h"

namespace kavrin {

namespace {
// Pixel coordinates beyond this distance from the picture are clipped before drawing.
constexpr double kSlack = 4096;
} // namespace

CQtCanvas::CQtCanvas(QPainter& painter, int pixelWidth, int pixelHeight)
    : painter_(painter), width_(pixelWidth), height_(pixelHeight) {
    stamps_.Resize(pixelWidth, pixelHeight);
}

CQtCanvas::CQtCanvas(QPainter& painter, QImage& image) : CQtCanvas(painter, image.width(), image.height()) {
    if (image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32 ||
        image.format() == QImage::Format_ARGB32_Premultiplied)
        raster_ =
            std::make_unique<CHairlineRaster>(reinterpret_cast<uint32_t*>(image.bits()), image.width(),
                                              image.height(), static_cast<int>(image.bytesPerLine() / 4));
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
    QPointF previous = ToPixel(xs[0], ys[0]);
    for (int i = 1; i < n; ++i) {
        QPointF next = ToPixel(xs[i], ys[i]);
        ClippedLine(previous, next);
        previous = next;
    }
}

void CQtCanvas::Circle(double x, double y, double radiusPx, bool filled) {
    Flush();
    QPointF centre = ToPixel(x, y);
    if (!Tame(centre))
        return;
    SetFill(filled);
    painter_.drawEllipse(centre, radiusPx, radiusPx);
}

void CQtCanvas::Square(double x, double y, double halfPx, bool filled) {
    QPointF centre = ToPixel(x, y);
    if (!Tame(centre) || !stamps_.FirstMark(centre.x(), centre.y(), filled ? 1 : 0))
        return;
    if (Direct()) {
        raster_->Square(centre.x() - halfPx, centre.y() - halfPx, static_cast<int>(std::lround(2 * halfPx)),
                        filled);
        return;
    }
    (filled ? pendingFilled_ : pendingSquares_)
        .emplace_back(centre.x() - halfPx, centre.y() - halfPx, 2 * halfPx, 2 * halfPx);
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
    penSet_ = false;
    SetPen(color_, penWidth_);
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
