#pragma once

#include <memory>

namespace kavrin {

class INode;

// Node classes that can be copied for copy and paste.
class ICopy {
public:
    virtual ~ICopy() = default;
    // A new node of the same class holding a copy of this one.
    virtual std::unique_ptr<INode> Clone() const = 0;
    // Makes this node a copy of source (frames by value, kept children deep-copied).
    virtual void Copy(const INode& source) = 0;
};

// Clone as every copyable class does it: a new, empty node of the same class made a copy of self.
template <typename T> std::unique_ptr<INode> CloneOf(const T& self) {
    auto copy = std::make_unique<T>();
    copy->SetAnlage(self.Anlage());
    copy->Copy(self);
    return copy;
}

} // namespace kavrin
