#pragma once

#include <cstdint>
#include <memory>

#include "edit/CChange.h"

namespace kavrin {

class CNodeBase;
class INode;

// A child taken out of a node's kept children, or put in, at a place. A child taken out moves
// into the change (it is never copied) and goes back exactly where it stood, also in a recorded
// order of children. Classes that index their children elsewhere as well (a track system's
// track registry) need a change of their own beside this one.
class CChildChange : public CChange {
public:
    static std::unique_ptr<CChildChange> TakeOut(CNodeBase& parent, int32_t index);
    static std::unique_ptr<CChildChange> PutIn(CNodeBase& parent, int32_t index,
                                               std::unique_ptr<INode> child);

    void Undo() override;
    void Redo() override;
    // The child while the change holds it (taken out), else null.
    const INode* Held() const { return held_.get(); }

private:
    CChildChange(CNodeBase& parent, int32_t index, bool takesOut);
    void Take();
    void Put();

    CNodeBase& parent_;
    int32_t index_;
    bool takesOut_;
    size_t orderPlace_;
    std::unique_ptr<INode> held_;
};

} // namespace kavrin
