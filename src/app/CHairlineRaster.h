#pragma once

#include <cstdint>

namespace kavrin {

// One-pixel lines and small squares written straight into a 32-bit picture. The plan of a
// large layout seen whole is hundreds of thousands of such strokes; handing each one to
// QPainter costs far more than setting its few pixels. Everything is clipped to the picture.
class CHairlineRaster {
public:
    CHairlineRaster(uint32_t* pixels, int width, int height, int pixelsPerLine)
        : pixels_(pixels), width_(width), height_(height), stride_(pixelsPerLine) {}

    // Cuts a segment to the square [lo, hiX] x [lo, hiY] (Liang-Barsky); false when nothing of it
    // is left or a coordinate is no number.
    static bool ClipLine(double& x0, double& y0, double& x1, double& y1, double lo, double hiX, double hiY);

    void SetColor(uint32_t argb) { color_ = argb; }
    // A line between two pixel positions (any values; clipped, non-numbers ignored).
    void Line(double x0, double y0, double x1, double y1);
    // The outline or the whole of the square [x, x + size] x [y, y + size].
    void Square(double x, double y, int size, bool filled);

private:
    void Plot(int x, int y) {
        if (static_cast<unsigned>(x) < static_cast<unsigned>(width_) &&
            static_cast<unsigned>(y) < static_cast<unsigned>(height_))
            pixels_[static_cast<long>(y) * stride_ + x] = color_;
    }
    void Span(int x0, int x1, int y);

    uint32_t* pixels_;
    int width_;
    int height_;
    int stride_;
    uint32_t color_ = 0xFF000000u;
};

} // namespace kavrin
