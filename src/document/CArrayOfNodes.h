#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "document/INode.h"

namespace kavrin {

// Growable, owning array of nodes with a set initial size and linear growth.
class CArrayOfNodes {
public:
    void Size(int32_t initialSize, int32_t growthStep);
    void Add(std::unique_ptr<INode> node);
    int32_t FirstIndex() const { return 0; }
    int32_t LastIndex() const { return static_cast<int32_t>(nodes_.size()) - 1; }
    int32_t Count() const { return static_cast<int32_t>(nodes_.size()); }
    static constexpr int32_t NoIndex() { return -1; }
    INode* Item(int32_t index) const;
    // Takes the node at index out of the array, keeping the order of the others.
    std::unique_ptr<INode> Remove(int32_t index);
    std::unique_ptr<INode> Replace(int32_t index, std::unique_ptr<INode> node);
    // Puts a node in at index (0 .. Count()), moving the later ones up.
    void Insert(int32_t index, std::unique_ptr<INode> node);
    void RemoveAll();
    void Freeze();
    int32_t UpperBound() const { return static_cast<int32_t>(nodes_.capacity()) - 1; }

    auto begin() const { return nodes_.begin(); }
    auto end() const { return nodes_.end(); }

private:
    std::vector<std::unique_ptr<INode>> nodes_;
    int32_t initialSize_ = 10;
    int32_t growthStep_ = 5;
};

} // namespace kavrin
