#include "edit/CTrackRemovalChange.h"

#include "nodes/CNodeGleisSys.h"

namespace kavrin {

std::unique_ptr<CTrackRemovalChange> CTrackRemovalChange::TakeOut(CNodeGleisSys& system,
                                                                  std::vector<int32_t> indices) {
    std::unique_ptr<CChildrenChange> children = CChildrenChange::TakeOut(system, std::move(indices));
    system.RebuildGleise();
    return std::unique_ptr<CTrackRemovalChange>(new CTrackRemovalChange(system, std::move(children)));
}

void CTrackRemovalChange::Undo() {
    children_->Undo();
    system_.RebuildGleise();
}

void CTrackRemovalChange::Redo() {
    children_->Redo();
    system_.RebuildGleise();
}

} // namespace kavrin
