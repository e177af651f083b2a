#include "edit/CValueIndex.h"

#include <cstddef>

#include "core/CArrayOfLong.h"

namespace kavrin {

void CValueIndex::Build(const CArrayOfLong& list) {
    positions_.clear();
    positions_.reserve(static_cast<size_t>(list.Count()));
    for (int32_t i = list.FirstIndex(); i <= list.LastIndex(); ++i)
        positions_.try_emplace(list.Item(i), i);
}

int32_t CValueIndex::Position(int32_t value) const {
    auto it = positions_.find(value);
    return it == positions_.end() ? -1 : it->second;
}

} // namespace kavrin
