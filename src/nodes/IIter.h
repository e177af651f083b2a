#pragma once

#include <cstdint>

namespace kavrin {

class INode;

// Walks the nodes of one kind among the children of a node: Walk starts over the collection,
// then HasNext tells whether another one follows, GetNext takes it, and CurrentIndex is its key
// (its index among the collection's children), -1 before the first.
class IIter {
public:
    virtual ~IIter() = default;
    virtual void Walk(INode& collection) = 0;
    virtual bool HasNext() = 0;
    virtual INode* GetNext() = 0;
    virtual int32_t CurrentIndex() const = 0;
};

} // namespace kavrin
