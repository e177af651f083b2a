#include "app/CHairlineRaster.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "nodes/CVector.h"

namespace kavrin {

bool CHairlineRaster::ClipLine(double& x0, double& y0, double& x1, double& y1, double lo, double hiX,
                               double hiY) {
    double dx = x1 - x0, dy = y1 - y0;
    double t0 = 0, t1 = 1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x0 - lo, hiX - x0, y0 - lo, hiY - y0};
    for (int i = 0; i < 4; ++i) {
        if (!std::isfinite(p[i]) || !std::isfinite(q[i]))
            return false;
        if (p[i] == 0) {
            if (q[i] < 0)
                return false;
            continue;
        }
        double t = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1)
            return false;
    }
    x1 = x0 + t1 * dx;
    y1 = y0 + t1 * dy;
    x0 = x0 + t0 * dx;
    y0 = y0 + t0 * dy;
    return true;
}

void CHairlineRaster::Line(double fx0, double fy0, double fx1, double fy1) {
    // Most lines of a plan lie inside the picture and need no clipping.
    const bool inside = fx0 >= 0 && fx1 >= 0 && fy0 >= 0 && fy1 >= 0 && fx0 <= width_ && fx1 <= width_ &&
                        fy0 <= height_ && fy1 <= height_;
    if (!inside && !ClipLine(fx0, fy0, fx1, fy1, -1, width_ + 1, height_ + 1))
        return;
    if (antialiased_)
        SmoothLine(fx0, fy0, fx1, fy1);
    else
        SharpLine(fx0, fy0, fx1, fy1);
}

void CHairlineRaster::SharpLine(double fx0, double fy0, double fx1, double fy1) {
    int x0 = static_cast<int>(std::floor(fx0)), y0 = static_cast<int>(std::floor(fy0));
    int x1 = static_cast<int>(std::floor(fx1)), y1 = static_cast<int>(std::floor(fy1));
    int dx = std::abs(x1 - x0), dy = -std::abs(y1 - y0);
    int sx = x0 < x1 ? 1 : -1, sy = y0 < y1 ? 1 : -1;
    int error = dx + dy;
    for (;;) {
        Plot(x0, y0);
        if (x0 == x1 && y0 == y1)
            return;
        int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            x0 += sx;
        }
        if (twice <= dx) {
            error += dx;
            y0 += sy;
        }
    }
}

void CHairlineRaster::Span(int x0, int x1, int y) {
    if (static_cast<unsigned>(y) >= static_cast<unsigned>(height_))
        return;
    x0 = std::max(x0, 0);
    x1 = std::min(x1, width_ - 1);
    uint32_t* pixel = pixels_ + static_cast<long>(y) * stride_ + x0;
    uint32_t* const end = pixels_ + static_cast<long>(y) * stride_ + x1 + 1;
#ifdef __SSE2__
    // Four pixels a store: the bands of tracks seen close are long spans.
    const __m128i four = _mm_set1_epi32(static_cast<int>(color_));
    for (; end - pixel >= 4; pixel += 4)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pixel), four);
#endif
    for (; pixel < end; ++pixel)
        *pixel = color_;
}

void CHairlineRaster::Square(double fx, double fy, int size, bool filled) {
    if (!(fx > -size - 1 && fy > -size - 1 && fx < width_ + 1 && fy < height_ + 1))
        return;
    int x = static_cast<int>(std::floor(fx)), y = static_cast<int>(std::floor(fy));
    if (filled) {
        for (int row = y; row <= y + size; ++row)
            Span(x, x + size, row);
        return;
    }
    Span(x, x + size, y);
    Span(x, x + size, y + size);
    for (int row = y + 1; row < y + size; ++row) {
        Plot(x, row);
        Plot(x + size, row);
    }
}

