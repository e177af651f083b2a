#pragma once

#include "document/CNodeBase.h"

namespace kavrin {

// "Charakteristik": curvature, torsion, guide twist and length of a classic track piece.
class CNodeCharakteristik : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeCharakteristik"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;

    double Kruemmung() const { return kruemmung_; }
    double Torsion() const { return torsion_; }
    double Fuehrungsverdrehung() const { return fuehrungsverdrehung_; }
    double Laenge() const { return laenge_; }

    // The four values in the order a track keeps them; the index of a known attribute name or -1.
    static int ValueIndex(std::string_view name);

private:
    double* Field(std::string_view name);
    double kruemmung_ = 0;
    double torsion_ = 0;
    double fuehrungsverdrehung_ = 0;
    double laenge_ = 0;
};

// "Anfangsfuehrungsverdrehung": the cant at the start of a classic track piece.
class CNodeAnfFuehrVerdrehung : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeAnfFuehrVerdrehung"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;

    double Wert() const { return wert_; }

private:
    double wert_ = 0;
};

} // namespace kavrin
