#include "app/CHairlineRaster.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

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
    if (!ClipLine(fx0, fy0, fx1, fy1, -1, width_, height_))
        return;
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
    uint32_t* row = pixels_ + static_cast<long>(y) * stride_;
    for (int x = x0; x <= x1; ++x)
        row[x] = color_;
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

} // namespace kavrin
