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

std::vector<size_t> CChildOrder::RemovedMany(uint8_t slot, const std::vector<int32_t>& instances) {
    std::vector<size_t> places;
    if (!entries_)
        return places;
    std::vector<uint8_t>& entries = *entries_;
    size_t next = 0, write = 0;
    int32_t seen = 0;
    for (size_t read = 0; read < entries.size(); ++read) {
        bool removed = false;
        if (entries[read] == slot) {
            removed = next < instances.size() && instances[next] == seen;
            ++seen;
        }
        if (removed) {
            places.push_back(read);
            ++next;
        } else {
            entries[write++] = entries[read];
        }
    }
    entries.resize(write);
    return places;
}

void CChildOrder::RestoreMany(const std::vector<size_t>& places, uint8_t slot) {
    if (!entries_ || places.empty())
        return;
    std::vector<uint8_t> merged;
    merged.reserve(entries_->size() + places.size());
    size_t next = 0, read = 0;
    while (read < entries_->size() || next < places.size()) {
        if (next < places.size() && (places[next] == merged.size() || read >= entries_->size())) {
            merged.push_back(slot);
            ++next;
        } else {
            merged.push_back((*entries_)[read++]);
        }
    }
    *entries_ = std::move(merged);
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
