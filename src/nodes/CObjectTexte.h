#pragma once

#include <string>

namespace kavrin {

// Display texts of track systems, building collections, vehicle pools, contact groups and
// signal effects. The simulator keeps such names in its resources; Kavrin carries its own
// German texts, so the names are there even without an installation.
class CObjectTexte {
public:
    // Prepares the texts for a run; the resource directory may be empty.
    static bool Load(const std::string& resourceDirectory);

    // "Eisenbahn", "Strassenbahn", ... by track system number (1..6).
    static std::string GleisSystem(int number);
    // Building collections by id with the offset 20 (21 = collection 1 ...).
    static std::string Immos(int idWithOffset);
    static std::string Fuhrpark(int number);
    static std::string KontaktGruppe(int value);
    static std::string SignalEffect(int value);
};

} // namespace kavrin
