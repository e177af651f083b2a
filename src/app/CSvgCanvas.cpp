#include "app/CSvgCanvas.h"

#include <QBuffer>
#include <QImage>
#include <charconv>
#include <cmath>
#include <vector>

#include "app/CHairlineRaster.h"
#include "plan/CPlanImage.h"

namespace kavrin {

namespace {
// Pixel coordinates beyond this distance from the picture are clipped before writing.
constexpr double kSlack = 4096;
constexpr int kFontPx = 12;

// Numbers with a point whatever the locale, two decimals, no needless zeros.
std::string Num(double value) {
    if (std::fabs(value) < 0.005)
        return "0";
    char buffer[32];
    auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 2);
    if (error != std::errc())
        return "0";
    std::string text(buffer, end);
    while (text.back() == '0')
        text.pop_back();
    if (text.back() == '.')
        text.pop_back();
    return text;
}

std::string Colour(uint32_t bgr) {
    static const char* const digits = "0123456789abcdef";
    const uint32_t rgb[3] = {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
    std::string text = "#";
    for (uint32_t part : rgb) {
        text += digits[part >> 4];
        text += digits[part & 0xF];
    }
    return text;
}

// The length of the UTF-8 sequence that starts at `i`, or 0 when it is broken.
size_t Utf8Length(std::string_view text, size_t i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    size_t length = lead < 0x80           ? 1
                    : (lead >> 5) == 0x6  ? 2
                    : (lead >> 4) == 0xE  ? 3
                    : (lead >> 3) == 0x1E ? 4
                                          : 0;
    if (length == 0 || i + length > text.size())
        return 0;
    for (size_t k = 1; k < length; ++k)
        if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80)
            return 0;
    return length;
}
} // namespace

CSvgCanvas::CSvgCanvas(int pixelWidth, int pixelHeight) : width_(pixelWidth), height_(pixelHeight) {}

std::string CSvgCanvas::XmlText(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        const char c = text[i];
        size_t length = Utf8Length(text, i);
        if (length == 0) {
            out += '?';
            ++i;
            continue;
        }
        if (length > 1) {
            out.append(text.substr(i, length));
        } else if (c == '<') {
            out += "&lt;";
        } else if (c == '>') {
            out += "&gt;";
        } else if (c == '&') {
            out += "&amp;";
        } else if (c == '"') {
            out += "&quot;";
        } else if (static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n' || c == '\r') {
            out += c;
        }
        i += length;
    }
    return out;
}

void CSvgCanvas::SetView(double left, double top, double width, double height) {
    left_ = left;
    top_ = top;
    scaleX_ = width != 0 ? width_ / width : 0;
    scaleY_ = height != 0 ? height_ / height : 0;
}

CSvgCanvas::Point CSvgCanvas::ToPixel(double x, double y) const {
    return {(x - left_) * scaleX_, (y - top_) * scaleY_};
}

bool CSvgCanvas::Tame(const Point& p) const {
    return p.x >= -kSlack && p.x <= width_ + kSlack && p.y >= -kSlack && p.y <= height_ + kSlack;
}

std::string CSvgCanvas::Paint(bool filled) const {
    return filled
               ? " fill=\"" + Colour(color_) + "\" stroke=\"none\""
               : " fill=\"none\" stroke=\"" + Colour(color_) + "\" stroke-width=\"" + Num(penWidth_) + "\"";
}

void CSvgCanvas::Clear(uint32_t color) {
    body_.clear();
    path_.clear();
    pathOpen_ = false;
    body_ += "<rect x=\"0\" y=\"0\" width=\"" + std::to_string(width_) + "\" height=\"" +
             std::to_string(height_) + "\" fill=\"" + Colour(color) + "\"/>\n";
}

void CSvgCanvas::SetPen(uint32_t color, double widthPx) {
    if (color == color_ && widthPx == penWidth_)
        return;
    Flush();
    color_ = color;
    penWidth_ = widthPx;
}

void CSvgCanvas::Flush() {
    if (!path_.empty())
        body_ += "<path d=\"" + path_ + "\"" + Paint(false) +
                 " stroke-linecap=\"round\" stroke-linejoin=\"round\"/>\n";
    path_.clear();
    pathOpen_ = false;
}

