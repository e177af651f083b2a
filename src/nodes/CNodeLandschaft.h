#pragma once

#include <cstdint>
#include <string>

#include "document/CNodeBase.h"
#include "nodes/CRect.h"

namespace kavrin {

// "Schandlaft" (spelled so in the file): the terrain grid and the names of the files that hold
// its heights, colours and textures. The files are only named here, never opened.
class CNodeLandschaft : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeLandschaft"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool CheckNode() override;

    int32_t extX() const { return extX_; }
    int32_t extY() const { return extY_; }
    int32_t posX() const { return posX_; }
    int32_t posY() const { return posY_; }
    // Grid cells per cm.
    double dichte() const { return dichte_; }
    const std::string& HoehenFile() const { return hoehenFile_; }
    const std::string& FarbenFile() const { return farbenFile_; }
    const std::string& TexturenFile() const { return texturenFile_; }
    const std::string& TextureBinFile() const { return textureBinFile_; }

    // The layout's extent in cm: posX .. posX + extX / dichte, posY .. posY + extY / dichte
    // (normalised, Top >= Bottom). Without a positive density it shrinks to the corner point.
    CRect Rect() const;

private:
    int32_t extX_ = 0;
    int32_t extY_ = 0;
    int32_t posX_ = 0;
    int32_t posY_ = 0;
    double dichte_ = 0;
    std::string hoehenFile_;
    std::string farbenFile_;
    std::string texturenFile_;
    std::string textureBinFile_;
};

} // namespace kavrin
