#include "document/CChildOrder.h"

#include <algorithm>

namespace kavrin {

uint8_t CChildOrder::Rank(uint8_t slot, std::span<const uint8_t> order) {
    for (size_t i = 0; i < order.size(); ++i)
        if (order[i] == slot)
            return static_cast<uint8_t>(i);
    return static_cast<uint8_t>(order.size());
}

size_t CChildOrder::Find(uint8_t slot, int instance) const {
    int seen = 0;
    for (size_t i = 0; i < entries_->size(); ++i)
        if ((*entries_)[i] == slot && seen++ == instance)
            return i;
    return entries_->size();
}

size_t CChildOrder::Removed(uint8_t slot, int instance) {
    if (!entries_)
        return npos;
    size_t at = Find(slot, instance);
    if (at >= entries_->size())
        return npos;
    entries_->erase(entries_->begin() + static_cast<ptrdiff_t>(at));
    return at;
}

void CChildOrder::Restore(size_t place, uint8_t slot) {
    if (!entries_ || place == npos)
        return;
    entries_->insert(entries_->begin() + static_cast<ptrdiff_t>(std::min(place, entries_->size())), slot);
}

void CChildOrder::Inserted(uint8_t slot, int instance) {
    if (!entries_)
        return;
    size_t at = Find(slot, instance);
    entries_->insert(entries_->begin() + static_cast<ptrdiff_t>(at), slot);
}

void CChildOrder::CopyFrom(const CChildOrder& other) {
    entries_ = other.entries_ ? std::make_unique<std::vector<uint8_t>>(*other.entries_) : nullptr;
    lastRank_ = other.lastRank_;
}

} // namespace kavrin
