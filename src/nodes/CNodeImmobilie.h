#pragma once

#include <cstdint>
#include <string>

#include "document/CArrayOfNodes.h"
#include "document/CNodeBase.h"
#include "document/CNodePool.h"
#include "document/ICopy.h"
#include "nodes/CObjectFrame.h"
#include "plan/CPaintState.h"

namespace kavrin {

class CNodeBewegTeil;

// "Immobile" (spelled so in the file): one building or scenery object of a collection, with its
// model file, its placement frame, the collector of its own tracks and its moving parts.
class CNodeImmobilie final : public CPaintState, public CNodeBase, public ICopy {
public:
    const char* ClassName() const override { return "CNodeImmobilie"; }
    KAVRIN_NODE_POOLED(CNodeImmobilie)
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool CheckNode() override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool TakeElement(const XmlElement& element) override;
    void Clear() override;

    std::unique_ptr<INode> Clone() const override;
    // Copies the moving parts too: they are written as part of the object.
    void Copy(const INode& source) override;

    int16_t GsbNameId() const { return gsbNameId_; }
    const std::string& GsbName() const;
    int32_t KollektorId() const { return kollektorId_; }
    void SetKollektorId(int32_t id) { kollektorId_ = id; }
    int32_t ImmoIdx() const { return immoIdx_; }
    void SetImmoIdx(int32_t index) { immoIdx_ = index; }
    const CArrayOfNodes& BewegTeile() const { return bewegTeile_; }

    C3Bein& DreiBein() { return frame_.DreiBein(); }
    const C3Bein& DreiBein() const { return frame_.DreiBein(); }
    bool HasFrame() const { return frame_.Present(); }
    void MovePos(double dx, double dy) {
        frame_.MovePos(dx, dy);
        ForgetAnchor();
    }

    // A track-accompanying object: one that stands in the collection 1, 2, 3 or 6.
    bool isGleisObjekt() const;

    // On the plan: a square with a stroke in its viewing direction at its position, its model's name with
    // WithNames.
    bool Paint(CPaintTarget& target) override;
    bool inRect(const CRect& world) const override;
    void Move(double dx, double dy) override { MovePos(dx, dy); }
    void Rotate(double angle, double cx, double cy) override {
        DreiBein().Rotate(angle, cx, cy);
        ForgetAnchor();
    }

protected:
    // Moving parts first, then the frame, then the kept children, unless the file had them
    // otherwise.
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    void AddBewegTeil(std::unique_ptr<INode> part);

    int16_t gsbNameId_ = 0;
    int32_t kollektorId_ = 0;
    int32_t immoIdx_ = 0;
    CArrayOfNodes bewegTeile_;
    CObjectFrame frame_;
};

} // namespace kavrin
