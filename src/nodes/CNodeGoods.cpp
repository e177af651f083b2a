#include "nodes/CNodeGoods.h"

#include "document/CAnlage.h"

namespace kavrin {

std::string_view CNodeGoods::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "count")
        return value;
    // Read only to refuse a non-numeric count; the written count comes from the children.
    countRead_ = TextToLong(value);
    return kOwnedValue;
}

Variant CNodeGoods::XmlAttr(std::string_view name) const {
    if (name == "count")
        return CountGoods();
    return {};
}

bool CNodeGoods::CheckNode() {
    if (Anlage())
        Anlage()->Version().Report("3");
    return CNodeBase::CheckNode();
}

int32_t CNodeGoods::CountGoods() const {
    int32_t count = 0;
    for (const auto& child : SubNodes())
        if (child->Name() == "Good")
            ++count;
    return count;
}

} // namespace kavrin
