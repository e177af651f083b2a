#pragma once

#include <memory>

#include "document/CNodeBase.h"
#include "nodes/C3Bein.h"

namespace kavrin {

class CNodeVektor;

// "Dreibein": a placement frame read from its four "Vektor" children. Plain vectors live only in
// the frame; a vector with anything more, an unknown or a repeated one, and any other child are
// kept as nodes in their places, so the element is written back as read.
class CNodeDreibein : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeDreibein"; }
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool CheckNode() override;

    void MovePos(double dx, double dy);
    C3Bein& DreiBein();
    // Copies a vector child into the frame vector its text names; false for an unknown name.
    bool GrabVector(const CNodeVektor& vektor);
    // Four plain vectors in their usual order and nothing else: the frame says it all.
    bool IsPlain() const;
    // A copy of the element linked to another frame (for copying the object that owns it).
    std::unique_ptr<CNodeDreibein> CopyFor(const C3Bein& frame) const;

protected:
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    CVector* FrameVector(const std::string& name);
    void LinkKeptVectors();

    std::unique_ptr<C3Bein> frame_;
    uint8_t read_ = 0;     // the frame vectors read, one bit each
    uint8_t linked_ = 0;   // those of them kept as nodes linked to the frame
    bool partial_ = false; // read without all four: the missing ones are written only when set
};

} // namespace kavrin
