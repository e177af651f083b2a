#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "nodes/CVector.h"
#include "plan/CPaintTarget.h"
#include "plan/IPaint.h"

namespace kavrin {

class C3Bein;

// The state every paintable node keeps: selection, the flags of the last paint and its key.
// Node classes derive from it and add only what draws and edits them.
class CPaintState : public IPaint {
public:
    // Kinds that are only shown on request start inactive.
    explicit CPaintState(bool active = true);
    CPaintState(const CPaintState&);
    CPaintState& operator=(const CPaintState&);

    bool Selected() const final { return selected_; }
    void SetSelected(bool selected) final { selected_ = selected; }
    std::string Key() const override;
    uint32_t KeyNumber() const final { return key_; }
    bool Active() const final { return active_; }
    void SetActive(bool active) final { active_ = active; }
    bool OnPlan() const final { return onPlan_; }
    void SetOnPlan(bool onPlan) final { onPlan_ = onPlan; }
    bool InHeightRange() const final { return inHeightRange_; }
    void SetInHeightRange(bool inRange) final { inHeightRange_ = inRange; }
    bool Consider(int mode) const override;
    bool isDeleteable() const override { return true; }

protected:
    // Where the object stands for the plan's culling test, kept in the object itself: a walk over
    // a large layout then reads one place per object instead of chasing its frame. The class
    // sets it at its first paint and drops it whenever the object moves.
    bool AnchorKnown() const { return anchorKnown_; }
    void SetAnchor(double x, double y, double z, double reach) {
        anchorX_ = x, anchorY_ = y, anchorZ_ = z, anchorReach_ = reach, anchorKnown_ = true;
    }
    void ForgetAnchor() { anchorKnown_ = false; }
    // The object was moved or turned and now stands at `start`: a known anchor goes along, so
    // that a large edit does not make the next drawing look at every object's frame again.
    void MoveAnchor(const CVector& start, double reach) {
        if (anchorKnown_)
            SetAnchor(start.X, start.Y, start.Z, reach);
    }
    // The start of Paint from the anchor; (x, y) then hold the offset position.
    bool PaintPrologueAtAnchor(CPaintTarget& target, double& x, double& y) {
        x = anchorX_, y = anchorY_;
        return PaintPrologue(target, x, y, anchorZ_, anchorReach_);
    }
    // The common start of Paint: the height test (recorded), the offsets and the culling test.
    // True when the node is to be drawn; (x, y) then hold the offset position. A selected node
    // that is drawn is noted, so that it is drawn again in the highlight colour at the end.
    bool PaintPrologue(CPaintTarget& target, double& x, double& y, double z, double margin) {
        inHeightRange_ = target.Filter().inRange(z);
        if (!inHeightRange_)
            return false;
        x += target.View().PaintXOffset;
        y += target.View().PaintYOffset;
        if (!target.View().IsVisible(x, y, margin))
            return false;
        if (selected_ && !target.Highlighting)
            target.NoteSelected(this);
        return true;
    }
    enum class PlacedMark { Building, Goods };
    // The whole Paint of an object that stands by its placement frame: a mark at its position
    // and, with WithNames, the name of its model beside it.
    bool PaintPlaced(CPaintTarget& target, const C3Bein& frame, PlacedMark mark, std::string_view modelPath);
    // The common end of Paint: records and returns whether the node was drawn.
    bool PaintEpilogue(bool drawn) {
        onPlan_ = drawn;
        return drawn;
    }

private:
    uint32_t key_;
    bool selected_ = false;
    bool active_ = true;
    bool onPlan_ = false;
    bool inHeightRange_ = true;
    bool anchorKnown_ = false;
    double anchorX_ = 0, anchorY_ = 0, anchorZ_ = 0, anchorReach_ = 0;
};

} // namespace kavrin
