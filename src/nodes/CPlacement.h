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
    // Text kept for a track frame of the newer format: the element as read and the attribute
    // stores of a frame kept as a node (empty when the frame is written anew anyway).
    struct KeptText {
        std::string frame;
        std::vector<CDictionary> attributes;
        bool Empty() const { return frame.empty() && attributes.empty(); }
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
