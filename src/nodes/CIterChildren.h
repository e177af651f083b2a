#pragma once

#include "core/CError.h"
#include "document/CArrayOfNodes.h"
#include "document/INode.h"
#include "nodes/IIter.h"

namespace kavrin {

// The children of class T of a node, in their order; children of other classes are passed over.
// The next one is looked for only when asked, so the walk costs one look at each child.
template <typename T> class CIterChildren : public IIter {
public:
    void Walk(INode& collection) override {
        children_ = &collection.SubNodes();
        current_ = -1;
        next_ = -1;
        looked_ = false;
    }
    bool HasNext() override {
        if (!looked_) {
            next_ = Find(current_ + 1);
            looked_ = true;
        }
        return next_ >= 0;
    }
    INode* GetNext() override {
        if (!HasNext())
            throw CError::SubscriptOutOfRange();
        current_ = next_;
        looked_ = false;
        return children_->Item(current_);
    }
    int32_t CurrentIndex() const override { return current_; }
    T* Current() const { return current_ < 0 ? nullptr : dynamic_cast<T*>(children_->Item(current_)); }

private:
    int32_t Find(int32_t from) const {
        if (!children_)
            return -1;
        for (int32_t i = from; i < children_->Count(); ++i)
            if (dynamic_cast<T*>(children_->Item(i)))
                return i;
        return -1;
    }

    const CArrayOfNodes* children_ = nullptr;
    int32_t current_ = -1;
    int32_t next_ = -1;
    bool looked_ = false;
};

} // namespace kavrin
