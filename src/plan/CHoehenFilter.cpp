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

// Written as "not (h >= Bottom)" so that a height that is no number (NaN) fails an active
// lower limit instead of slipping through.
bool CHoehenFilter::inRange(double h) const {
    if (bottomActive_ && !(h >= bottom_))
        return false;
    if (topActive_ && h > top_)
        return false;
    return true;
}

} // namespace kavrin
