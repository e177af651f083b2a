#pragma once

#include "document/CNodeBase.h"

namespace kavrin {

// "Gleisort": a point on the track network (where a train stands).
class CNodeGleisOrt : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeGleisOrt"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;

    int16_t GleissystemID() const { return gleissystemId_; }
    int32_t GleisID() const { return gleisId_; }
    double Parameter() const { return parameter_; }
    int16_t Ausrichtung() const { return ausrichtung_; }

private:
    int16_t gleissystemId_ = 0;
    int32_t gleisId_ = 0;
    double parameter_ = 0;
    int16_t ausrichtung_ = 0;
};

} // namespace kavrin
