#pragma once

#include <cstddef>
#include <string>

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
    // Whether parts of the selection would lie outside the layout's rectangle after moving it.
    static bool LeavesLayout(const CSelection& selection, const CAnlage& anlage, double dx, double dy);

    // Moves (cm) or turns (degrees counter-clockwise about (cx, cy)) the selection and what
    // moves along with it. False, and nothing recorded, when there is nothing to do or the
    // values are refused.
    bool Move(double dx, double dy, double dz);
    bool Rotate(double angle, double cx, double cy);
    // Cuts the connection records between selected and unselected tracks; how many were cut.
    size_t CutSelection();

private:
    CSelection& selection_;
    CEditHistory& history_;
};

} // namespace kavrin
