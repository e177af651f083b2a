#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kavrin {

// Where an element's children stood as read, for classes that keep some children in fields of
// their own ("slots": a frame, a contact target, connections) and the rest as nodes. As long as
// the file's order is the one the class writes by itself, nothing is stored; the first child out
// of that order makes the whole sequence explicit, and it is then written as read.
class CChildOrder {
public:
    // The entry of a child kept as a node; slots are numbered from 1 by each class.
    static constexpr uint8_t kKept = 0;

    // A child was read. `order` is the class's own writing order (kKept included), `present`
    // lists what the node holds before this child, in that order, should the order break here.
    template <typename ListPresent>
    void Note(uint8_t slot, std::span<const uint8_t> order, ListPresent present) {
        if (entries_) {
            entries_->push_back(slot);
            return;
        }
        uint8_t rank = Rank(slot, order);
        if (rank >= lastRank_) {
            lastRank_ = rank;
            return;
        }
        entries_ = std::make_unique<std::vector<uint8_t>>();
        present(*entries_);
        entries_->push_back(slot);
    }

    bool Recorded() const { return entries_ != nullptr; }
    const std::vector<uint8_t>& Entries() const { return *entries_; }

    // A child of `slot`, the instance-th of that slot, was taken out. Returns the place of its
    // entry, for putting it back exactly (npos when nothing is recorded).
    size_t Removed(uint8_t slot, int instance);
    // Puts an entry back at the place Removed returned.
    void Restore(size_t place, uint8_t slot);
    // Many children of `slot` taken out at once, by their instance numbers (ascending): one pass.
    // Returns the places their entries had (ascending; empty when nothing is recorded).
    std::vector<size_t> RemovedMany(uint8_t slot, const std::vector<int32_t>& instances);
    // Puts entries of `slot` back at the places RemovedMany returned.
    void RestoreMany(const std::vector<size_t>& places, uint8_t slot);
    // A new child of `slot` now stands as its instance-th: before the entry of the one that
    // follows it, or last.
    void Inserted(uint8_t slot, int instance);

    static constexpr size_t npos = static_cast<size_t>(-1);

    void Clear() {
        entries_.reset();
        lastRank_ = 0;
    }
    void CopyFrom(const CChildOrder& other);

private:
    static uint8_t Rank(uint8_t slot, std::span<const uint8_t> order);
    // Position of the instance-th entry of slot, or the entry count when there are fewer.
    size_t Find(uint8_t slot, int instance) const;

    std::unique_ptr<std::vector<uint8_t>> entries_;
    uint8_t lastRank_ = 0;
};

} // namespace kavrin
