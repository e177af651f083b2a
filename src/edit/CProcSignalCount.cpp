#include "edit/CProcSignalCount.h"

#include "core/CError.h"
#include "nodes/CCast.h"
#include "nodes/CNodeMeldung.h"

namespace kavrin {

void CProcSignalCount::Init() {
    counter_ = std::make_unique<CEntryCounter>();
    names_ = std::make_unique<CStringPack>("Signalnamen");
}

bool CProcSignalCount::Process(INode*& node, int32_t) {
    if (!counter_)
        throw CError::ObjectNotSet();
    CNodeMeldung& signal = CCast::Required(CCast::NodeMeldung(node));
    counter_->INCREMENT(names_->PutString(signal.SignalName()));
    return true;
}

const std::string& CProcSignalCount::Name(int32_t index) const {
    return names_->GetString(static_cast<int16_t>(Counter().Key(index)));
}

} // namespace kavrin
