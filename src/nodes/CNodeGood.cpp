#include "nodes/CNodeGood.h"

#include "core/CStringPack.h"

namespace kavrin {

std::string_view CNodeGood::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "gsbname")
        return value;
    gsbNameId_ = FileNames().PutString(value);
    return kOwnedValue;
}

Variant CNodeGood::XmlAttr(std::string_view name) const {
    if (name == "gsbname")
        return GsbName();
    return {};
}

namespace {
constexpr uint8_t kFrameSlot = 1;
}

bool CNodeGood::TakeElement(const XmlElement& element) {
    return frame_.OfferElement(element, [this] { NoteOwnedChild(kFrameSlot); });
}

bool CNodeGood::AddChild(std::unique_ptr<INode>& child) {
    return frame_.Offer(child, [this] { NoteOwnedChild(kFrameSlot); }) || CNodeBase::AddChild(child);
}

std::span<const uint8_t> CNodeGood::DefaultSlots() const {
    static const uint8_t order[] = {kFrameSlot, CChildOrder::kKept};
    return order;
}

int CNodeGood::OwnedChildCount(uint8_t slot) const {
    return slot == kFrameSlot && frame_.Present() ? 1 : 0;
}

bool CNodeGood::WriteOwnedChild(CXmlWriter& writer, uint8_t, int) {
    return frame_.Write(writer);
}

const std::string& CNodeGood::GsbName() const {
    return FileNames().GetString(gsbNameId_);
}

bool CNodeGood::Paint(CPaintTarget& target) {
    return PaintPlaced(target, DreiBein(), PlacedMark::Goods, GsbName());
}

bool CNodeGood::inRect(const CRect& world) const {
    return world.Contains(DreiBein().Pos().X, DreiBein().Pos().Y);
}

} // namespace kavrin
