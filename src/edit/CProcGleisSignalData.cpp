#include "edit/CProcGleisSignalData.h"

#include "core/CError.h"
#include "edit/CEditStep.h"
#include "edit/CFieldChange.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGleis.h"

namespace kavrin {

void CProcGleisSignalData::Init(int32_t func, const CArrayOfLong& keyIds, CEditStep& step) {
    func_ = func;
    keyIds_.Build(keyIds);
    step_ = &step;
    changed_ = 0;
}

bool CProcGleisSignalData::Process(INode*& node, int32_t) {
    if (!step_)
        throw CError::ObjectNotSet();
    CNodeGleis& track = CCast::Required(CCast::NodeGleis(node));
    const int32_t data = track.SignalData();
    const int32_t keyId = data & 0xFFFF;
    const int32_t position = keyId > 0 ? keyIds_.Position(keyId) : -1;
    if (position < 0)
        return true;
    int32_t value = data;
    if (func_ == FuncRenum)
        value = static_cast<int32_t>((static_cast<uint32_t>(data) & 0xFFFF0000u) |
                                     static_cast<uint32_t>(position + 1));
    else if (func_ == FuncErase)
        value = 0;
    auto change = CFieldChange<CNodeGleis, int32_t>::Set(track, &CNodeGleis::SignalData,
                                                         &CNodeGleis::SetSignalData, value);
    if (change) {
        step_->Add(std::move(change));
        ++changed_;
    }
    return true;
}

} // namespace kavrin
