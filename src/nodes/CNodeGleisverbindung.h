#pragma once

#include <string>
#include <utility>
#include <vector>

#include "document/CNodeBase.h"

namespace kavrin {

// "Gleisverbindung": a connection between two track ends. It is applied to both tracks while
// loading and written anew from them when saving.
class CNodeGleisverbindung : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeGleisverbindung"; }
    std::string CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    // Passes when both ids and both ends are known; a failure is reported once.
    bool CheckNode() override;

    int32_t GleisID1() const { return gleisId1_; }
    int16_t Anschluss1() const { return anschluss1_; }
    int32_t GleisID2() const { return gleisId2_; }
    int16_t Anschluss2() const { return anschluss2_; }
    // Attributes beyond the four (such as "Flags"), in the order read.
    std::vector<std::pair<std::string, std::string>> ExtraAttributes() const;

    static int16_t DecodeEnd(std::string_view word);
    static const char* EncodeEnd(int16_t end);

private:
    int32_t gleisId1_ = -1;
    int16_t anschluss1_ = -1;
    int32_t gleisId2_ = -1;
    int16_t anschluss2_ = -1;
    bool checked_ = false;
    bool complete_ = false;
};

} // namespace kavrin
