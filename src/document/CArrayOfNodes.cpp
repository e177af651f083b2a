#include "document/CArrayOfNodes.h"

#include "core/CError.h"

namespace kavrin {

void CArrayOfNodes::Size(int32_t initialSize, int32_t growthStep) {
    initialSize_ = initialSize;
    if (growthStep > 0)
        growthStep_ = growthStep;
}

void CArrayOfNodes::Add(std::unique_ptr<INode> node) {
    if (nodes_.size() == nodes_.capacity()) {
        // Linear growth: the first storage holds initial size + 1 entries, then by the step.
        size_t capacity = nodes_.capacity() == 0 ? static_cast<size_t>(initialSize_) + 1
                                                 : nodes_.capacity() + static_cast<size_t>(growthStep_);
        nodes_.reserve(capacity);
    }
    nodes_.push_back(std::move(node));
}

INode* CArrayOfNodes::Item(int32_t index) const {
    if (index < 0 || index >= Count())
        throw CError::SubscriptOutOfRange();
    return nodes_[static_cast<size_t>(index)].get();
}

std::unique_ptr<INode> CArrayOfNodes::Remove(int32_t index) {
    if (index < 0 || index >= Count())
        throw CError::SubscriptOutOfRange();
    auto node = std::move(nodes_[static_cast<size_t>(index)]);
    nodes_.erase(nodes_.begin() + index);
    return node;
}

std::unique_ptr<INode> CArrayOfNodes::Replace(int32_t index, std::unique_ptr<INode> node) {
    if (index < 0 || index >= Count())
        throw CError::SubscriptOutOfRange();
    std::swap(nodes_[static_cast<size_t>(index)], node);
    return node;
}

void CArrayOfNodes::Insert(int32_t index, std::unique_ptr<INode> node) {
    if (index < 0 || index > Count())
        throw CError::SubscriptOutOfRange();
    nodes_.insert(nodes_.begin() + index, std::move(node));
}

void CArrayOfNodes::RemoveAll() {
    nodes_.clear();
    nodes_.shrink_to_fit();
}

void CArrayOfNodes::Freeze() {
    nodes_.shrink_to_fit();
}

} // namespace kavrin
