#include "plan/CHoehenFilter.h"

namespace kavrin {

void CHoehenFilter::Clear() {
    ClearTopLine();
    ClearBottomLine();
}

void CHoehenFilter::SetTopLine(float h) {
    topActive_ = true;
    top_ = h;
}

void CHoehenFilter::SetBottomLine(float h) {
    bottomActive_ = true;
    bottom_ = h;
}

void CHoehenFilter::SetFilter(float bottom, float top) {
    SetBottomLine(bottom);
    SetTopLine(top);
}

} // namespace kavrin
