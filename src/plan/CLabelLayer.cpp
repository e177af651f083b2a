#include "plan/CLabelLayer.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_map>

#include "plan/CPlanView.h"
#include "plan/CTrackBand.h"
#include "plan/Canvas.h"

namespace kavrin {

namespace {
// Texts are written a little darker than their kind's colour, which may be light (roads).
constexpr double kDarken = 0.35;
} // namespace

void CLabelLayer::Add(double x, double y, std::string text, uint32_t color, int dxPx, int dyPx) {
    if (!text.empty())
        labels_.push_back({x, y, std::move(text), color, dxPx, dyPx});
}

CLabelLayer::Occupancy::Occupancy(int width, int height)
    : columns_(std::max(0, width) / kCell + 1), rows_(std::max(0, height) / kCell + 1),
      taken_(static_cast<size_t>(columns_) * static_cast<size_t>(rows_), false) {}

// The cells a pixel rectangle touches; false when it lies wholly outside the picture.
bool CLabelLayer::Occupancy::Cells(double left, double top, double right, double bottom, int& x0, int& y0,
                                   int& x1, int& y1) const {
    if (!(right >= 0 && bottom >= 0 && left < columns_ * kCell && top < rows_ * kCell))
        return false;
    x0 = std::max(0, static_cast<int>(std::floor(left / kCell)));
    y0 = std::max(0, static_cast<int>(std::floor(top / kCell)));
    x1 = std::min(columns_ - 1, static_cast<int>(std::floor(right / kCell)));
    y1 = std::min(rows_ - 1, static_cast<int>(std::floor(bottom / kCell)));
    return true;
}

bool CLabelLayer::Occupancy::Free(double left, double top, double right, double bottom) const {
    int x0, y0, x1, y1;
    if (!Cells(left, top, right, bottom, x0, y0, x1, y1))
        return true;
    for (int y = y0; y <= y1; ++y)
        for (int x = x0; x <= x1; ++x)
            if (taken_[static_cast<size_t>(y) * static_cast<size_t>(columns_) + static_cast<size_t>(x)])
                return false;
    return true;
}

void CLabelLayer::Occupancy::Take(double left, double top, double right, double bottom) {
    int x0, y0, x1, y1;
    if (!Cells(left, top, right, bottom, x0, y0, x1, y1))
        return;
    for (int y = y0; y <= y1; ++y)
        for (int x = x0; x <= x1; ++x)
            taken_[static_cast<size_t>(y) * static_cast<size_t>(columns_) + static_cast<size_t>(x)] = true;
}

int CLabelLayer::Place(Canvas& canvas, const CPlanView& view, uint32_t halo) {
    if (labels_.empty())
        return 0;
    const int width = canvas.PixelWidth(), height = canvas.PixelHeight();
    Occupancy occupied(width, height);
    const double textHeight = canvas.TextHeight();
    // Where each text has been placed so far.
    std::unordered_map<std::string_view, std::vector<std::pair<double, double>>> shown;
    auto repeated = [&shown](const std::string& text, double px, double py) {
        auto found = shown.find(text);
        if (found == shown.end())
            return false;
        for (const auto& [x, y] : found->second)
            if (std::hypot(x - px, y - py) < kRepeat)
                return true;
        return false;
    };
    int placed = 0;
    for (const Label& label : labels_) {
        const double px = view.ToPixelX(label.x), py = view.ToPixelY(label.y);
        if (!(px >= 0 && px < width && py >= 0 && py < height) || repeated(label.text, px, py))
            continue;
        const double textWidth = canvas.TextWidth(label.text);
        // The preferred spot, then the other side of the point, then above and below these two
        // with room between.
        const int dx = label.dx, dy = label.dy;
        const double lefts[] = {px + dx, px - dx - textWidth, px - textWidth / 2, px - textWidth / 2};
        const double bottoms[] = {py - dy, py - dy, py - dy - textHeight - kGap - kCell,
                                  py - dy + textHeight + kGap + kCell};
        for (int spot = 0; spot < 4; ++spot) {
            const double left = lefts[spot], bottom = bottoms[spot];
            const double right = left + textWidth, top = bottom - textHeight;
            if (left < 0 || right > width || top < 0 || bottom > height ||
                !occupied.Free(left - kGap, top - kGap, right + kGap, bottom + kGap))
                continue;
            occupied.Take(left, top, right, bottom);
            shown[label.text].emplace_back(px, py);
            canvas.Label(label.x, label.y, label.text, MixColor(label.color, 0, kDarken), halo,
                         static_cast<int>(std::lround(left - px)),
                         static_cast<int>(std::lround(py - bottom)));
            ++placed;
            break;
        }
    }
    labels_.clear();
    return placed;
}

} // namespace kavrin
