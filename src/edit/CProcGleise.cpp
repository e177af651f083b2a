#include "edit/CProcGleise.h"

#include "edit/CForAll.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGleisSys.h"

namespace kavrin {

bool CProcGleise::Process(INode*& node, int32_t) {
    return CForAll::Gleise(CCast::Required(CCast::NodeGleisSys(node)), NextProc());
}

} // namespace kavrin