void CSvgCanvas::Segment(Point a, Point b) {
    if (!(Tame(a) && Tame(b))) {
        double x0 = a.x, y0 = a.y, x1 = b.x, y1 = b.y;
        if (!CHairlineRaster::ClipLine(x0, y0, x1, y1, -kSlack, width_ + kSlack, height_ + kSlack))
            return;
        a = {x0, y0};
        b = {x1, y1};
    }
    if (!pathOpen_ || a.x != pathEnd_.x || a.y != pathEnd_.y)
        path_ += "M" + Num(a.x) + " " + Num(a.y);
    path_ += "L" + Num(b.x) + " " + Num(b.y);
    pathEnd_ = b;
    pathOpen_ = true;
}

void CSvgCanvas::Line(double x1, double y1, double x2, double y2) {
    Segment(ToPixel(x1, y1), ToPixel(x2, y2));
}

void CSvgCanvas::Polyline(const double* xs, const double* ys, int n) {
    for (int i = 1; i < n; ++i)
        Segment(ToPixel(xs[i - 1], ys[i - 1]), ToPixel(xs[i], ys[i]));
}

void CSvgCanvas::Circle(double x, double y, double radiusPx, bool filled) {
    Point centre = ToPixel(x, y);
    if (!Tame(centre))
        return;
    Flush();
    body_ += "<circle cx=\"" + Num(centre.x) + "\" cy=\"" + Num(centre.y) + "\" r=\"" + Num(radiusPx) + "\"" +
             Paint(filled) + "/>\n";
}

void CSvgCanvas::Square(double x, double y, double halfPx, bool filled) {
    Point centre = ToPixel(x, y);
    if (!Tame(centre))
        return;
    Flush();
    body_ += "<rect x=\"" + Num(centre.x - halfPx) + "\" y=\"" + Num(centre.y - halfPx) + "\" width=\"" +
             Num(2 * halfPx) + "\" height=\"" + Num(2 * halfPx) + "\"" + Paint(filled) + "/>\n";
}

void CSvgCanvas::Triangle(double x, double y, double dx, double dy, double sizePx, bool filled) {
    Point tip = ToPixel(x, y);
    double norm = std::hypot(dx, dy);
    if (!Tame(tip) || !(norm > 0))
        return;
    Flush();
    // Pixel y grows downwards.
    double ux = dx / norm, uy = -dy / norm;
    Point base{tip.x - ux * sizePx, tip.y - uy * sizePx};
    Point side{-uy * sizePx / 2, ux * sizePx / 2};
    body_ += "<polygon points=\"" + Num(tip.x) + "," + Num(tip.y) + " " + Num(base.x + side.x) + "," +
             Num(base.y + side.y) + " " + Num(base.x - side.x) + "," + Num(base.y - side.y) + "\"" +
             Paint(filled) + "/>\n";
}

void CSvgCanvas::PolygonElement(const Point* points, int n, bool filled) {
    Flush();
    std::string list;
    for (int i = 0; i < n; ++i)
        list += (i == 0 ? "" : " ") + Num(points[i].x) + "," + Num(points[i].y);
    body_ += "<polygon points=\"" + list + "\"" + Paint(filled) + " stroke-linejoin=\"round\"/>\n";
}

void CSvgCanvas::TurnedSquare(double x, double y, double halfPx, double dx, double dy, bool filled) {
    const Point c = ToPixel(x, y);
    const double norm = std::hypot(dx, dy);
    if (!Tame(c) || !(halfPx > 0) || !std::isfinite(halfPx))
        return;
    // Pixel y grows downwards.
    const double ux = norm > 0 && std::isfinite(norm) ? dx / norm : 1;
    const double uy = norm > 0 && std::isfinite(norm) ? -dy / norm : 0;
    const double h = halfPx;
    const Point corners[4] = {{c.x + (ux - uy) * h, c.y + (uy + ux) * h},
                              {c.x + (-ux - uy) * h, c.y + (ux - uy) * h},
                              {c.x + (-ux + uy) * h, c.y + (-uy - ux) * h},
                              {c.x + (ux + uy) * h, c.y + (uy - ux) * h}};
    PolygonElement(corners, 4, filled);
}

