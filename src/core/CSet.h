#pragma once

#include <cstdint>
#include <set>

namespace kavrin {

// A set of whole numbers (contact targets, ids), answering membership and the next used or free
// number in ascending order. Any 32-bit value may be used; the set holds only what was used.
class CSet {
public:
    void Reset() { used_.clear(); }
    bool isEmpty() const { return used_.empty(); }
    void Use(int32_t value) { used_.insert(value); }
    bool isUsed(int32_t value) const { return used_.count(value) != 0; }
    bool isFree(int32_t value) const { return !isUsed(value); }
    // The smallest free number not below `from`; an overflow when every number from there on is used.
    int32_t NextFree(int32_t from) const;
    // The smallest used number not below `from`, NoIndex when there is none.
    int32_t NextUsed(int32_t from) const;
    int32_t Count() const { return static_cast<int32_t>(used_.size()); }
    static constexpr int32_t NoIndex() { return -1; }

private:
    std::set<int32_t> used_;
};

} // namespace kavrin
