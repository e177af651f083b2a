#include "core/CArrayOfLong.h"

#include <limits>

#include "core/CError.h"

namespace kavrin {

void CArrayOfLong::Size(int32_t initialSize, int32_t growthStep) {
    initialSize_ = initialSize;
    if (growthStep > 0)
        growthStep_ = growthStep;
}

void CArrayOfLong::Add(int32_t value) {
    if (lastIndex_ == std::numeric_limits<int32_t>::max())
        throw CError::Overflow();
    ++lastIndex_;
    if (lastIndex_ > upperBound_) {
        int64_t newUpper = storage_.empty() ? initialSize_ : int64_t(upperBound_) + growthStep_;
        if (newUpper < lastIndex_ || newUpper >= std::numeric_limits<int32_t>::max()) {
            --lastIndex_;
            throw CError::Overflow();
        }
        storage_.resize(static_cast<size_t>(newUpper) + 1);
        storage_.shrink_to_fit();
        upperBound_ = static_cast<int32_t>(newUpper);
    }
    storage_[static_cast<size_t>(lastIndex_)] = value;
}

void CArrayOfLong::RemoveAll() {
    storage_.clear();
    storage_.shrink_to_fit();
    lastIndex_ = -1;
    upperBound_ = -1;
}

void CArrayOfLong::Clear() {
    if (!storage_.empty())
        std::fill(storage_.begin(), storage_.end(), 0);
    lastIndex_ = -1;
}

int32_t CArrayOfLong::Item(int32_t index) const {
    if (index < 0 || static_cast<size_t>(index) >= storage_.size())
        throw CError::SubscriptOutOfRange();
    return storage_[static_cast<size_t>(index)];
}

void CArrayOfLong::SetItem(int32_t index, int32_t value) {
    if (index < 0 || static_cast<size_t>(index) >= storage_.size())
        throw CError::SubscriptOutOfRange();
    storage_[static_cast<size_t>(index)] = value;
}

int32_t CArrayOfLong::AddUnique(int32_t value) {
    int32_t index = Find(value);
    if (index != NoIndex())
        return index;
    Add(value);
    return LastIndex();
}

int32_t CArrayOfLong::Find(int32_t value) const {
    for (int32_t i = FirstIndex(); i <= lastIndex_; ++i)
        if (storage_[static_cast<size_t>(i)] == value)
            return i;
    return NoIndex();
}

void CArrayOfLong::Freeze() {
    // The upper bound follows the trimmed storage, so Add after Freeze simply grows again.
    if (lastIndex_ < 0) {
        RemoveAll();
        return;
    }
    storage_.resize(static_cast<size_t>(lastIndex_) + 1);
    storage_.shrink_to_fit();
    upperBound_ = lastIndex_;
}

void CArrayOfLong::Compact(int32_t value) {
    int32_t write = 0;
    for (int32_t read = 0; read <= lastIndex_; ++read) {
        int32_t entry = storage_[static_cast<size_t>(read)];
        if (entry != value)
            storage_[static_cast<size_t>(write++)] = entry;
    }
    lastIndex_ = write - 1;
}

} // namespace kavrin
