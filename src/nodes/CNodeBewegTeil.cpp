#include "nodes/CNodeBewegTeil.h"

namespace kavrin {

std::string_view CNodeBewegTeil::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "kollektorID")
        return value;
    kollektorId_ = TextToLong(value);
    return kOwnedValue;
}

Variant CNodeBewegTeil::XmlAttr(std::string_view name) const {
    if (name == "kollektorID")
        return kollektorId_;
    return {};
}

std::unique_ptr<INode> CNodeBewegTeil::Clone() const {
    return CloneOf(*this);
}

void CNodeBewegTeil::Copy(const INode& source) {
    CopyBaseContent(source);
    if (const auto* part = dynamic_cast<const CNodeBewegTeil*>(&source))
        kollektorId_ = part->kollektorId_;
}

} // namespace kavrin
