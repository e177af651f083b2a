#include "plan/CPaintTarget.h"

#include <algorithm>

namespace kavrin {

namespace {
constexpr double kMinCurveStep = 10; // cm
constexpr double kPixelsPerStep = 3;
} // namespace

double CPaintTarget::CurveStep() const {
    return std::max(kMinCurveStep, kPixelsPerStep * PixelSize());
}

} // namespace kavrin
