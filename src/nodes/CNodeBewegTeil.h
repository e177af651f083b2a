#pragma once

#include <cstdint>

#include "document/CNodeBase.h"
#include "document/ICopy.h"

namespace kavrin {

// "BeweglichesTeil": a moving part of a building, with the collector of the tracks that move
// with it. Everything else of it is kept as read.
class CNodeBewegTeil : public CNodeBase, public ICopy {
public:
    const char* ClassName() const override { return "CNodeBewegTeil"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;

    std::unique_ptr<INode> Clone() const override;
    void Copy(const INode& source) override;

    int32_t KollektorId() const { return kollektorId_; }
    void SetKollektorId(int32_t id) { kollektorId_ = id; }

private:
    int32_t kollektorId_ = 0;
};

} // namespace kavrin
