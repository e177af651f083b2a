#pragma once

#include <memory>

#include "document/CNodeBase.h"
#include "nodes/C3Bein.h"

namespace kavrin {

class CNodeVektor;

// "Dreibein": a placement frame read from its four "Vektor" children. The vectors live only in
// the frame; other children are kept and written after them.
class CNodeDreibein : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeDreibein"; }
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool XmlChildren(CXmlWriter& writer) override;

    void MovePos(double dx, double dy);
    C3Bein& DreiBein();
    // Copies a vector child into the frame vector its text names; false for an unknown name.
    bool GrabVector(const CNodeVektor& vektor);

private:
    std::unique_ptr<C3Bein> frame_;
};

} // namespace kavrin
