#include "plan/CPlanPicker.h"

#include <algorithm>
#include <cmath>

#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmobilie.h"
#include "plan/CPlanObjects.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
// About this many entries share a cell on average.
constexpr double kEntriesPerCell = 4;
constexpr int kMaxCellsPerSide = 4096;
} // namespace

// Every object of the plan's kinds (hidden ones too: Consider decides at the pick), with the
// circle its track can reach from its start, or its position.
void CPlanPicker::Build() {
    entries_.clear();
    const CViewOptions everything;
    CPlanObjects(anlage_, everything).ForEach([this](IPaint& object) {
        double x = 0, y = 0, reach = 0;
        switch (object.PaintKind()) {
        case IPaint::Kind::Gleis: {
            CVector start = static_cast<CNodeGleis&>(object).Anchor(reach);
            x = start.X, y = start.Y;
            break;
        }
        case IPaint::Kind::Immobilie:
            x = static_cast<CNodeImmobilie&>(object).DreiBein().Pos().X;
            y = static_cast<CNodeImmobilie&>(object).DreiBein().Pos().Y;
            break;
        case IPaint::Kind::Good:
            x = static_cast<CNodeGood&>(object).DreiBein().Pos().X;
            y = static_cast<CNodeGood&>(object).DreiBein().Pos().Y;
            break;
        default:
            return;
        }
        if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(reach))
            x = y = reach = 0; // still found by the walk of the cell at the origin
        reach = std::fabs(reach) + 1;
        entries_.push_back({&object, static_cast<float>(x - reach), static_cast<float>(y - reach),
                            static_cast<float>(x + reach), static_cast<float>(y + reach)});
    });
    stamps_.assign(entries_.size(), 0);
    stamp_ = 0;
    float left = 0, bottom = 0, right = 1, top = 1;
    if (!entries_.empty()) {
        left = bottom = 3e38f;
        right = top = -3e38f;
        for (const Entry& entry : entries_) {
            left = std::min(left, entry.left), bottom = std::min(bottom, entry.bottom);
            right = std::max(right, entry.right), top = std::max(top, entry.top);
        }
    }
    const double width = std::max(1.0, static_cast<double>(right) - left);
    const double height = std::max(1.0, static_cast<double>(top) - bottom);
    const double cells = std::max(1.0, static_cast<double>(entries_.size()) / kEntriesPerCell);
    cellSize_ =
        std::max({std::sqrt(width * height / cells), width / kMaxCellsPerSide, height / kMaxCellsPerSide});
    originX_ = left;
    originY_ = bottom;
    columns_ = static_cast<int>(width / cellSize_) + 1;
    rows_ = static_cast<int>(height / cellSize_) + 1;
    // Two passes: count per cell, then fill.
    cellStart_.assign(static_cast<size_t>(columns_) * rows_ + 1, 0);
    auto forCells = [this](const Entry& entry, auto&& visit) {
        int x0, y0, x1, y1;
        CellsOf(entry.left, entry.bottom, entry.right, entry.top, x0, y0, x1, y1);
        for (int cy = y0; cy <= y1; ++cy)
            for (int cx = x0; cx <= x1; ++cx)
                visit(static_cast<size_t>(cy) * columns_ + cx);
    };
    for (const Entry& entry : entries_)
        forCells(entry, [this](size_t cell) { ++cellStart_[cell + 1]; });
    for (size_t i = 1; i < cellStart_.size(); ++i)
        cellStart_[i] += cellStart_[i - 1];
    cellEntries_.assign(cellStart_.back(), 0);
    std::vector<uint32_t> fill(cellStart_.begin(), cellStart_.end() - 1);
    for (uint32_t i = 0; i < entries_.size(); ++i)
        forCells(entries_[i], [&](size_t cell) { cellEntries_[fill[cell]++] = i; });
    built_ = true;
}

void CPlanPicker::CellsOf(double left, double bottom, double right, double top, int& x0, int& y0, int& x1,
                          int& y1) const {
    auto column = [this](double x) {
        return static_cast<int>(std::clamp(std::floor((x - originX_) / cellSize_), 0.0, columns_ - 1.0));
    };
    auto row = [this](double y) {
        return static_cast<int>(std::clamp(std::floor((y - originY_) / cellSize_), 0.0, rows_ - 1.0));
    };
    x0 = column(left), x1 = column(right);
    y0 = row(bottom), y1 = row(top);
}

IPaint* CPlanPicker::Pick(double x, double y, double pixelSize, double tolerancePx, int mode) {
    if (!built_)
        Build();
    if (entries_.empty() || !std::isfinite(x) || !std::isfinite(y))
        return nullptr;
    // Marks reach a few pixels beyond their position, so the question's square is that wide.
    const double reach = (3 + tolerancePx) * pixelSize;
    if (++stamp_ == 0) {
        std::fill(stamps_.begin(), stamps_.end(), 0);
        stamp_ = 1;
    }
    int x0, y0, x1, y1;
    CellsOf(x - reach, y - reach, x + reach, y + reach, x0, y0, x1, y1);
    uint32_t best = 0;
    bool found = false;
    for (int cy = y0; cy <= y1; ++cy)
        for (int cx = x0; cx <= x1; ++cx) {
            size_t cell = static_cast<size_t>(cy) * columns_ + cx;
            for (uint32_t at = cellStart_[cell]; at < cellStart_[cell + 1]; ++at) {
                uint32_t i = cellEntries_[at];
                if (stamps_[i] == stamp_ || (found && i < best))
                    continue;
                stamps_[i] = stamp_;
                const Entry& entry = entries_[i];
                if (x + reach < entry.left || x - reach > entry.right || y + reach < entry.bottom ||
                    y - reach > entry.top)
                    continue;
                if (CPlanObjects::Near(*entry.object, x, y, pixelSize, tolerancePx, mode)) {
                    best = i;
                    found = true;
                }
            }
        }
    return found ? entries_[best].object : nullptr;
}

} // namespace kavrin
