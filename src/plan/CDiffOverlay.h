#pragma once

#include <cstdint>

namespace kavrin {

class CLayoutDiff;
class Canvas;

// The changes of a comparison drawn over the plan of the new layout: added objects in green,
// removed ones (at their old place) in red, moved, turned or changed ones in orange with a line
// from their old place. Tracks are drawn along their centre line, everything else as a ring.
class CDiffOverlay {
public:
    static constexpr uint32_t kAddedColor = 0 | 160 << 8 | 60 << 16;
    static constexpr uint32_t kRemovedColor = 220 | 30 << 8 | 30 << 16;
    static constexpr uint32_t kChangedColor = 255 | 140 << 8 | 0 << 16;

    explicit CDiffOverlay(const CLayoutDiff& diff) : diff_(diff) {}
    // On a canvas whose view is set already (after the plan was drawn on it).
    void Draw(Canvas& canvas) const;

private:
    const CLayoutDiff& diff_;
};

} // namespace kavrin
