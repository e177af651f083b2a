#include "nodes/C3Bein.h"

#include "nodes/CNodeDreibein.h"

namespace kavrin {

C3Bein::C3Bein()
    : pos_(std::make_shared<CVector>()), dir_(std::make_shared<CVector>()), nor_(std::make_shared<CVector>()),
      bin_(std::make_shared<CVector>()) {}

void C3Bein::grab3Bein(CNodeDreibein& node) {
    grab3Bein(node.DreiBein());
}

void C3Bein::grab3Bein(const C3Bein& other) {
    pos_ = other.pos_;
    dir_ = other.dir_;
    nor_ = other.nor_;
    bin_ = other.bin_;
}

void C3Bein::Move(double dx, double dy, double dz) {
    pos_->Move(dx, dy, dz);
}

void C3Bein::Rotate(double angle, double cx, double cy) {
    Move(-cx, -cy, 0);
    pos_->Rotate(angle);
    dir_->Rotate(angle);
    nor_->Rotate(angle);
    bin_->Rotate(angle);
    Move(cx, cy, 0);
}

void C3Bein::Copy(const C3Bein& source) {
    pos_->Copy(*source.pos_);
    dir_->Copy(*source.dir_);
    nor_->Copy(*source.nor_);
    bin_->Copy(*source.bin_);
}

} // namespace kavrin
