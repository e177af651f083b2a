#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "document/INode.h"

namespace kavrin {

// Growable, owning array of nodes with a set initial size and linear growth, the node
// counterpart of CArrayOfLong: the used entries are 0 .. LastIndex(); the storage may reach
// further (UpperBound) and holds empty places there. Indices are checked against the storage.
class CArrayOfNodes {
public:
    void Size(int32_t initialSize, int32_t growthStep);
    void Add(std::unique_ptr<INode> node);
    int32_t FirstIndex() const { return 0; }
    int32_t LastIndex() const { return lastIndex_; }
    int32_t Count() const { return lastIndex_ + 1; }
    static constexpr int32_t NoIndex() { return -1; }
    // The node at an index of the storage (null at an empty place); outside it a bounds error.
    INode* Item(int32_t index) const;
    // Puts a node (or nothing) at an index of the storage; answers what stood there.
    std::unique_ptr<INode> SetItem(int32_t index, std::unique_ptr<INode> node);
    // Takes the node at a used index out of the array, keeping the order of the others.
    std::unique_ptr<INode> Remove(int32_t index);
    std::unique_ptr<INode> Replace(int32_t index, std::unique_ptr<INode> node);
    // Puts a node in at index (0 .. Count()), moving the later ones up.
    void Insert(int32_t index, std::unique_ptr<INode> node);
    // Puts nodes in at once so that afterwards they stand at `places` (ascending, each within
    // the grown array), the others keeping their order: one pass, however many there are.
    void InsertAt(const std::vector<int32_t>& places, std::vector<std::unique_ptr<INode>> nodes);
    // Releases the storage and the nodes.
    void RemoveAll();
    // Releases the nodes in use but keeps the storage.
    void Clear();
    // Trims the storage to the used entries; an empty array releases its storage.
    void Freeze();
    // Removes every used entry that is this node (null: every empty place), keeping the order
    // of the others; the nodes removed are released.
    void Compact(const INode* value = nullptr);
    int32_t UpperBound() const { return static_cast<int32_t>(storage_.size()) - 1; }

    auto begin() const { return storage_.begin(); }
    auto end() const { return storage_.begin() + Count(); }

private:
    void CheckStorageIndex(int32_t index) const;
    // Makes room for `extra` more used entries, growing by the growth step as often as needed.
    void Reserve(int32_t extra);

    std::vector<std::unique_ptr<INode>> storage_;
    int32_t initialSize_ = 10;
    int32_t growthStep_ = 5;
    int32_t lastIndex_ = -1;
};

} // namespace kavrin
