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

} // namespace kavrin
