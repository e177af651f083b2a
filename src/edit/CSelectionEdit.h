#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "edit/CPlacementChange.h"

namespace kavrin {

class CAnlage;
class CEditHistory;
class CSelection;

// The edits of a selection, each one step of the undo history: move, rotate and cut loose. The
// window and the command line both edit through it.
class CSelectionEdit {
public:
    // The largest distance (cm, 100 km) and angle (degrees) an edit takes.
    static constexpr double kMaxDistance = 1e7;
    static constexpr double kMaxAngle = 36000;

    CSelectionEdit(CSelection& selection, CEditHistory& history) : selection_(selection), history_(history) {}

    // Empty when the values may be applied, else the German reason they may not.
    static std::string CheckMove(double dx, double dy, double dz);
    static std::string CheckRotate(double angle, double cx, double cy);
    // Whether a move or turn would take part of the selection, or of what moves along with it,
    // further outside the layout's rectangle than it lies now (by the drawn extent). A step
    // that keeps a part outside, or brings it back, does not.
    static bool GoesFurtherOut(const CSelection& selection, const CAnlage& anlage,
                               const CPlacementChange::Transform& transform);

    // Moves (cm) or turns (degrees counter-clockwise about (cx, cy)) the selection and what
    // moves along with it. False, and nothing recorded, when there is nothing to do (a turn by
    // a multiple of 360 degrees changes nothing) or the values are refused.
    bool Move(double dx, double dy, double dz);
    bool Rotate(double angle, double cx, double cy);
    // Cuts the connection records between selected and unselected tracks; how many were cut.
    size_t CutSelection();

private:
    std::unique_ptr<CPlacementChange> Placement(const CPlacementChange::Transform& transform) const;

    CSelection& selection_;
    CEditHistory& history_;
};

} // namespace kavrin
