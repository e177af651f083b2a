#include "edit/CProcMeldungen.h"

#include "edit/CForAll.h"
#include "nodes/CCast.h"
#include "nodes/CNodeGleis.h"

namespace kavrin {

bool CProcMeldungen::Process(INode*& node, int32_t) {
    return CForAll::Meldungen(CCast::Required(CCast::NodeGleis(node)), NextProc());
}

} // namespace kavrin
