#pragma once

#include <string>

#include "document/CNodeBase.h"
#include "document/ICopy.h"

namespace kavrin {

// Markup kept among an element's children exactly as the file has it, such as a processing
// instruction inside an element: written back in its place, unchanged.
class CNodeRaw : public CNodeBase, public ICopy {
public:
    CNodeRaw() = default;
    explicit CNodeRaw(std::string markup) : markup_(std::move(markup)) {}
    const char* ClassName() const override { return "CNodeRaw"; }
    std::string_view RawMarkup() const override { return markup_; }

    std::unique_ptr<INode> Clone() const override { return CloneOf(*this); }
    void Copy(const INode& source) override {
        CopyBaseContent(source);
        markup_ = std::string(source.RawMarkup());
    }

private:
    std::string markup_;
};

} // namespace kavrin
