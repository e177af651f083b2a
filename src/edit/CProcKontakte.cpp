#include "edit/CProcKontakte.h"

#include "edit/CForAll.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGleis.h"

namespace kavrin {

bool CProcKontakte::Process(INode*& node, int32_t) {
    return CForAll::Kontakte(CCast::Required(CCast::NodeGleis(node)), NextProc());
}

} // namespace kavrin
