#include "nodes/CNodeDreibein.h"

#include "nodes/CNodeVektor.h"
#include "nodes/modNodes.h"

namespace kavrin {

bool CNodeDreibein::AddChild(std::unique_ptr<INode>& child) {
    auto* vektor = dynamic_cast<CNodeVektor*>(child.get());
    if (!vektor || child->Name() != "Vektor")
        return CNodeBase::AddChild(child);
    // An unknown vector name is logged but does not fail the element; the child is released.
    GrabVector(*vektor);
    return true;
}

bool CNodeDreibein::XmlChildren(CXmlWriter& writer) {
    return WriteFrameVectors(writer, DreiBein()) && CNodeBase::XmlChildren(writer);
}

void CNodeDreibein::MovePos(double dx, double dy) {
    DreiBein().Pos().Move(dx, dy, 0);
}

C3Bein& CNodeDreibein::DreiBein() {
    if (!frame_)
        frame_ = std::make_unique<C3Bein>();
    return *frame_;
}

bool CNodeDreibein::GrabVector(const CNodeVektor& vektor) {
    const std::string& name = vektor.Text();
    CVector* target = nullptr;
    if (name == "Pos")
        target = &DreiBein().Pos();
    else if (name == "Dir")
        target = &DreiBein().Dir();
    else if (name == "Nor")
        target = &DreiBein().Nor();
    else if (name == "Bin")
        target = &DreiBein().Bin();
    if (!target) {
        // The message has always named the frame's own text here, not the vector's.
        AddParseHint(FormatMessage("Unbekannter Vektor '%1' im Dreibein!", Text()));
        return false;
    }
    target->Copy(vektor.Vector());
    return true;
}

} // namespace kavrin
