#include "nodes/CObjectFrame.h"

#include <pugixml.hpp>

#include "core/modTools.h"
#include "document/NodeTree.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/modNodes.h"

namespace kavrin {

CObjectFrame::CObjectFrame() = default;
CObjectFrame::~CObjectFrame() = default;

namespace {
const char* const kVectorNames[] = {"Pos", "Dir", "Nor", "Bin"};

// x, y and z in this order and the vector's name as the only content.
bool IsPlainVector(const pugi::xml_node& vektor, const char* name) {
    if (vektor.type() != pugi::node_element || !NameIs(vektor.name(), "Vektor"))
        return false;
    pugi::xml_attribute a = vektor.first_attribute();
    for (const char* coordinate : {"x", "y", "z"}) {
        if (!a || !NameIs(a.name(), coordinate))
            return false;
        a = a.next_attribute();
    }
    pugi::xml_node text = vektor.first_child();
    return !a && text && text.type() == pugi::node_pcdata && !text.next_sibling() &&
           NameIs(text.value(), name);
}
} // namespace

bool CObjectFrame::IsPlainElement(const XmlElement& element) {
    if (!NameIs(element.name(), "Dreibein") || element.first_attribute())
        return false;
    pugi::xml_node vektor = element.first_child();
    for (const char* name : kVectorNames) {
        if (!IsPlainVector(vektor, name))
            return false;
        vektor = vektor.next_sibling();
    }
    return !vektor;
}

bool CObjectFrame::ReadNumbers(const XmlElement& element, std::array<double, 12>& numbers) {
    size_t i = 0;
    for (pugi::xml_node vektor = element.first_child(); vektor; vektor = vektor.next_sibling())
        for (pugi::xml_attribute a = vektor.first_attribute(); a; a = a.next_attribute()) {
            numbers[i] = TextToNumber(a.value());
            // Anything unusual goes the way of the vectors, which keep it.
            if (!FileNumberFits(numbers[i]) || !NumberTextReadsAs(a.value(), numbers[i++], false))
                return false;
        }
    return i == numbers.size();
}

void CObjectFrame::TakeNumbers(const std::array<double, 12>& numbers) {
    const double* n = numbers.data();
    for (CVector* target : {&frame_.Pos(), &frame_.Dir(), &frame_.Nor(), &frame_.Bin()}) {
        target->X = n[0];
        target->Y = n[1];
        target->Z = n[2];
        n += 3;
    }
    present_ = true;
}

bool CObjectFrame::CanTake(const INode& child) const {
    return !present_ && child.Name() == "Dreibein" && dynamic_cast<const CNodeDreibein*>(&child);
}

void CObjectFrame::Take(std::unique_ptr<INode>& child) {
    auto* dreibein = static_cast<CNodeDreibein*>(child.get());
    frame_.grab3Bein(*dreibein);
    present_ = true;
    if (!dreibein->IsPlain()) {
        child.release();
        kept_.reset(dreibein);
    }
}

bool CObjectFrame::Write(CXmlWriter& writer) const {
    if (kept_)
        return WriteNode(writer, *kept_);
    return !present_ || WriteDreibein(writer, frame_);
}

void CObjectFrame::CopyFrom(const CObjectFrame& source, INode* owner) {
    kept_.reset();
    frame_ = C3Bein(); // own vectors: the copy must not move with the original
    frame_.Copy(source.frame_);
    present_ = source.present_;
    if (!source.kept_)
        return;
    kept_ = source.kept_->CopyFor(frame_);
    kept_->SetParent(owner);
    if (owner)
        kept_->SetAnlage(owner->Anlage());
}

CPlacement CObjectFrame::Placement(bool turning) const {
    CPlacement placement;
    placement.pos = frame_.Pos();
    placement.turning = turning;
    if (turning)
        placement.axes = {frame_.Dir(), frame_.Nor(), frame_.Bin()};
    return placement;
}

void CObjectFrame::SetPlacement(const CPlacement& placement) {
    frame_.Pos() = placement.pos;
    if (!placement.turning)
        return;
    frame_.Dir() = placement.axes[0];
    frame_.Nor() = placement.axes[1];
    frame_.Bin() = placement.axes[2];
}

} // namespace kavrin