namespace {
// floor() for values well inside the int range, without the library call that the baseline
// instruction set needs for it.
int FastFloor(double value) {
    const int whole = static_cast<int>(value);
    return whole - (value < whole ? 1 : 0);
}

double Fraction(double value) {
    return value - FastFloor(value);
}

// The angle of a direction within the quarter turn a square repeats after, as a share of it
// (0 <= share < 1), close enough for choosing one of a few dozen masks without the library's
// arc tangent.
double QuarterTurnShare(double ux, double uy) {
    // Turn by quarter turns into the first quadrant (x > 0, y >= 0).
    if (ux <= 0 && uy > 0) {
        std::swap(ux, uy);
        uy = -uy;
    } else if (ux < 0 && uy <= 0) {
        ux = -ux;
        uy = -uy;
    } else if (ux >= 0 && uy < 0) {
        std::swap(ux, uy);
        ux = -ux;
    }
    if (!(ux > 0))
        return 0;
    // atan(t) for 0 <= t <= 1 within 0.005 rad; above 45 degrees by symmetry.
    auto atan01 = [](double t) { return t * (kPi / 4) - t * (t - 1) * (0.2447 + 0.0663 * t); };
    const double angle = uy <= ux ? atan01(uy / ux) : kPi / 2 - atan01(ux / uy);
    return std::clamp(angle / (kPi / 2), 0.0, 1.0);
}
} // namespace

// Xiaolin Wu's line: along the major axis every column gets the two pixels the line passes
// between, by how near it passes; the ends take the share of their column the segment covers,
// so segments of a polyline join without a dark dot.
void CHairlineRaster::SmoothLine(double x0, double y0, double x1, double y1) {
    // Pixel centres at whole numbers.
    x0 -= 0.5;
    y0 -= 0.5;
    x1 -= 0.5;
    y1 -= 0.5;
    if (std::fabs(y1 - y0) > std::fabs(x1 - x0))
        WuRun<true>(y0, x0, y1, x1);
    else
        WuRun<false>(x0, y0, x1, y1);
}

// One run along the major axis a (x, or y for steep lines); b is the minor axis.
template <bool Steep> void CHairlineRaster::WuRun(double a0, double b0, double a1, double b1) {
    if (a0 > a1) {
        std::swap(a0, a1);
        std::swap(b0, b1);
    }
    const double length = a1 - a0;
    const double gradient = length > 0 ? (b1 - b0) / length : 0;
    auto plot = [this](int major, double minor, double coverage) {
        const int low = FastFloor(minor);
        const double share = minor - low;
        Plot2<Steep>(major, low, static_cast<uint32_t>((1 - share) * coverage * 256 + 0.5),
                     static_cast<uint32_t>(share * coverage * 256 + 0.5));
    };
    const int first = FastFloor(a0 + 0.5);
    const int last = FastFloor(a1 + 0.5);
    if (first == last) {
        plot(first, (b0 + b1) / 2, length);
        return;
    }
    plot(first, b0 + gradient * (first - a0), 1 - Fraction(a0 + 0.5));
    plot(last, b1 + gradient * (last - a1), Fraction(a1 + 0.5));
    // Between the ends in fixed point: 16 bits of fraction.
    const double start = (b0 + gradient * (first + 1 - a0)) * 65536;
    int64_t minor = static_cast<int64_t>(start + (start < 0 ? -0.5 : 0.5));
    const int64_t step = static_cast<int64_t>(gradient * 65536 + (gradient < 0 ? -0.5 : 0.5));
    for (int major = first + 1; major < last; ++major) {
        const uint32_t share = static_cast<uint32_t>(minor >> 8) & 0xFFu;
        Plot2<Steep>(major, static_cast<int>(minor >> 16), 256 - share, share);
        minor += step;
    }
}

