#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace kavrin {

// One-pixel lines and small marks written straight into a 32-bit picture. The plan of a large
// layout seen whole is hundreds of thousands of such strokes; handing each one to QPainter
// costs far more than setting its few pixels. Lines and circles are smoothed (each pixel takes
// the colour by the share of it that the stroke covers) unless that is switched off.
// Everything is clipped to the picture.
class CHairlineRaster {
public:
    CHairlineRaster(uint32_t* pixels, int width, int height, int pixelsPerLine)
        : pixels_(pixels), width_(width), height_(height), stride_(pixelsPerLine) {}

    // Cuts a segment to the square [lo, hiX] x [lo, hiY] (Liang-Barsky); false when nothing of it
    // is left or a coordinate is no number.
    static bool ClipLine(double& x0, double& y0, double& x1, double& y1, double lo, double hiX, double hiY);

    void SetColor(uint32_t argb) { color_ = argb; }
    void SetAntialiased(bool on) {
        antialiased_ = on;
        stampRadius_ = -1;
        squares_.clear();
    }
    // A line between two pixel positions (any values; clipped, non-numbers ignored).
    void Line(double x0, double y0, double x1, double y1);
    // The outline or the whole of the square [x, x + size] x [y, y + size].
    void Square(double x, double y, int size, bool filled);
    // A disc, or a ring one pixel wide, of radius r around a pixel position.
    void Circle(double cx, double cy, double r, bool filled);
    // A filled square of half size `half` around a pixel position, one side facing (ux, uy)
    // (a unit vector in pixel directions, y down).
    void TurnedSquare(double cx, double cy, double half, double ux, double uy);
    // The inside of a polygon of n pixel positions (the pixels whose centres lie inside, by the
    // even-odd rule); an outline is drawn with Line.
    void FillPolygon(const double* xs, const double* ys, int n);

private:
    void Plot(int x, int y) {
        if (static_cast<unsigned>(x) < static_cast<unsigned>(width_) &&
            static_cast<unsigned>(y) < static_cast<unsigned>(height_))
            pixels_[static_cast<long>(y) * stride_ + x] = color_;
    }
    void Span(int x0, int x1, int y);
    // Mixes the colour into a pixel by a coverage between 0 and 1 (red and blue, and green, in
    // one multiplication each).
    void Blend(int x, int y, double coverage) {
        if (coverage > 0)
            BlendAlpha(x, y, coverage >= 0.998 ? 256u : static_cast<uint32_t>(coverage * 256 + 0.5));
    }
    // The same with the coverage in 256ths.
    void BlendAlpha(int x, int y, uint32_t a) {
        if (a == 0 || static_cast<unsigned>(x) >= static_cast<unsigned>(width_) ||
            static_cast<unsigned>(y) >= static_cast<unsigned>(height_))
            return;
        BlendInto(pixels_[static_cast<long>(y) * stride_ + x], a);
    }
    void BlendInto(uint32_t& pixel, uint32_t a) const {
        if (a >= 256) {
            pixel = color_;
            return;
        }
        const uint32_t rb = ((color_ & 0xFF00FFu) * a + (pixel & 0xFF00FFu) * (256 - a)) >> 8;
        const uint32_t g = ((color_ & 0x00FF00u) * a + (pixel & 0x00FF00u) * (256 - a)) >> 8;
        pixel = 0xFF000000u | (rb & 0xFF00FFu) | (g & 0x00FF00u);
    }
    void SharpLine(double x0, double y0, double x1, double y1);
    void StampDisc(double cx, double cy, double r);
    struct StampPixel {
        int dx, dy;
        uint32_t alpha;
    };
    // Sets the covered pixels of a mask around the pixel (x, y).
    void Stamp(int x, int y, const std::vector<StampPixel>& stamp, int reach);
    void SmoothLine(double x0, double y0, double x1, double y1);
    template <bool Steep> void WuRun(double a0, double b0, double a1, double b1);
    // The two pixels a smooth line passes between at one step along its major axis.
    template <bool Steep> void Plot2(int major, int low, uint32_t lowAlpha, uint32_t highAlpha) {
        if (Steep) {
            BlendAlpha(low, major, lowAlpha);
            BlendAlpha(low + 1, major, highAlpha);
        } else {
            BlendAlpha(major, low, lowAlpha);
            BlendAlpha(major, low + 1, highAlpha);
        }
    }

    uint32_t* pixels_;
    int width_;
    int height_;
    int stride_;
    uint32_t color_ = 0xFF000000u;
    bool antialiased_ = true;
    // The covered pixels of the last small disc's radius: offsets and coverage in 256ths.
    static constexpr double kStampRadius = 4;
    double stampRadius_ = -1;
    int stampReach_ = 0;
    std::vector<StampPixel> stamp_;
    // The masks of small turned squares, by size (in quarter pixels) and angle.
    static constexpr double kStampHalf = 4;
    std::unordered_map<uint32_t, std::vector<StampPixel>> squares_;
};

} // namespace kavrin
