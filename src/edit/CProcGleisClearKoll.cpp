#include "edit/CProcGleisClearKoll.h"

#include "core/CError.h"
#include "edit/CEditStep.h"
#include "edit/CFieldChange.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeKollektor.h"

namespace kavrin {

void CProcGleisClearKoll::Init(const CArrayOfLong& kollektorIds, CEditStep& step) {
    ids_.Build(kollektorIds);
    step_ = &step;
    cleared_ = 0;
}

bool CProcGleisClearKoll::Process(INode*& node, int32_t) {
    if (!step_)
        throw CError::ObjectNotSet();
    CNodeGleis& track = CCast::Required(CCast::NodeGleis(node));
    CNodeKollektor* kollektor = track.Kollektor();
    if (!kollektor || !ids_.Contains(kollektor->ID()))
        return true;
    step_->Add(CFieldChange<CNodeGleis, CNodeKollektor*>::Set(track, &CNodeGleis::Kollektor,
                                                              &CNodeGleis::SetKollektor, nullptr));
    ++cleared_;
    return true;
}

} // namespace kavrin
