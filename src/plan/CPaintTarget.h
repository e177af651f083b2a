#pragma once

#include <cstdint>
#include <vector>

#include "plan/CHoehenFilter.h"
#include "plan/CPlanView.h"
#include "plan/Canvas.h"

namespace kavrin {

// Everything a node needs while it paints itself: the canvas, the view it culls against, the
// height filter, the colour of its kind and what else is to be shown. One target serves a
// whole DrawAll; its point buffers are reused from node to node.
class CPaintTarget {
public:
    CPaintTarget(Canvas& canvas, const CPlanView& view, const CHoehenFilter& filter)
        : canvas_(canvas), view_(view), filter_(filter) {}

    Canvas& Draw() const { return canvas_; }
    const CPlanView& View() const { return view_; }
    const CHoehenFilter& Filter() const { return filter_; }

    // The colour of the kind being drawn.
    uint32_t Color = 0;
    bool WithNames = false;
    bool WithSignals = false;
    bool TrackMarks = false;

    // The sampling step of curves in world units: a few pixels, never below 10 cm.
    double CurveStep() const;
    // The length of one pixel in world units.
    double PixelSize() const { return view_.PixelSize(); }

    // Scratch buffers for polylines.
    std::vector<double> Xs;
    std::vector<double> Ys;

private:
    Canvas& canvas_;
    const CPlanView& view_;
    const CHoehenFilter& filter_;
};

} // namespace kavrin
