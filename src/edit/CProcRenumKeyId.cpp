#include "edit/CProcRenumKeyId.h"

#include "core/CError.h"
#include "edit/CEditStep.h"
#include "edit/CFieldChange.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeMeldung.h"

namespace kavrin {

namespace {
template <typename Node> bool Renumber(Node& node, int32_t newId, CEditStep& step) {
    auto change = CFieldChange<Node, int32_t>::Set(node, &Node::KeyId, &Node::SetKeyId, newId);
    if (!change)
        return false;
    step.Add(std::move(change));
    return true;
}
} // namespace

void CProcRenumKeyId::Init(const CArrayOfLong& oldIds, CEditStep& step) {
    oldIds_.Build(oldIds);
    step_ = &step;
    changed_ = 0;
}

int32_t CProcRenumKeyId::NewId(int32_t oldId) const {
    if (oldId <= 0)
        return oldId;
    int32_t position = oldIds_.Position(oldId);
    return position < 0 ? oldId : position + 1;
}

bool CProcRenumKeyId::Process(INode*& node, int32_t) {
    if (!step_)
        throw CError::ObjectNotSet();
    if (CNodeGleis* track = CCast::NodeGleis(node))
        changed_ += Renumber(*track, NewId(track->KeyId()), *step_) ? 1 : 0;
    else if (CNodeMeldung* signal = CCast::NodeMeldung(node))
        changed_ += Renumber(*signal, NewId(signal->KeyId()), *step_) ? 1 : 0;
    return true;
}

} // namespace kavrin
