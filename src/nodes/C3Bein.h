#pragma once

#include <array>
#include <memory>

#include "nodes/CVector.h"

namespace kavrin {

class CNodeDreibein;

// The placement frame of an object: position and the three direction vectors. The vectors are
// shared, so a frame can alias the one stored in a "Dreibein" element (grab3Bein); they are made
// on first use, as most frames take a read element's vectors right away.
class C3Bein {
public:
    C3Bein() = default;

    CVector& Pos() const { return Vectors()[0]; }
    CVector& Dir() const { return Vectors()[1]; }
    CVector& Nor() const { return Vectors()[2]; }
    CVector& Bin() const { return Vectors()[3]; }

    // Makes this frame use the very vector objects of the element's frame.
    void grab3Bein(CNodeDreibein& node);
    void grab3Bein(const C3Bein& other);
    void Move(double dx, double dy, double dz);
    // Turns the frame about the vertical axis through (cx, cy); directions are not translated.
    void Rotate(double angle, double cx, double cy);
    // Value copy into this frame's own vectors.
    void Copy(const C3Bein& source);

private:
    using Block = std::array<CVector, 4>;
    Block& Vectors() const;

    mutable std::shared_ptr<Block> vectors_;
};

} // namespace kavrin
