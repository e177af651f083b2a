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
    bool XmlAttributes(CXmlWriter& writer) override;

    const CVector& Vector() const { return vector_; }

private:
    CVector vector_;
    // Which of x, y, z the element had, in the order read: a vector outside a frame is
    // written back as it was read. (Vectors inside a frame live on in the frame.)
    char order_[3] = {};
    uint8_t count_ = 0;
};

} // namespace kavrin
