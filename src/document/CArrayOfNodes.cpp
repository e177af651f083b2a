#include "document/CArrayOfNodes.h"

#include <algorithm>
#include <limits>

#include "core/CError.h"

namespace kavrin {

void CArrayOfNodes::Size(int32_t initialSize, int32_t growthStep) {
    initialSize_ = initialSize;
    if (growthStep > 0)
        growthStep_ = growthStep;
}

// The first storage holds initial size + 1 entries, then it grows by the step. The upper bound
// grows linearly; the vector underneath may keep spare room, so growing costs no copy per step.
void CArrayOfNodes::Reserve(int32_t extra) {
    int64_t needed = int64_t(lastIndex_) + extra;
    if (needed >= std::numeric_limits<int32_t>::max())
        throw CError::Overflow();
    int64_t upper = UpperBound();
    if (needed <= upper)
        return;
    if (storage_.empty())
        upper = std::max<int64_t>(initialSize_, 0);
    if (needed > upper) {
        int64_t steps = (needed - upper + growthStep_ - 1) / growthStep_;
        upper += steps * growthStep_;
    }
    if (upper >= std::numeric_limits<int32_t>::max())
        throw CError::Overflow();
    storage_.resize(static_cast<size_t>(upper) + 1);
}

void CArrayOfNodes::Add(std::unique_ptr<INode> node) {
    Reserve(1);
    storage_[static_cast<size_t>(++lastIndex_)] = std::move(node);
}

void CArrayOfNodes::CheckStorageIndex(int32_t index) const {
    if (index < 0 || index > UpperBound())
        throw CError::SubscriptOutOfRange();
}

INode* CArrayOfNodes::Item(int32_t index) const {
    CheckStorageIndex(index);
    return storage_[static_cast<size_t>(index)].get();
}

std::unique_ptr<INode> CArrayOfNodes::SetItem(int32_t index, std::unique_ptr<INode> node) {
    CheckStorageIndex(index);
    std::swap(storage_[static_cast<size_t>(index)], node);
    return node;
}

std::unique_ptr<INode> CArrayOfNodes::Remove(int32_t index) {
    if (index < 0 || index > lastIndex_)
        throw CError::SubscriptOutOfRange();
    auto at = storage_.begin() + index;
    auto node = std::move(*at);
    std::move(at + 1, storage_.begin() + Count(), at);
    --lastIndex_;
    return node;
}

std::unique_ptr<INode> CArrayOfNodes::Replace(int32_t index, std::unique_ptr<INode> node) {
    if (index < 0 || index > lastIndex_)
        throw CError::SubscriptOutOfRange();
    std::swap(storage_[static_cast<size_t>(index)], node);
    return node;
}

void CArrayOfNodes::Insert(int32_t index, std::unique_ptr<INode> node) {
    if (index < 0 || index > Count())
        throw CError::SubscriptOutOfRange();
    Reserve(1);
    auto at = storage_.begin() + index;
    std::move_backward(at, storage_.begin() + Count(), storage_.begin() + Count() + 1);
    *at = std::move(node);
    ++lastIndex_;
}

void CArrayOfNodes::InsertAt(const std::vector<int32_t>& places, std::vector<std::unique_ptr<INode>> nodes) {
    if (places.size() != nodes.size())
        throw CError::SubscriptOutOfRange();
    const int64_t total = int64_t(Count()) + static_cast<int64_t>(places.size());
    for (size_t i = 0; i < places.size(); ++i)
        if (places[i] < 0 || places[i] >= total || (i > 0 && places[i] <= places[i - 1]))
            throw CError::SubscriptOutOfRange();
    Reserve(static_cast<int32_t>(places.size()));
    // From the back: each old entry moves up by the number of new ones placed before it.
    int64_t read = Count() - 1;
    size_t next = places.size();
    for (int64_t write = total - 1; write >= 0 && next > 0; --write) {
        if (places[next - 1] == write)
            storage_[static_cast<size_t>(write)] = std::move(nodes[--next]);
        else
            storage_[static_cast<size_t>(write)] = std::move(storage_[static_cast<size_t>(read--)]);
    }
    lastIndex_ = static_cast<int32_t>(total - 1);
}

void CArrayOfNodes::RemoveAll() {
    storage_.clear();
    storage_.shrink_to_fit();
    lastIndex_ = -1;
}

void CArrayOfNodes::Clear() {
    for (auto& node : storage_)
        node.reset();
    lastIndex_ = -1;
}

void CArrayOfNodes::Freeze() {
    if (lastIndex_ < 0) {
        RemoveAll();
        return;
    }
    storage_.resize(static_cast<size_t>(lastIndex_) + 1);
    storage_.shrink_to_fit();
}

void CArrayOfNodes::Compact(const INode* value) {
    int32_t write = 0;
    for (int32_t read = 0; read <= lastIndex_; ++read) {
        auto& entry = storage_[static_cast<size_t>(read)];
        if (entry.get() == value)
            entry.reset();
        else
            storage_[static_cast<size_t>(write++)] = std::move(entry);
    }
    lastIndex_ = write - 1;
}

} // namespace kavrin
