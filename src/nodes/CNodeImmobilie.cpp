#include "nodes/CNodeImmobilie.h"

#include "core/CStringPack.h"
#include "nodes/CNodeBewegTeil.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/modNodes.h"

namespace kavrin {

std::string_view CNodeImmobilie::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "gsbname")
        gsbNameId_ = FileNames().PutString(value);
    else if (name == "kollektorID")
        kollektorId_ = TextToLong(value);
    else if (name == "ImmoIdx")
        immoIdx_ = TextToLong(value);
    else
        return value;
    return kOwnedValue;
}

Variant CNodeImmobilie::XmlAttr(std::string_view name) const {
    if (name == "gsbname")
        return GsbName();
    if (name == "kollektorID")
        return kollektorId_;
    if (name == "ImmoIdx")
        return immoIdx_;
    return {};
}

bool CNodeImmobilie::CheckNode() {
    bewegTeile_.Freeze();
    return CNodeBase::CheckNode();
}

namespace {
constexpr uint8_t kPartSlot = 1;
constexpr uint8_t kFrameSlot = 2;
} // namespace

bool CNodeImmobilie::TakeElement(const XmlElement& element) {
    return frame_.OfferElement(element, [this] { NoteOwnedChild(kFrameSlot); });
}

bool CNodeImmobilie::AddChild(std::unique_ptr<INode>& child) {
    if (dynamic_cast<CNodeBewegTeil*>(child.get()) && child->Name() == "BeweglichesTeil") {
        NoteOwnedChild(kPartSlot);
        AddBewegTeil(std::move(child));
        return true;
    }
    if (frame_.Offer(child, [this] { NoteOwnedChild(kFrameSlot); }))
        return true;
    return CNodeBase::AddChild(child);
}

std::span<const uint8_t> CNodeImmobilie::DefaultSlots() const {
    static const uint8_t order[] = {kPartSlot, kFrameSlot, CChildOrder::kKept};
    return order;
}

int CNodeImmobilie::OwnedChildCount(uint8_t slot) const {
    if (slot == kPartSlot)
        return bewegTeile_.Count();
    return slot == kFrameSlot && frame_.Present() ? 1 : 0;
}

bool CNodeImmobilie::WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) {
    return slot == kPartSlot ? WriteNode(writer, *bewegTeile_.Item(instance)) : frame_.Write(writer);
}

void CNodeImmobilie::Clear() {
    for (const auto& part : bewegTeile_)
        part->Clear();
    bewegTeile_.RemoveAll();
    CNodeBase::Clear();
}

std::unique_ptr<INode> CNodeImmobilie::Clone() const {
    return CloneOf(*this);
}

void CNodeImmobilie::Copy(const INode& source) {
    CopyBaseContent(source);
    const auto* building = dynamic_cast<const CNodeImmobilie*>(&source);
    if (!building)
        return;
    frame_.CopyFrom(building->frame_, this);
    gsbNameId_ = building->gsbNameId_;
    kollektorId_ = building->kollektorId_;
    immoIdx_ = building->immoIdx_;
    bewegTeile_.RemoveAll();
    for (const auto& part : building->bewegTeile_)
        AddBewegTeil(CloneNode(*part));
}

const std::string& CNodeImmobilie::GsbName() const {
    return FileNames().GetString(gsbNameId_);
}

bool CNodeImmobilie::isGleisObjekt() const {
    const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(Parent());
    return collection && collection->HoldsGleisObjekte();
}

void CNodeImmobilie::AddBewegTeil(std::unique_ptr<INode> part) {
    if (bewegTeile_.UpperBound() < 0)
        bewegTeile_.Size(5, 10);
    part->SetParent(this);
    part->SetAnlage(Anlage());
    bewegTeile_.Add(std::move(part));
}

bool CNodeImmobilie::Paint(CPaintTarget& target) {
    return PaintPlaced(target, DreiBein(), PlacedMark::Building, GsbName());
}

bool CNodeImmobilie::inRect(const CRect& world) const {
    return world.Contains(DreiBein().Pos().X, DreiBein().Pos().Y);
}

} // namespace kavrin
