#pragma once

#include <string>

#include "../nodes/SceneryLayoutFixture.h"

namespace kavrin::test {

// A classic track heading east from (x, y) (cm), `length` cm long, bent by `kruemmung` (1/cm).
inline std::string ClassicTrack(int id, double x, double y, double length, double kruemmung = 0) {
    return "<Gleis GleisID=\"" + std::to_string(id) +
           "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\" data=\"0\" stil=\"1\">" +
           FrameText(std::to_string(x), std::to_string(y)) +
           "<Anfangsfuehrungsverdrehung Wert=\"0\"/><Charakteristik Kruemmung=\"" +
           std::to_string(kruemmung) + "\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" Laenge=\"" +
           std::to_string(length) + "\"/></Gleis>";
}

// A track of the newer format: a straight line heading east from (x, y) (metres), `length` m long.
inline std::string NewerTrack(int id, double x, double y, double length) {
    return "<Gleis GleisID=\"" + std::to_string(id) +
           "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\"><Frame><Position x=\"" + std::to_string(x) +
           "\" y=\"" + std::to_string(y) +
           "\" z=\"0\"/><Vector dx=\"1\" dy=\"0\" dz=\"0\"/><Vector dx=\"0\" dy=\"1\" dz=\"0\"/>"
           "<Vector dx=\"0\" dy=\"0\" dz=\"1\"/></Frame><Interval near=\"0\" far=\"" +
           std::to_string(length) +
           "\"/><Curve><Line><VectorBundle><Position x=\"0\" y=\"0\" z=\"0\"/><Vector dx=\"1\" dy=\"0\" "
           "dz=\"0\"/></VectorBundle></Line></Curve><Twist/></Gleis>";
}

inline std::string Connection(int id1, const char* end1, int id2, const char* end2) {
    return "<Gleisverbindung GleisID1=\"" + std::to_string(id1) + "\" Anschluss1=\"" + end1 +
           "\" GleisID2=\"" + std::to_string(id2) + "\" Anschluss2=\"" + end2 + "\"/>";
}

inline std::string Building(const std::string& name, double x, double y, const std::string& inner = "") {
    return "<Immobile gsbname=\"\\Immobilien\\" + name + ".3dm\">" + inner +
           FrameText(std::to_string(x), std::to_string(y)) + "</Immobile>";
}

inline std::string Good(double x, double y) {
    return "<Good gsbname=\"\\Gueter\\Kiste.3dm\">" + FrameText(std::to_string(x), std::to_string(y)) +
           "</Good>";
}

} // namespace kavrin::test
