#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/CDictionary.h"
#include "nodes/CVector.h"

namespace kavrin {

// What moving or turning an object changes, taken before the edit so that undo puts it back
// exactly (no arithmetic backwards): the frame's position, its three direction vectors when the
// edit turns the object, and whatever text the object keeps for its frame as read. A move
// changes only the position, so a record of many moved objects keeps only their positions.
class CPlacement {
public:
    // What a track of the newer format keeps besides its numbers: the frame element as read
    // and the attribute stores of a frame kept as a node (empty when the frame is written anew
    // anyway), and the start and length worked out for the plan, so that they need not be
    // worked out again after an undo.
    struct KeptText {
        std::string frame;
        std::vector<CDictionary> attributes;
        bool startKnown = false;
        CVector start;
        double length = 0, curvature = 0;
        bool Empty() const { return frame.empty() && attributes.empty() && !startKnown; }
    };

    // Position (for a track of the newer format: its outer Frame's position in metres).
    CVector pos;
    // Dir, Nor and Bin (the newer format's three axes); they hold values only for a turn.
    std::array<CVector, 3> axes;
    bool turning = false;
    // Empty (no text kept) for most objects; then nothing is allocated for it.
    KeptText kept;
};

} // namespace kavrin
