#include "edit/CConnectionChange.h"

namespace kavrin {

CConnectionChange::CConnectionChange(CNodeGleisSys& system, CNodeGleisSys::RemovedConnections records,
                                     bool made)
    : system_(system), records_(std::move(records)), made_(made) {}

std::unique_ptr<CConnectionChange> CConnectionChange::Cut(CNodeGleisSys& system,
                                                          CNodeGleisSys::RemovedConnections removed) {
    return std::unique_ptr<CConnectionChange>(new CConnectionChange(system, std::move(removed), false));
}

std::unique_ptr<CConnectionChange> CConnectionChange::Join(CNodeGleisSys& system, CGleisVerbindung record) {
    CNodeGleisSys::RemovedConnections made;
    made.indices.push_back(system.Verbindungen().size());
    made.records.push_back(std::move(record));
    made.orderPlaces.push_back(CChildOrder::npos);
    std::unique_ptr<CConnectionChange> change(new CConnectionChange(system, std::move(made), true));
    change->PutBack();
    return change;
}

void CConnectionChange::TakeOut() {
    CNodeGleisSys::RemovedConnections removed = system_.RemoveConnectionsAt(records_.indices);
    if (!made_)
        records_ = std::move(removed);
}

void CConnectionChange::PutBack() {
    system_.RestoreConnections(records_);
}

void CConnectionChange::Undo() {
    if (made_)
        TakeOut();
    else
        PutBack();
}

void CConnectionChange::Redo() {
    if (made_)
        PutBack();
    else
        TakeOut();
}

} // namespace kavrin
