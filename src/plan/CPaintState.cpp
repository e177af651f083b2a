#include "plan/CPaintState.h"

#include <atomic>
#include <cstdio>

#include "nodes/C3Bein.h"
#include "plan/CPaintTarget.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
std::atomic<uint32_t> lastKey{0};
}

CPaintState::CPaintState(bool active) : key_(++lastKey), active_(active) {}

// A copy is a new object on the plan: it gets its own key and starts unselected.
CPaintState::CPaintState(const CPaintState& other)
    : IPaint(), key_(++lastKey), active_(other.active_), inHeightRange_(other.inHeightRange_) {}

CPaintState& CPaintState::operator=(const CPaintState& other) {
    active_ = other.active_;
    inHeightRange_ = other.inHeightRange_;
    return *this;
}

std::string CPaintState::Key() const {
    char text[16];
    std::snprintf(text, sizeof text, "%X", key_);
    return text;
}

bool CPaintState::Consider(int mode) const {
    switch (mode) {
    case 0:
        return active_ && onPlan_ && inHeightRange_;
    case 1:
        return true;
    case 2:
        return active_ && inHeightRange_;
    default:
        return false;
    }
}

bool CPaintState::PaintPlaced(CPaintTarget& target, const C3Bein& frame, PlacedMark mark,
                              std::string_view modelPath) {
    if (!anchorKnown_) {
        const CVector& pos = frame.Pos();
        SetAnchor(pos.X, pos.Y, pos.Z, 0);
    }
    double x = 0, y = 0;
    if (!PaintPrologueAtAnchor(target, x, y))
        return PaintEpilogue(false);
    if (mark == PlacedMark::Building)
        DrawBuildingMark(target, x, y, frame.Dir(), selected_);
    else
        DrawGoodsMark(target, x, y, selected_);
    if (target.WithNames)
        DrawName(target, x, y, ModelName(modelPath));
    return PaintEpilogue(true);
}

} // namespace kavrin
