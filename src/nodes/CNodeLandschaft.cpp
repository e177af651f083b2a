#include "nodes/CNodeLandschaft.h"

#include "document/CAnlage.h"

namespace kavrin {

std::string_view CNodeLandschaft::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "extX")
        extX_ = TextToLong(value);
    else if (name == "extY")
        extY_ = TextToLong(value);
    else if (name == "posX")
        posX_ = TextToLong(value);
    else if (name == "posY")
        posY_ = TextToLong(value);
    else if (name == "dichte")
        return OwnNumber(name, value, dichte_);
    else if (name == "HoehenFile")
        hoehenFile_ = value;
    else if (name == "FarbenFile")
        farbenFile_ = value;
    else if (name == "TexturenFile")
        texturenFile_ = value;
    else if (name == "TextureBinFile")
        textureBinFile_ = value;
    else
        return value;
    return kOwnedValue;
}

Variant CNodeLandschaft::XmlAttr(std::string_view name) const {
    if (name == "extX")
        return extX_;
    if (name == "extY")
        return extY_;
    if (name == "posX")
        return posX_;
    if (name == "posY")
        return posY_;
    if (name == "dichte")
        return dichte_;
    if (name == "HoehenFile")
        return hoehenFile_;
    if (name == "FarbenFile")
        return farbenFile_;
    if (name == "TexturenFile")
        return texturenFile_;
    if (name == "TextureBinFile")
        return textureBinFile_;
    return {};
}

bool CNodeLandschaft::CheckNode() {
    if (Anlage())
        Anlage()->Version().Report("2.4x");
    return CNodeBase::CheckNode();
}

CRect CNodeLandschaft::Rect() const {
    double width = dichte_ > 0 ? extX_ / dichte_ : 0;
    double height = dichte_ > 0 ? extY_ / dichte_ : 0;
    CRect rect(posX_, posY_ + height, posX_ + width, posY_);
    rect.Normalize();
    return rect;
}

} // namespace kavrin
