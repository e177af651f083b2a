#include "edit/CProcGoodRemove.h"

#include <algorithm>

#include "core/CError.h"
#include "edit/CChildrenChange.h"
#include "edit/CEditStep.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGood.h"

namespace kavrin {

void CProcGoodRemove::Init(CEditStep& step) {
    step_ = &step;
    removed_ = 0;
}

bool CProcGoodRemove::Start() {
    list_ = nullptr;
    keys_.clear();
    return true;
}

bool CProcGoodRemove::Process(INode*& node, int32_t key) {
    if (!step_)
        throw CError::ObjectNotSet();
    CNodeGood& good = CCast::Required(CCast::NodeGood(node));
    auto* list = dynamic_cast<CNodeBase*>(good.Parent());
    if (!list || (list_ && list_ != list))
        throw CError::TypeMismatch();
    list_ = list;
    if (good.Selected() && good.isDeleteable())
        keys_.push_back(key);
    return true;
}

bool CProcGoodRemove::Finish() {
    if (list_ && !keys_.empty()) {
        std::sort(keys_.begin(), keys_.end());
        keys_.erase(std::unique(keys_.begin(), keys_.end()), keys_.end());
        removed_ += static_cast<int32_t>(keys_.size());
        step_->Add(CChildrenChange::TakeOut(*list_, std::move(keys_)));
    }
    keys_.clear();
    list_ = nullptr;
    return true;
}

} // namespace kavrin