// A polygon reaching far beyond the picture (the terrain's outline seen close) is written as
// clipped lines when it is only outlined, and left out when filled.
void CSvgCanvas::Polygon(const double* xs, const double* ys, int n, bool filled) {
    if (n < 2)
        return;
    std::vector<Point> points;
    bool tame = true;
    for (int i = 0; i < n; ++i) {
        points.push_back(ToPixel(xs[i], ys[i]));
        tame = tame && Tame(points.back());
    }
    if (tame) {
        PolygonElement(points.data(), n, filled);
        return;
    }
    if (!filled)
        for (int i = 0; i < n; ++i)
            Segment(points[static_cast<size_t>(i)], points[static_cast<size_t>((i + 1) % n)]);
}

void CSvgCanvas::Label(double x, double y, std::string_view text, uint32_t color, uint32_t halo, int dxPx,
                       int dyPx) {
    Point at = ToPixel(x, y);
    if (!Tame(at))
        return;
    Flush();
    // The halo is the text's outline, painted under its fill.
    body_ += "<text x=\"" + Num(at.x + dxPx) + "\" y=\"" + Num(at.y - dyPx - kFontPx * 0.2) + "\" fill=\"" +
             Colour(color) + "\" stroke=\"" + Colour(halo) +
             "\" stroke-width=\"3\" stroke-linejoin=\"round\" paint-order=\"stroke\">" + XmlText(text) +
             "</text>\n";
}

double CSvgCanvas::TextWidth(std::string_view text) const {
    size_t characters = 0;
    for (char c : text)
        characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return 0.6 * kFontPx * static_cast<double>(characters);
}

double CSvgCanvas::TextHeight() const {
    return 1.2 * kFontPx;
}

void CSvgCanvas::Text(double x, double y, std::string_view text, uint32_t color, int dxPx, int dyPx) {
    Point at = ToPixel(x, y);
    if (!Tame(at))
        return;
    Flush();
    body_ += "<text x=\"" + Num(at.x + dxPx) + "\" y=\"" + Num(at.y - dyPx) + "\" fill=\"" + Colour(color) +
             "\">" + XmlText(text) + "</text>\n";
}

// Only the part of the image inside the picture is embedded, at no more pixels than it covers.
void CSvgCanvas::StretchImage(const CPlanImage& image, const CRect& world) {
    if (image.Empty() || scaleX_ == 0 || scaleY_ == 0)
        return;
    Point topLeft = ToPixel(world.Left, world.Top);
    Point bottomRight = ToPixel(world.Right, world.Bottom);
    QRectF target(QPointF(topLeft.x, topLeft.y), QPointF(bottomRight.x, bottomRight.y));
    QRectF visible = target.intersected(QRectF(0, 0, width_, height_));
    if (visible.isEmpty() || !target.isValid())
        return;
    Flush();
    double sx = image.Width() / target.width(), sy = image.Height() / target.height();
    QRect source = QRectF((visible.left() - target.left()) * sx, (visible.top() - target.top()) * sy,
                          visible.width() * sx, visible.height() * sy)
                       .toAlignedRect()
                       .intersected(QRect(0, 0, image.Width(), image.Height()));
    QImage wrapped(reinterpret_cast<const uchar*>(image.Data()), image.Width(), image.Height(),
                   static_cast<qsizetype>(image.Width()) * 4, QImage::Format_RGB32);
    QImage part = wrapped.copy(source);
    QSize pixels = visible.size().toSize().expandedTo(QSize(1, 1));
    if (part.width() > pixels.width() || part.height() > pixels.height())
        part = part.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!part.save(&buffer, "PNG"))
        return;
    body_ += "<image x=\"" + Num(visible.left()) + "\" y=\"" + Num(visible.top()) + "\" width=\"" +
             Num(visible.width()) + "\" height=\"" + Num(visible.height()) +
             "\" preserveAspectRatio=\"none\" xlink:href=\"data:image/png;base64," +
             png.toBase64().toStdString() + "\"/>\n";
}

std::string CSvgCanvas::Document() {
    Flush();
    const std::string w = std::to_string(width_), h = std::to_string(height_);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "version=\"1.1\" "
           "width=\"" +
           w + "\" height=\"" + h + "\" viewBox=\"0 0 " + w + " " + h +
           "\" font-family=\"sans-serif\" font-size=\"" + std::to_string(kFontPx) + "\">\n" + body_ +
           "</svg>\n";
}

} // namespace kavrin
