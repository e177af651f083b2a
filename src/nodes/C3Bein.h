#pragma once

#include <memory>

#include "nodes/CVector.h"

namespace kavrin {

class CNodeDreibein;

// The placement frame of an object: position and the three direction vectors. The vectors are
// shared objects, so a frame can alias the one stored in a "Dreibein" element (grab3Bein).
class C3Bein {
public:
    C3Bein();

    CVector& Pos() const { return *pos_; }
    CVector& Dir() const { return *dir_; }
    CVector& Nor() const { return *nor_; }
    CVector& Bin() const { return *bin_; }

    // Makes this frame use the very vector objects of the element's frame.
    void grab3Bein(CNodeDreibein& node);
    void grab3Bein(const C3Bein& other);
    void Move(double dx, double dy, double dz);
    // Turns the frame about the vertical axis through (cx, cy); directions are not translated.
    void Rotate(double angle, double cx, double cy);
    // Value copy into this frame's own vectors.
    void Copy(const C3Bein& source);

private:
    std::shared_ptr<CVector> pos_;
    std::shared_ptr<CVector> dir_;
    std::shared_ptr<CVector> nor_;
    std::shared_ptr<CVector> bin_;
};

} // namespace kavrin
