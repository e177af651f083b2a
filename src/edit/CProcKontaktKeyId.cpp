#include "edit/CProcKontaktKeyId.h"

#include "core/CError.h"
#include "edit/CEditStep.h"
#include "edit/CFieldChange.h"
#include "nodes/CCast.h"
#include "nodes/CNodeKontakt.h"

namespace kavrin {

void CProcKontaktKeyId::Init(int32_t func, const CArrayOfLong& keyIds, CEditStep& step) {
    func_ = func;
    keyIds_.Build(keyIds);
    step_ = &step;
    changed_ = 0;
}

bool CProcKontaktKeyId::Process(INode*& node, int32_t) {
    if (!step_)
        throw CError::ObjectNotSet();
    CNodeKontakt& contact = CCast::Required(CCast::NodeKontakt(node));
    const int32_t keyId = contact.SignalDataKeyId();
    const int32_t position = keyId > 0 ? keyIds_.Position(keyId) : -1;
    if (position < 0 || (func_ != FuncRenum && func_ != FuncErase))
        return true;
    using Change = CFieldChange<CNodeKontakt, int32_t>;
    auto low = Change::Set(contact, &CNodeKontakt::SignalDataKeyId, &CNodeKontakt::SetSignalDataKeyId,
                           func_ == FuncRenum ? position + 1 : 0);
    auto high = func_ == FuncErase
                    ? Change::Set(contact, &CNodeKontakt::SignalDataHigh, &CNodeKontakt::SetSignalDataHigh, 0)
                    : nullptr;
    if (low || high)
        ++changed_;
    step_->Add(std::move(low));
    step_->Add(std::move(high));
    return true;
}

} // namespace kavrin
