#include "core/CEntryCounter.h"

#include <limits>

#include "core/CError.h"

namespace kavrin {

int32_t CEntryCounter::INCREMENT(int32_t key) {
    auto [it, added] = indexOf_.try_emplace(key, Count());
    if (added) {
        entries_.push_back({key, 0});
    }
    Entry& entry = entries_[static_cast<size_t>(it->second)];
    if (entry.count == std::numeric_limits<int32_t>::max())
        throw CError::Overflow();
    ++entry.count;
    return it->second;
}

void CEntryCounter::Clear() {
    entries_.clear();
    indexOf_.clear();
}

const CEntryCounter::Entry& CEntryCounter::At(int32_t index) const {
    if (index < 0 || index >= Count())
        throw CError::SubscriptOutOfRange();
    return entries_[static_cast<size_t>(index)];
}

int32_t CEntryCounter::Key(int32_t index) const {
    return At(index).key;
}

int32_t CEntryCounter::Counter(int32_t index) const {
    return At(index).count;
}

int32_t CEntryCounter::Find(int32_t key) const {
    auto it = indexOf_.find(key);
    return it == indexOf_.end() ? NoIndex() : it->second;
}

} // namespace kavrin
