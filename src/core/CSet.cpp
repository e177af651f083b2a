#include "core/CSet.h"

#include <limits>

#include "core/CError.h"

namespace kavrin {

int32_t CSet::NextFree(int32_t from) const {
    int64_t candidate = from;
    for (auto it = used_.lower_bound(from); it != used_.end() && *it == candidate; ++it)
        ++candidate;
    if (candidate > std::numeric_limits<int32_t>::max())
        throw CError::Overflow();
    return static_cast<int32_t>(candidate);
}

int32_t CSet::NextUsed(int32_t from) const {
    auto it = used_.lower_bound(from);
    return it == used_.end() ? NoIndex() : *it;
}

} // namespace kavrin
