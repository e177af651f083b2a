#include "edit/IProc.h"

namespace kavrin {

bool IProc::Process(INode*&, int32_t) {
    return false;
}

} // namespace kavrin
