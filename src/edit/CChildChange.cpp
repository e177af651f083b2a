#include "edit/CChildChange.h"

#include "document/CNodeBase.h"

namespace kavrin {

CChildChange::CChildChange(CNodeBase& parent, int32_t index, bool takesOut)
    : parent_(parent), index_(index), takesOut_(takesOut), orderPlace_(CChildOrder::npos) {}

std::unique_ptr<CChildChange> CChildChange::TakeOut(CNodeBase& parent, int32_t index) {
    std::unique_ptr<CChildChange> change(new CChildChange(parent, index, true));
    change->Take();
    return change;
}

std::unique_ptr<CChildChange> CChildChange::PutIn(CNodeBase& parent, int32_t index,
                                                  std::unique_ptr<INode> child) {
    std::unique_ptr<CChildChange> change(new CChildChange(parent, index, false));
    change->held_ = std::move(child);
    change->Put();
    return change;
}

void CChildChange::Take() {
    held_ = parent_.TakeChild(index_, &orderPlace_);
}

// A child put in for the first time has no place in a recorded order yet; afterwards it goes
// back to the place it was taken from.
void CChildChange::Put() {
    parent_.InsertChild(index_, std::move(held_), orderPlace_);
}

void CChildChange::Undo() {
    if (takesOut_)
        Put();
    else
        Take();
}

void CChildChange::Redo() {
    if (takesOut_)
        Take();
    else
        Put();
}

} // namespace kavrin
