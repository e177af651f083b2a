#include "nodes/CNodeGood.h"

#include "core/CStringPack.h"

namespace kavrin {

std::string CNodeGood::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "gsbname")
        return std::string(value);
    gsbNameId_ = FileNames().PutString(value);
    return kOwnedValue;
}

Variant CNodeGood::XmlAttr(std::string_view name) const {
    if (name == "gsbname")
        return GsbName();
    return {};
}

bool CNodeGood::AddChild(std::unique_ptr<INode>& child) {
    return frame_.Take(child) || CNodeBase::AddChild(child);
}

bool CNodeGood::XmlChildren(CXmlWriter& writer) {
    return frame_.Write(writer) && CNodeBase::XmlChildren(writer);
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