// Row by row: the pixels wholly inside the inner edge are set in one span (a disc) or skipped
// (a ring); only those between the inner and the outer edge have their coverage worked out.
void CHairlineRaster::Circle(double cx, double cy, double r, bool filled) {
    if (!(r > 0) || !std::isfinite(cx) || !std::isfinite(cy) || cx < -r - 2 || cy < -r - 2 ||
        cx > width_ + r + 2 || cy > height_ + r + 2)
        return;
    if (filled && r <= kStampRadius) {
        StampDisc(cx, cy, r);
        return;
    }
    const double inner = filled ? std::max(0.0, r - 0.5) : std::max(0.0, r - 1);
    const double outer = filled ? r + 0.5 : r + 1;
    const double inner2 = inner * inner, outer2 = outer * outer;
    const int y0 = std::max(0, FastFloor(cy - outer));
    const int y1 = std::min(height_ - 1, FastFloor(cy + outer));
    auto edge = [&](int x, int y, double d2) {
        const double d = std::sqrt(d2);
        const double coverage = filled ? r + 0.5 - d : 1 - std::fabs(d - r);
        Blend(x, y, antialiased_ ? std::min(1.0, coverage) : (coverage >= 0.5 ? 1 : 0));
    };
    for (int y = y0; y <= y1; ++y) {
        const double dy = y + 0.5 - cy, dy2 = dy * dy;
        if (dy2 >= outer2)
            continue;
        const double reach = std::sqrt(outer2 - dy2);
        // Pixels whose whole square lies within the inner edge (its corner nearest and farthest).
        const double within = dy2 < inner2 ? std::sqrt(inner2 - dy2) - 0.75 : -1;
        const int xa = std::max(0, FastFloor(cx - reach)), xb = std::min(width_ - 1, FastFloor(cx + reach));
        const int ia = within > 0 ? FastFloor(cx - within) + 1 : xb + 1;
        const int ib = within > 0 ? FastFloor(cx + within) - 1 : xb;
        for (int x = xa; x <= xb; ++x) {
            if (x >= ia && x <= ib) {
                if (filled)
                    Span(x, ib, y);
                x = ib;
                continue;
            }
            const double dx = x + 0.5 - cx, d2 = dx * dx + dy2;
            if (d2 >= outer2)
                continue;
            if (d2 > inner2)
                edge(x, y, d2);
            else if (filled)
                Blend(x, y, 1);
        }
    }
}

// A small disc is centred on the pixel nearest to its centre and stamped from a coverage mask
// made once for its radius: the symbols of a layout seen whole are tens of thousands of them.
void CHairlineRaster::StampDisc(double cx, double cy, double r) {
    if (r != stampRadius_) {
        stampRadius_ = r;
        stamp_.clear();
        stampReach_ = static_cast<int>(std::ceil(r + 0.5));
        for (int dy = -stampReach_; dy <= stampReach_; ++dy)
            for (int dx = -stampReach_; dx <= stampReach_; ++dx) {
                double coverage = std::clamp(r + 0.5 - std::hypot(dx, dy), 0.0, 1.0);
                if (!antialiased_)
                    coverage = coverage >= 0.5 ? 1 : 0;
                const auto alpha = static_cast<uint32_t>(coverage * 256 + 0.5);
                if (alpha > 0)
                    stamp_.push_back({dx, dy, alpha});
            }
    }
    Stamp(FastFloor(cx), FastFloor(cy), stamp_, stampReach_);
}

