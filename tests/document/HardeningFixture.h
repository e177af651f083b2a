#pragma once

#include <gtest/gtest.h>

#include <string>

#include "LayoutText.h"
#include "TestSupport.h"
#include "XmlEquivalence.h"
#include "document/CAnlage.h"

namespace kavrin::test {

// A frame of four plain vectors.
inline std::string Frame(const std::string& x = "100") {
    return "<Dreibein><Vektor x=\"" + x +
           "\" y=\"200\" z=\"0\">Pos</Vektor><Vektor x=\"1\" y=\"0\" z=\"0\">Dir</Vektor>"
           "<Vektor x=\"0\" y=\"1\" z=\"0\">Nor</Vektor><Vektor x=\"0\" y=\"0\" "
           "z=\"1\">Bin</Vektor></Dreibein>";
}

// A classic straight track; `inside` goes after its characteristic.
inline std::string Track(const std::string& id, const std::string& inside = "",
                         const std::string& attributes = "") {
    return "<Gleis GleisID=\"" + id +
           "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\" data=\"0\" stil=\"1\"" + attributes + ">" +
           Frame() +
           "<Anfangsfuehrungsverdrehung Wert=\"0\"/>"
           "<Charakteristik Kruemmung=\"0\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" Laenge=\"1000\"/>" +
           inside + "</Gleis>";
}

inline std::string Connection(const std::string& id1, const std::string& end1, const std::string& id2,
                              const std::string& end2) {
    return "<Gleisverbindung GleisID1=\"" + id1 + "\" Anschluss1=\"" + end1 + "\" GleisID2=\"" + id2 +
           "\" Anschluss2=\"" + end2 + "\"/>";
}

// A layout whose track system 2 holds `content`.
inline std::string LayoutWithTracks(const std::string& content) {
    return LayoutText("<Gleissystem GleissystemID=\"2\">" + content + "</Gleissystem>");
}

// Loads texts from a file, saves and loads again; collects hints and errors.
class LayoutFixture : public ::testing::Test {
protected:
    bool Load(const std::string& text) {
        WriteFile(path, text);
        scope.ui.parseLog.Open("");
        scope.ui.errors.clear();
        return anlage.Load(path);
    }
    std::string SaveAndRead(const std::string& name = "out.anl3") {
        std::string out = dir.File(name);
        EXPECT_TRUE(anlage.Save(out)) << Errors();
        return ReadFile(out);
    }
    // Saves, loads the result, saves again: both saves must be the same.
    std::string SaveTwice() {
        std::string first = SaveAndRead("first.anl3");
        EXPECT_TRUE(anlage.Load(dir.File("first.anl3"))) << Errors();
        EXPECT_TRUE(SaveAndRead("second.anl3") == first) << "a second save differs";
        return first;
    }
    std::string Hints() const {
        std::string all;
        for (const std::string& hint : scope.ui.parseLog.Hints())
            all += hint + "\n";
        return all;
    }
    std::string Errors() const {
        std::string all;
        for (const std::string& error : scope.ui.errors)
            all += error + "\n";
        return all;
    }

    RecordingScope scope;
    TempDir dir;
    std::string path = dir.File("Anlage.anl3");
    CAnlage anlage;
};

} // namespace kavrin::test
