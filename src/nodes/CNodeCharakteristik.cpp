#include "nodes/CNodeCharakteristik.h"

namespace kavrin {

double* CNodeCharakteristik::Field(std::string_view name) {
    if (name == "Kruemmung")
        return &kruemmung_;
    if (name == "Torsion")
        return &torsion_;
    if (name == "Fuehrungsverdrehung")
        return &fuehrungsverdrehung_;
    if (name == "Laenge")
        return &laenge_;
    return nullptr;
}

std::string CNodeCharakteristik::CheckAttribute(std::string_view name, std::string_view value) {
    double* field = Field(name);
    if (!field)
        return std::string(value);
    *field = TextToNumber(value);
    return kOwnedValue;
}

Variant CNodeCharakteristik::XmlAttr(std::string_view name) const {
    double* field = const_cast<CNodeCharakteristik*>(this)->Field(name);
    return field ? Variant{*field} : Variant{};
}

std::string CNodeAnfFuehrVerdrehung::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "Wert")
        return std::string(value);
    wert_ = TextToNumber(value);
    return kOwnedValue;
}

Variant CNodeAnfFuehrVerdrehung::XmlAttr(std::string_view name) const {
    return name == "Wert" ? Variant{wert_} : Variant{};
}

} // namespace kavrin