// Squares are drawn from masks made once for each size (in quarter pixels) and angle (in
// 32 steps over the quarter turn that a square repeats after), each pixel's coverage counted
// at 4 x 4 points.
void CHairlineRaster::TurnedSquare(double cx, double cy, double half, double ux, double uy) {
    if (!(half > 0) || !std::isfinite(cx) || !std::isfinite(cy) || !std::isfinite(ux) || !std::isfinite(uy))
        return;
    if (half > kStampHalf) {
        const double xs[4] = {cx + (ux - uy) * half, cx + (-ux - uy) * half, cx + (-ux + uy) * half,
                              cx + (ux + uy) * half};
        const double ys[4] = {cy + (uy + ux) * half, cy + (ux - uy) * half, cy + (-uy - ux) * half,
                              cy + (uy - ux) * half};
        FillPolygon(xs, ys, 4);
        return;
    }
    constexpr int kAngles = 32;
    const double quarter = kPi / 2;
    const auto step = static_cast<uint32_t>(QuarterTurnShare(ux, uy) * kAngles + 0.5) % kAngles;
    const auto size = static_cast<uint32_t>(half * 4 + 0.5);
    const int reach = static_cast<int>(std::ceil(half * std::sqrt(2.0))) + 1;
    std::vector<StampPixel>& mask = squares_[size << 8 | step];
    if (mask.empty()) {
        const double turn = step * quarter / kAngles, c = std::cos(turn), s = std::sin(turn);
        const double h = size / 4.0;
        for (int dy = -reach; dy <= reach; ++dy)
            for (int dx = -reach; dx <= reach; ++dx) {
                int inside = 0;
                for (int sy = 0; sy < 4; ++sy)
                    for (int sx = 0; sx < 4; ++sx) {
                        const double px = dx + (sx + 0.5) / 4 - 0.5, py = dy + (sy + 0.5) / 4 - 0.5;
                        inside += std::fabs(px * c + py * s) <= h && std::fabs(-px * s + py * c) <= h;
                    }
                const uint32_t alpha =
                    antialiased_ ? static_cast<uint32_t>(inside * 16) : (inside >= 8 ? 256u : 0u);
                if (alpha > 0)
                    mask.push_back({dx, dy, alpha});
            }
    }
    Stamp(FastFloor(cx), FastFloor(cy), mask, reach);
}

void CHairlineRaster::Stamp(int x, int y, const std::vector<StampPixel>& stamp, int reach) {
    if (x - reach >= 0 && y - reach >= 0 && x + reach < width_ && y + reach < height_) {
        uint32_t* centre = pixels_ + static_cast<long>(y) * stride_ + x;
        for (const StampPixel& pixel : stamp)
            BlendInto(centre[static_cast<long>(pixel.dy) * stride_ + pixel.dx], pixel.alpha);
        return;
    }
    for (const StampPixel& pixel : stamp)
        BlendAlpha(x + pixel.dx, y + pixel.dy, pixel.alpha);
}

void CHairlineRaster::FillPolygon(const double* xs, const double* ys, int n) {
    constexpr int kMost = 16;
    if (n < 3 || n > kMost)
        return;
    double top = ys[0], bottom = ys[0];
    for (int i = 0; i < n; ++i) {
        if (!std::isfinite(xs[i]) || !std::isfinite(ys[i]))
            return;
        top = std::min(top, ys[i]);
        bottom = std::max(bottom, ys[i]);
    }
    if (bottom < 0 || top > height_)
        return;
    // Rows whose centres lie between the top and the bottom corner.
    const int row0 = std::max(0, FastFloor(top + 0.5));
    const int row1 = std::min(height_ - 1, FastFloor(bottom + 0.5));
    double slope[kMost];
    for (int i = 0, j = n - 1; i < n; j = i++)
        slope[i] = ys[i] != ys[j] ? (xs[i] - xs[j]) / (ys[i] - ys[j]) : 0;
    double crossings[kMost];
    for (int row = row0; row <= row1; ++row) {
        const double y = row + 0.5;
        int count = 0;
        for (int i = 0, j = n - 1; i < n; j = i++)
            if ((ys[i] <= y) != (ys[j] <= y))
                crossings[count++] = xs[j] + (y - ys[j]) * slope[i];
        if (count == 2) {
            if (crossings[1] < crossings[0])
                std::swap(crossings[0], crossings[1]);
        } else {
            std::sort(crossings, crossings + count);
        }
        // The pixels whose centres lie between two crossings.
        for (int k = 0; k + 1 < count; k += 2) {
            const double left = std::clamp(crossings[k], -2.0, width_ + 2.0);
            const double right = std::clamp(crossings[k + 1], -2.0, width_ + 2.0);
            Span(-FastFloor(0.5 - left), -FastFloor(0.5 - right) - 1, row);
        }
    }
}

} // namespace kavrin
