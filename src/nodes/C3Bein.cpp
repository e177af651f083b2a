#include "nodes/C3Bein.h"

#include "nodes/CNodeDreibein.h"

namespace kavrin {

C3Bein::Block& C3Bein::Vectors() const {
    if (!vectors_)
        vectors_ = std::make_shared<Block>();
    return *vectors_;
}

void C3Bein::grab3Bein(CNodeDreibein& node) {
    grab3Bein(node.DreiBein());
}

void C3Bein::grab3Bein(const C3Bein& other) {
    other.Vectors();
    vectors_ = other.vectors_;
}

void C3Bein::Move(double dx, double dy, double dz) {
    Pos().Move(dx, dy, dz);
}

void C3Bein::Rotate(double angle, double cx, double cy) {
    if (CVector::IsFullTurn(angle))
        return;
    double c = 0, s = 0;
    CVector::TurnFactors(angle, c, s);
    Move(-cx, -cy, 0);
    for (CVector& vector : Vectors())
        vector.Rotate(c, s);
    Move(cx, cy, 0);
}

void C3Bein::Copy(const C3Bein& source) {
    Vectors() = source.Vectors();
}

} // namespace kavrin
