#pragma once

#include <cstdint>
#include <vector>

namespace kavrin {

// Growable array of 32-bit values with a set initial size and linear growth (never doubling).
class CArrayOfLong {
public:
    void Size(int32_t initialSize, int32_t growthStep);
    void Add(int32_t value);
    int32_t FirstIndex() const { return 0; }
    int32_t LastIndex() const { return lastIndex_; }
    void RemoveAll();
    void Clear();
    int32_t Item(int32_t index) const;
    void SetItem(int32_t index, int32_t value);
    int32_t AddUnique(int32_t value);
    int32_t Find(int32_t value) const;
    int32_t Count() const { return LastIndex() - FirstIndex() + 1; }
    static constexpr int32_t NoIndex() { return -1; }
    void Freeze();
    void Compact(int32_t value);

    // Upper bound of the storage, -1 while none exists.
    int32_t UpperBound() const { return upperBound_; }
    int32_t InitialSize() const { return initialSize_; }
    int32_t GrowthStep() const { return growthStep_; }

private:
    std::vector<int32_t> storage_;
    int32_t initialSize_ = 10;
    int32_t growthStep_ = 5;
    int32_t lastIndex_ = -1;
    int32_t upperBound_ = -1;
};

} // namespace kavrin
