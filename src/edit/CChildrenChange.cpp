#include "edit/CChildrenChange.h"

#include "document/CNodeBase.h"

namespace kavrin {

CChildrenChange::CChildrenChange(CNodeBase& parent, std::vector<int32_t> indices)
    : parent_(parent), indices_(std::move(indices)) {}

std::unique_ptr<CChildrenChange> CChildrenChange::TakeOut(CNodeBase& parent, std::vector<int32_t> indices) {
    std::unique_ptr<CChildrenChange> change(new CChildrenChange(parent, std::move(indices)));
    change->Redo();
    return change;
}

void CChildrenChange::Undo() {
    parent_.InsertChildren(indices_, std::move(held_), orderPlaces_);
    held_.clear();
}

void CChildrenChange::Redo() {
    held_ = parent_.TakeChildren(indices_, orderPlaces_);
}

} // namespace kavrin
