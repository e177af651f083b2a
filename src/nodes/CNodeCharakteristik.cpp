#include "nodes/CNodeCharakteristik.h"

namespace kavrin {

int CNodeCharakteristik::ValueIndex(std::string_view name) {
    static const std::string_view names[] = {"Kruemmung", "Torsion", "Fuehrungsverdrehung", "Laenge"};
    for (int i = 0; i < 4; ++i)
        if (name == names[i])
            return i;
    return -1;
}

double* CNodeCharakteristik::Field(std::string_view name) {
    double* fields[] = {&kruemmung_, &torsion_, &fuehrungsverdrehung_, &laenge_};
    int index = ValueIndex(name);
    return index < 0 ? nullptr : fields[index];
}

std::string_view CNodeCharakteristik::CheckAttribute(std::string_view name, std::string_view value) {
    double* field = Field(name);
    if (!field)
        return value;
    return OwnNumber(name, value, *field);
}

Variant CNodeCharakteristik::XmlAttr(std::string_view name) const {
    double* field = const_cast<CNodeCharakteristik*>(this)->Field(name);
    return field ? Variant{*field} : Variant{};
}

std::string_view CNodeAnfFuehrVerdrehung::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "Wert")
        return value;
    return OwnNumber(name, value, wert_);
}

Variant CNodeAnfFuehrVerdrehung::XmlAttr(std::string_view name) const {
    return name == "Wert" ? Variant{wert_} : Variant{};
}

} // namespace kavrin
