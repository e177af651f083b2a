#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "edit/CChange.h"

namespace kavrin {

class CNodeBase;
class INode;

// Many kept children of one node taken out at once (the contacts of a track, the goods of the
// list, the tracks of a system), in one pass however many there are. The children move into the
// change, never copied, and undo puts each back exactly where it stood, also in a recorded
// order of children. Classes that index their children elsewhere as well (a track system's
// track registry) need a change of their own beside this one.
class CChildrenChange : public CChange {
public:
    // Takes out the children at these indices (ascending, each once).
    static std::unique_ptr<CChildrenChange> TakeOut(CNodeBase& parent, std::vector<int32_t> indices);

    void Undo() override;
    void Redo() override;
    CNodeBase& Parent() const { return parent_; }
    // Where the children stood (ascending), and the children while the change holds them.
    const std::vector<int32_t>& Indices() const { return indices_; }
    const std::vector<std::unique_ptr<INode>>& Held() const { return held_; }

private:
    CChildrenChange(CNodeBase& parent, std::vector<int32_t> indices);

    CNodeBase& parent_;
    std::vector<int32_t> indices_;
    std::vector<size_t> orderPlaces_;
    std::vector<std::unique_ptr<INode>> held_;
};

} // namespace kavrin
