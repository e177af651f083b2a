#pragma once

namespace kavrin {

// An axis-aligned 3-D box; a new one is empty, so the first Add sets all six sides.
class CBox {
public:
    void Add(float x, float y, float z);
    void Move(float dx, float dy, float dz);
    bool IsEmpty() const { return West > East; }

    float West = 3e38f;
    float East = -3e38f;
    float North = -3e38f;
    float South = 3e38f;
    float Bottom = 3e38f;
    float Top = -3e38f;
};

} // namespace kavrin
