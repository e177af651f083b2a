#pragma once

#include "document/CNodeBase.h"
#include "nodes/CVector.h"

namespace kavrin {

// "Vektor": x, y, z of one frame vector; its text names the vector ("Pos", "Dir", "Nor", "Bin").
class CNodeVektor : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeVektor"; }
    bool ParseAttributes(const XmlElement& element) override;
    Variant XmlAttr(std::string_view name) const override;

    const CVector& Vector() const { return vector_; }

private:
    CVector vector_;
};

} // namespace kavrin
