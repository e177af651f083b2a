#include "edit/CProcKontaktInvalid.h"

#include "core/CError.h"
#include "core/CSet.h"
#include "nodes/CCast.h"
#include "nodes/CNodeKontakt.h"

namespace kavrin {

void CProcKontaktInvalid::Init(const CSet& validTargets) {
    valid_ = &validTargets;
    invalid_.clear();
}

bool CProcKontaktInvalid::Process(INode*& node, int32_t) {
    if (!valid_)
        throw CError::ObjectNotSet();
    CNodeKontakt& contact = CCast::Required(CCast::NodeKontakt(node));
    if (contact.KontaktZiel() > 0 && valid_->isFree(contact.KontaktZiel()))
        invalid_.push_back(&contact);
    return true;
}

} // namespace kavrin
