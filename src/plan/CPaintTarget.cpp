#include "plan/CPaintTarget.h"

#include <algorithm>

#include "nodes/CNodeGleis.h"
#include "plan/CTrackBand.h"

namespace kavrin {

namespace {
constexpr double kMinCurveStep = 10; // cm
constexpr double kPixelsPerStep = 3;
} // namespace

double CPaintTarget::CurveStep() const {
    return std::max(kMinCurveStep, kPixelsPerStep * PixelSize());
}

// The model name is looked up only at zooms where a band is possible at all, and only for the
// tracks that are being drawn.
double CPaintTarget::TrackBandPixels() const {
    const double pixel = PixelSize();
    if (TrackStyle == 0 || !(pixel > 0) || CTrackBand::kWidest / pixel <= CTrackBand::kMinPixels)
        return 0;
    const double width = CTrackBand::WidthOf(TrackStyle, Track ? Track->ModelName() : std::string());
    const double pixels = width / pixel;
    return pixels > CTrackBand::kMinPixels ? pixels : 0;
}

} // namespace kavrin
