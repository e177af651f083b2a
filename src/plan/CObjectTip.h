#pragma once

#include <string>

#include "nodes/CVector.h"

namespace kavrin {

class INode;

// What the plan says about the object under the mouse: its kind and id, its model, where it
// stands (metres, with the height), its track system, and the key id of switches and signals.
// One line each, "\r\n" between them; empty for a node that is nothing of the plan.
class CObjectTip {
public:
    static std::string Of(const INode& node, const CVector& at);

    // A length in cm as the user reads it in metres: "1.234,56 m" (two decimals, the user's
    // separators).
    static std::string Metres(double cm);
};

} // namespace kavrin
