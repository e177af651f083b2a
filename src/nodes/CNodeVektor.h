#pragma once

#include "document/CNodeBase.h"
#include "document/ICopy.h"
#include "nodes/CVector.h"

namespace kavrin {

// "Vektor": x, y, z of one frame vector; its text names the vector ("Pos", "Dir", "Nor", "Bin").
// A plain vector (x, y, z and nothing else) lives on in its frame only; one with more is kept as
// a node, linked to its frame vector, so that it is written as read with the frame's values.
class CNodeVektor : public CNodeBase, public ICopy {
public:
    std::unique_ptr<INode> Clone() const override { return CloneOf(*this); }
    // A copy holds the values but is linked to no frame.
    void Copy(const INode& source) override;

    const char* ClassName() const override { return "CNodeVektor"; }
    bool ParseAttributes(const XmlElement& element) override;
    Variant XmlAttr(std::string_view name) const override;
    bool XmlAttributes(CXmlWriter& writer) override;
    bool CheckNode() override;

    const CVector& Vector() const { return linked_ ? *linked_ : vector_; }
    // Exactly x, y and z in this order, no other attribute and no child element.
    bool IsPlain() const;
    // From now on the values are those of a frame vector.
    void Link(const CVector* frameVector) { linked_ = frameVector; }

private:
    bool HasCoordinate(char name) const;
    void KeepCoordinatesInStore();

    CVector vector_;
    const CVector* linked_ = nullptr;
    // Which of x, y, z the element had, in the order read; with any other attribute they stand
    // in the attribute store instead, among the others.
    char order_[3] = {};
    uint8_t count_ = 0;
};

} // namespace kavrin
