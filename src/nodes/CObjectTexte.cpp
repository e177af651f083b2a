#include "nodes/CObjectTexte.h"

#include "core/modTools.h"

namespace kavrin {

bool CObjectTexte::Load(const std::string&) {
    return true;
}

std::string CObjectTexte::GleisSystem(int number) {
    switch (number) {
    case 1:
        return FormatMessage("Eisenbahn");
    case 2:
        return FormatMessage("Strassenbahn");
    case 3:
        return FormatMessage("Strasse");
    case 4:
        return FormatMessage("Wasserwege");
    case 5:
        return FormatMessage("Steuerstrecken");
    case 6:
        return FormatMessage("GBS");
    default:
        return FormatMessage("Gleissystem %1", number);
    }
}

std::string CObjectTexte::Immos(int idWithOffset) {
    switch (idWithOffset - 20) {
    case 1:
        return FormatMessage("Eisenbahn-Gleisobjekte");
    case 2:
        return FormatMessage("Strassenbahn-Gleisobjekte");
    case 3:
        return FormatMessage("Strassen-Gleisobjekte");
    case 4:
        return FormatMessage("Immobilien");
    case 5:
        return FormatMessage("Landschaftselemente");
    case 6:
        return FormatMessage("Wasserwege-Gleisobjekte");
    default:
        return FormatMessage("Gebäudesammlung %1", idWithOffset - 20);
    }
}

std::string CObjectTexte::Fuhrpark(int number) {
    return FormatMessage("Fuhrpark %1", number);
}

std::string CObjectTexte::KontaktGruppe(int value) {
    switch (value) {
    case 0:
        return FormatMessage("Signal / Weiche");
    case 1:
        return FormatMessage("Fahrzeug");
    case 256:
        return FormatMessage("Sound");
    case 512:
        return FormatMessage("Kamera");
    case 768:
        return FormatMessage("Immobilie");
    case 1024:
        return FormatMessage("DKW / EKW");
    default:
        return FormatMessage("Kontakt-Typ #%1", value);
    }
}

std::string CObjectTexte::SignalEffect(int value) {
    switch (value) {
    case 0:
        return {};
    case 1:
        return FormatMessage("Fahrt");
    case 2:
        return FormatMessage("Halt");
    case 3:
        return FormatMessage("Umschalten");
    default:
        return FormatMessage("Effekt %1", value);
    }
}

} // namespace kavrin
