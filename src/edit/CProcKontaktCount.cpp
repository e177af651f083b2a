#include "edit/CProcKontaktCount.h"

#include "core/CError.h"
#include "nodes/CCast.h"
#include "nodes/CNodeKontakt.h"

namespace kavrin {

void CProcKontaktCount::Init() {
    counter_ = std::make_unique<CEntryCounter>();
}

bool CProcKontaktCount::Process(INode*& node, int32_t) {
    if (!counter_)
        throw CError::ObjectNotSet();
    counter_->INCREMENT(CCast::Required(CCast::NodeKontakt(node)).SetType());
    return true;
}

} // namespace kavrin
