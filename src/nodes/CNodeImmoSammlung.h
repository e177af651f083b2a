#pragma once

#include <cstdint>
#include <string>

#include "document/CNodeBase.h"
#include "document/ICopy.h"

namespace kavrin {

// "Gebaeudesammlung": a building collection, its buildings kept as children in file order. The
// id attribute is "GebaudesammlungID", without the "e" of the element name; both are the
// simulator's spellings.
class CNodeImmoSammlung : public CNodeBase, public ICopy {
public:
    const char* ClassName() const override { return "CNodeImmoSammlung"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool CheckNode() override;

    std::unique_ptr<INode> Clone() const override;
    void Copy(const INode& source) override;

    int16_t ID() const { return id_; }
    // Also makes sure the id is written, for a collection read without one.
    void SetID(int16_t id);
    // The collection's display name (the document window shows it).
    std::string DisplayName() const;
    // Track-accompanying objects live in the collections 1, 2, 3 and 6.
    bool HoldsGleisObjekte() const;

private:
    int16_t id_ = 0;
};

} // namespace kavrin
