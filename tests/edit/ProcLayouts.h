#pragma once

#include <string>

#include "../nodes/SceneryLayoutFixture.h"

namespace kavrin::test {

// A straight classic track of 100 cm at (x, 0) with extra attributes and the given children
// (contacts, signals) after its frame.
inline std::string TrackWith(int id, const std::string& attributes, const std::string& items,
                             const std::string& target = "") {
    return "<Gleis GleisID=\"" + std::to_string(id) + "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\" " +
           attributes + ">" + (target.empty() ? "" : "<KontaktZiel>" + target + "</KontaktZiel>") +
           FrameText(std::to_string(id * 200), "0") +
           "<Anfangsfuehrungsverdrehung Wert=\"0\"/><Charakteristik Kruemmung=\"0\" Torsion=\"0\" "
           "Fuehrungsverdrehung=\"0\" Laenge=\"100\"/>" +
           items + "</Gleis>";
}

// A contact of a kind (SetType) with its target, switched object (SetValue) and signal data.
inline std::string ContactOf(int kind, int target, int setValue = 0, long signalData = 0) {
    return "<Kontakt Position=\"10\" SetType=\"" + std::to_string(kind) + "\" SetValue=\"" +
           std::to_string(setValue) + "\" SignalData=\"" + std::to_string(signalData) + "\" KontaktZiel=\"" +
           std::to_string(target) + "\" clsid=\"5E9A3049-D465-4602-A285-6A9774DCF1BF\"/>";
}

// A signal with its key id, model name and contact target (-1: none).
inline std::string SignalOf(int keyId, const std::string& name, int target = -1) {
    return "<Meldung clsid=\"9A1B\" name=\"" + name + "\" Key_Id=\"" + std::to_string(keyId) +
           "\" Position=\"20\" ParaOderAnti=\"1\">" +
           (target == -1 ? "" : "<KontaktZiel>" + std::to_string(target) + "</KontaktZiel>") + "</Meldung>";
}

inline std::string SystemOf(int id, const std::string& tracks) {
    return "<Gleissystem GleissystemID=\"" + std::to_string(id) + "\">" + tracks + "</Gleissystem>";
}

} // namespace kavrin::test
