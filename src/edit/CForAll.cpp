#include "edit/CForAll.h"

#include "core/CError.h"
#include "edit/IProc.h"
#include "nodes/CCast.h"
#include "nodes/CIterGleis.h"
#include "nodes/CIterGood.h"
#include "nodes/CIterKontakt.h"
#include "nodes/CIterMeldung.h"
#include "plan/CSelection.h"

namespace kavrin {

namespace {
IProc& Checked(IProc* proc) {
    if (!proc)
        throw CError::TypeMismatch();
    return *proc;
}
} // namespace

bool CForAll::Walk(IIter& iter, INode& collection, IProc* proc, bool passKey) {
    IProc& run = Checked(proc);
    iter.Walk(collection);
    bool ok = run.Start();
    while (true) {
        if (!iter.HasNext()) {
            if (ok)
                ok = run.Finish();
            break;
        }
        if (!ok)
            break;
        INode* node = iter.GetNext();
        ok = run.Process(node, passKey ? iter.CurrentIndex() : 0);
    }
    return ok;
}

// The for-each form runs to the end of the list, but once a node answered false nothing is
// called any more.
bool CForAll::Gleissysteme(std::vector<CNodeGleisSys*>& systems, IProc* proc) {
    IProc& run = Checked(proc);
    bool ok = run.Start();
    for (CNodeGleisSys*& system : systems) {
        if (!ok)
            continue;
        INode* node = system;
        ok = run.Process(node, 0);
        system = node ? &CCast::Required(CCast::NodeGleisSys(node)) : nullptr;
    }
    if (ok)
        ok = run.Finish();
    return ok;
}

bool CForAll::Gleise(CNodeGleisSys& system, IProc* proc) {
    CIterGleis iter;
    return Walk(iter, system, proc, false);
}

bool CForAll::Goods(INode& goods, IProc* proc) {
    CIterGood iter;
    return Walk(iter, goods, proc, true);
}

bool CForAll::GleiseSelected(const CSelection& selection, IProc* proc) {
    IProc& run = Checked(proc);
    bool ok = run.Start();
    for (IPaint& member : selection.NewEnum()) {
        if (!ok)
            continue;
        if (auto* track = dynamic_cast<CNodeGleis*>(&member)) {
            INode* node = track;
            ok = run.Process(node, 0);
        }
    }
    if (ok)
        ok = run.Finish();
    return ok;
}

bool CForAll::Kontakte(CNodeGleis& track, IProc* proc) {
    CIterKontakt iter;
    return Walk(iter, track, proc, true);
}

bool CForAll::Meldungen(CNodeGleis& track, IProc* proc) {
    CIterMeldung iter;
    return Walk(iter, track, proc, true);
}

} // namespace kavrin
