#pragma once

#include <string>

#include "../nodes/SceneryLayoutFixture.h"
#include "core/modTools.h"

namespace kavrin::test {

// Layout texts for the drawing tests: classic track pieces, track systems and buildings.

inline std::string Vektor(const char* name, const std::string& x, const std::string& y,
                          const std::string& z) {
    return "<Vektor x=\"" + x + "\" y=\"" + y + "\" z=\"" + z + "\">" + name + "</Vektor>";
}

// A classic piece at (x, y, z) heading east; k is its bend (1/cm).
inline std::string Track(int id, const std::string& x, const std::string& y, const std::string& z, double k,
                         double length, const std::string& children = "") {
    return "<Gleis GleisID=\"" + std::to_string(id) +
           "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\" gsbname=\"\\Gleisstile\\Gleis_" +
           std::to_string(id) + ".3dm\"><Dreibein>" + Vektor("Pos", x, y, z) + Vektor("Dir", "1", "0", "0") +
           Vektor("Nor", "0", "1", "0") + Vektor("Bin", "0", "0", "1") +
           "</Dreibein><Anfangsfuehrungsverdrehung Wert=\"0\"/><Charakteristik " + "Kruemmung=\"" +
           NumberToText(k) + "\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" Laenge=\"" + NumberToText(length) +
           "\"/>" + children + "</Gleis>";
}

// A track system of the given kind (TrackSystemNumber).
inline std::string System(int id, int number, const std::string& tracks) {
    return "<Gleissystem GleissystemID=\"" + std::to_string(id) + "\" TrackSystemNumber=\"" +
           std::to_string(number) + "\">" + tracks + "</Gleissystem>";
}

// A collection holding one object at (x, y, z).
inline std::string Building(int collection, const std::string& x, const std::string& y,
                            const std::string& z = "0") {
    return "<Gebaeudesammlung GebaudesammlungID=\"" + std::to_string(collection) +
           "\"><Immobile gsbname=\"\\Immobilien\\Haus_" + std::to_string(collection) +
           ".3dm\" ImmoIdx=\"1\">" + FrameText(x, y, z) + "</Immobile></Gebaeudesammlung>";
}

} // namespace kavrin::test
