#include "nodes/CRect.h"

#include <utility>

namespace kavrin {

void CRect::Normalize() {
    if (Left > Right)
        std::swap(Left, Right);
    if (Top < Bottom)
        std::swap(Top, Bottom);
}

} // namespace kavrin
