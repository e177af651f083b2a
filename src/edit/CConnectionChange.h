#pragma once

#include <memory>

#include "edit/CChange.h"
#include "nodes/CNodeGleisSys.h"

namespace kavrin {

// Connection records of a track system cut (taken out, kept here with their places) or made
// (a new record). Undo puts the cut records back at their places, or takes the new one out.
class CConnectionChange : public CChange {
public:
    // Records a cut that has been done.
    static std::unique_ptr<CConnectionChange> Cut(CNodeGleisSys& system,
                                                  CNodeGleisSys::RemovedConnections removed);
    // Makes a new record now, after the system's others.
    static std::unique_ptr<CConnectionChange> Join(CNodeGleisSys& system, CGleisVerbindung record);

    void Undo() override;
    void Redo() override;
    size_t Count() const { return records_.records.size(); }

private:
    CConnectionChange(CNodeGleisSys& system, CNodeGleisSys::RemovedConnections records, bool made);
    void TakeOut();
    void PutBack();

    CNodeGleisSys& system_;
    CNodeGleisSys::RemovedConnections records_;
    bool made_;
};

} // namespace kavrin
