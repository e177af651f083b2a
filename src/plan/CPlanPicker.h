#pragma once

#include <cstdint>
#include <vector>

namespace kavrin {

class CAnlage;
class IPaint;

// The click pick of a large plan: the same answer as CPlanObjects::Pick (the topmost object
// under the point among those `mode` considers), found through a grid of the objects' extents,
// so that a click or a hover looks at a few objects instead of all. The grid is built at the
// first pick and holds until Invalidate: every edit, undo and load that moves objects calls it.
class CPlanPicker {
public:
    explicit CPlanPicker(const CAnlage& anlage) : anlage_(anlage) {}

    IPaint* Pick(double x, double y, double pixelSize, double tolerancePx, int mode);
    void Invalidate() { built_ = false; }
    bool Built() const { return built_; }

private:
    struct Entry {
        IPaint* object;
        float left, bottom, right, top; // extent in world units, cm
    };
    void Build();
    void CellsOf(double left, double bottom, double right, double top, int& x0, int& y0, int& x1,
                 int& y1) const;

    const CAnlage& anlage_;
    bool built_ = false;
    // Entries in drawing order: a later one lies above an earlier one.
    std::vector<Entry> entries_;
    std::vector<uint32_t> stamps_;
    uint32_t stamp_ = 0;
    // Grid cells: the entries whose extent meets each (offsets into cellEntries_).
    double originX_ = 0, originY_ = 0, cellSize_ = 1;
    int columns_ = 0, rows_ = 0;
    std::vector<uint32_t> cellStart_;
    std::vector<uint32_t> cellEntries_;
};

} // namespace kavrin
