#include "nodes/TrackPositionCheck.h"

#include <cmath>

#include "nodes/CNodeGleis.h"

namespace kavrin {

namespace {
constexpr double kFileNumberPrecision = 5e-7;
}

bool IsBeyondTrackEnd(const CNodeGleis& track, double position) {
    double length = track.Laenge();
    if (!(length > 0))
        return false;
    double tolerance = track.IsNewFormat() ? length * kFileNumberPrecision : 0;
    return position > length + tolerance;
}

} // namespace kavrin
