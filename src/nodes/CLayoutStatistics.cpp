#include "nodes/CLayoutStatistics.h"

#include "document/CAnlage.h"
#include "document/NodeTree.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/CObjectTexte.h"
#include "nodes/LayoutLookup.h"

namespace kavrin {

namespace {
// Vehicle contacts carry their vehicle kind (1..39) in the type; they form one group.
int ContactGroup(int setType) {
    return setType >= 1 && setType <= 39 ? 1 : setType;
}
} // namespace

CLayoutStatistics::CLayoutStatistics(const CAnlage& anlage) {
    if (!anlage.RootNode())
        return;
    CountTrackSystems(anlage);
    ForEachNode(*anlage.RootNode(), [this](const INode& node, int) {
        ++elementCounts_[node.Name()];
        ++total_;
        if (const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(&node)) {
            long buildings = 0;
            for (const auto& child : collection->SubNodes())
                buildings += dynamic_cast<const CNodeImmobilie*>(child.get()) != nullptr;
            collections_.push_back({collection->ID(), CObjectTexte::Immos(collection->ID() + 20), buildings});
        } else if (const auto* contact = dynamic_cast<const CNodeKontakt*>(&node)) {
            ++contactsByKind_[CObjectTexte::KontaktGruppe(ContactGroup(contact->SetType()))];
        } else if (dynamic_cast<const CNodeMeldung*>(&node)) {
            ++signals_;
        } else if (dynamic_cast<const CNodeGood*>(&node)) {
            ++goods_;
        } else if (node.Name() == "Zugverband") {
            ++trains_;
        }
    });
}

void CLayoutStatistics::CountTrackSystems(const CAnlage& anlage) {
    for (const CNodeGleisSys* system : kavrin::TrackSystems(anlage)) {
        long switches = 0;
        for (const CNodeGleis* track : system->Gleise().Tracks())
            switches += track->IsSwitch();
        trackSystems_.push_back(
            {system->ID(), CObjectTexte::GleisSystem(system->Number()), system->Gleise().Count(), switches});
    }
}

} // namespace kavrin
