#include "nodes/CBox.h"

#include <algorithm>

namespace kavrin {

void CBox::Add(float x, float y, float z) {
    West = std::min(West, x);
    East = std::max(East, x);
    North = std::max(North, y);
    South = std::min(South, y);
    Bottom = std::min(Bottom, z);
    Top = std::max(Top, z);
}

void CBox::Move(float dx, float dy, float dz) {
    West += dx;
    East += dx;
    North += dy;
    South += dy;
    Bottom += dz;
    Top += dz;
}

} // namespace kavrin
