#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "document/CArrayOfNodes.h"
#include "document/CNodeBase.h"
#include "document/CNodePool.h"
#include "document/ICopy.h"
#include "document/NodeAttributes.h"
#include "nodes/CObjectFrame.h"
#include "nodes/IPlaced.h"
#include "plan/CPaintState.h"

namespace kavrin {

class CLayoutIndex;
class CNodeBewegTeil;
class CNodeGleis;
class CNodeKollektor;

// "Immobile" (spelled so in the file): one building or scenery object of a collection, with its
// model file, its placement frame, the collector of its own tracks and its moving parts.
// Moving or turning it takes its own collector and those of its moving parts along, with their
// tracks.
class CNodeImmobilie final : public CPaintState, public CNodeBase, public ICopy, public IPlaced {
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
    void MovePos(double dx, double dy, double dz = 0) {
        frame_.MovePos(dx, dy, dz);
        MoveAnchor(frame_.DreiBein().Pos(), 0);
    }

    // A track-accompanying object: one that stands in the collection 1, 2, 3 or 6.
    bool isGleisObjekt() const;

    // On the plan: a square with a stroke in its viewing direction at its position, its model's name with
    // WithNames.
    bool Paint(CPaintTarget& target) override;
    bool inRect(const CRect& world) const override;
    // The frame, then its own collector and those of the moving parts and the tracks they
    // list, except tracks that are selected (the selection moves those itself).
    void Move(double dx, double dy, double dz) override;
    void Rotate(double angle, double cx, double cy) override;
    Kind PaintKind() const override { return Kind::Immobilie; }
    // Not while the simulator has it locked ("LockEd" other than 0).
    bool isDeleteable() const override { return !LockedInSimulator(*this); }

    // The object's own frame.
    void MoveFrame(double dx, double dy, double dz) override { MovePos(dx, dy, dz); }
    void RotateFrame(double angle, double cx, double cy) override {
        frame_.Rotate(angle, cx, cy);
        MoveAnchor(frame_.DreiBein().Pos(), 0);
    }
    CPlacement TakePlacement(bool turning) override { return frame_.Placement(turning); }
    void SetPlacement(CPlacement&& placement) override {
        frame_.SetPlacement(placement);
        MoveAnchor(frame_.DreiBein().Pos(), 0);
    }

    // Collectors, looked up in the layout by their ids. The list the object holds is filled by
    // GetAllKollektors (its own collector first, then those of its moving parts) and emptied
    // by ClearKollektors, which whoever removes or renumbers collectors calls first.
    const std::vector<CNodeKollektor*>& GetAllKollektors();
    void ClearKollektors() { kollektors_.reset(); }
    // The collector of the object's own tracks ("kollektorID"), or none.
    CNodeKollektor* FirstKollektor() const;
    // Appends the collectors of the moving parts that the list does not hold yet.
    void AddBewegKollektors(std::vector<CNodeKollektor*>& list) const;
    // Whether a moving part carries tracks (its collector lists at least one).
    bool hasBewegtesGleis() const;
    // What moves along with the object: its own collector and those of its moving parts, and
    // the tracks they list (selected or not), appended to the lists (one that two parts share,
    // twice).
    bool HasCompanions() const;
    void Companions(const CLayoutIndex& index, std::vector<CNodeKollektor*>& kollektors,
                    std::vector<CNodeGleis*>& tracks) const;

protected:
    // Moving parts first, then the frame, then the kept children, unless the file had them
    // otherwise.
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    void AddBewegTeil(std::unique_ptr<INode> part);
    template <typename Transform> void MoveWithCompanions(Transform transform);

    int16_t gsbNameId_ = 0;
    int32_t kollektorId_ = 0;
    int32_t immoIdx_ = 0;
    CArrayOfNodes bewegTeile_;
    CObjectFrame frame_;
    std::unique_ptr<std::vector<CNodeKollektor*>> kollektors_;
};

} // namespace kavrin
