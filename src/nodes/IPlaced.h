#pragma once

#include "nodes/CPlacement.h"

namespace kavrin {

// An object with a placement frame that the editing commands move and turn: tracks, buildings,
// goods and the collectors that move with a building. Only the object's own frame is meant;
// what travels along with it is the caller's business (each object moves once).
class IPlaced {
public:
    virtual ~IPlaced() = default;

    // Offsets in world units (cm).
    virtual void MoveFrame(double dx, double dy, double dz) = 0;
    // By angle degrees counter-clockwise about the vertical through (cx, cy).
    virtual void RotateFrame(double angle, double cx, double cy) = 0;
    // What a move (turning false) or a turn is about to change, for SetPlacement to put back.
    // Text the object keeps for its frame is handed over, not copied: the move or turn that
    // follows writes the frame anew anyway.
    virtual CPlacement TakePlacement(bool turning) = 0;
    virtual void SetPlacement(CPlacement&& placement) = 0;
};

} // namespace kavrin
