#pragma once

#include <cstdint>

#include "document/CNodeBase.h"

namespace kavrin {

// "Goods": the list of goods items ("Good" children, kept in file order).
class CNodeGoods : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeGoods"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    // "count" is written as the number of "Good" children, not as read.
    Variant XmlAttr(std::string_view name) const override;
    bool CheckNode() override;
    int32_t CountGoods() const;

protected:
    bool WorkedOutOnWrite(std::string_view name) const override { return name == "count"; }

private:
    int32_t countRead_ = 0;
};

} // namespace kavrin
