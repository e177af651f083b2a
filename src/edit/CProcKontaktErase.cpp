#include "edit/CProcKontaktErase.h"

#include <algorithm>

#include "core/CError.h"
#include "edit/CChildrenChange.h"
#include "edit/CEditStep.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeKontakt.h"

namespace kavrin {

void CProcKontaktErase::Init(int32_t mode, const CArrayOfLong& values, CEditStep& step) {
    mode_ = mode;
    values_.Build(values);
    step_ = &step;
    removed_ = 0;
}

bool CProcKontaktErase::Start() {
    track_ = nullptr;
    keys_.clear();
    return true;
}

bool CProcKontaktErase::Erases(const CNodeGleis& track, int32_t kind, int32_t target,
                               int32_t switched) const {
    switch (mode_) {
    case ModeTarget:
        return kind == KindSignal && values_.Contains(target);
    case ModeSwitched:
        return (kind == KindBuilding || kind == KindCrossing) && values_.Contains(switched);
    case ModeGroup:
        return track.Selected() && values_.Contains(kind);
    default:
        return false;
    }
}

bool CProcKontaktErase::Process(INode*& node, int32_t key) {
    if (!step_)
        throw CError::ObjectNotSet();
    CNodeKontakt& contact = CCast::Required(CCast::NodeKontakt(node));
    CNodeGleis& track = CCast::Required(CCast::NodeGleis(contact.Parent()));
    if (track_ && track_ != &track)
        throw CError::TypeMismatch(); // one track per Start and Finish
    track_ = &track;
    if (Erases(track, contact.SetType(), contact.KontaktZiel(), contact.SetValue()))
        keys_.push_back(key);
    return true;
}

bool CProcKontaktErase::Finish() {
    if (track_ && !keys_.empty()) {
        std::sort(keys_.begin(), keys_.end());
        keys_.erase(std::unique(keys_.begin(), keys_.end()), keys_.end());
        removed_ += static_cast<int32_t>(keys_.size());
        step_->Add(CChildrenChange::TakeOut(*track_, std::move(keys_)));
    }
    keys_.clear();
    track_ = nullptr;
    return true;
}

} // namespace kavrin
