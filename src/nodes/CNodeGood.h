#pragma once

#include <cstdint>
#include <string>

#include "document/CNodeBase.h"
#include "document/NodeAttributes.h"
#include "nodes/CObjectFrame.h"
#include "nodes/IPlaced.h"
#include "plan/CPaintState.h"

namespace kavrin {

// "Good": one goods item, its model file and its placement frame.
class CNodeGood final : public CNodeBase, public CPaintState, public IPlaced {
public:
    const char* ClassName() const override { return "CNodeGood"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool TakeElement(const XmlElement& element) override;

    int16_t GsbNameId() const { return gsbNameId_; }
    const std::string& GsbName() const;
    C3Bein& DreiBein() { return frame_.DreiBein(); }
    const C3Bein& DreiBein() const { return frame_.DreiBein(); }
    bool HasFrame() const { return frame_.Present(); }
    void MovePos(double dx, double dy, double dz = 0) {
        frame_.MovePos(dx, dy, dz);
        MoveAnchor(frame_.DreiBein().Pos(), 0);
    }

    // On the plan: a small circle at its position, its model's name with WithNames.
    bool Paint(CPaintTarget& target) override;
    bool inRect(const CRect& world) const override;
    void Move(double dx, double dy, double dz) override { MovePos(dx, dy, dz); }
    void Rotate(double angle, double cx, double cy) override {
        frame_.Rotate(angle, cx, cy);
        MoveAnchor(frame_.DreiBein().Pos(), 0);
    }
    Kind PaintKind() const override { return Kind::Good; }
    // Not while the simulator has it locked ("LockEd" other than 0).
    bool isDeleteable() const override { return !LockedInSimulator(*this); }

    void MoveFrame(double dx, double dy, double dz) override { MovePos(dx, dy, dz); }
    void RotateFrame(double angle, double cx, double cy) override { Rotate(angle, cx, cy); }
    CPlacement TakePlacement(bool turning) override { return frame_.Placement(turning); }
    void SetPlacement(CPlacement&& placement) override {
        frame_.SetPlacement(placement);
        MoveAnchor(frame_.DreiBein().Pos(), 0);
    }

protected:
    // The frame first, then the kept children, unless the file had them otherwise.
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    int16_t gsbNameId_ = 0;
    CObjectFrame frame_;
};

} // namespace kavrin
