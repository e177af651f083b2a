#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <regex>

#include "TestSupport.h"
#include "XmlEquivalence.h"
#include "document/CAnlage.h"
#include "document/NodeAttributes.h"
#include "document/XmlParseError.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"

using namespace kavrin;

namespace {

// Real layouts load and save with nothing changed but the owned numbers' form, and a second
// save gives the same bytes; so do copies edited the way real files surprise.
class Fidelity : public ::testing::Test {
protected:
    bool Load(const std::string& text) {
        test::WriteFile(path, text);
        scope.ui.parseLog.Open("");
        return anlage.Load(path);
    }
    std::string SaveAndRead(const std::string& name = "out.anl3") {
        std::string out = dir.File(name);
        EXPECT_TRUE(anlage.Save(out));
        return test::ReadFile(out);
    }
    // Saves, loads the result, saves again: both saves must be the same.
    std::string SaveTwice() {
        std::string first = SaveAndRead("first.anl3");
        EXPECT_TRUE(anlage.Load(dir.File("first.anl3")));
        EXPECT_TRUE(SaveAndRead("second.anl3") == first) << "a second save differs";
        return first;
    }
    std::string Hints() const {
        std::string all;
        for (const std::string& hint : scope.ui.parseLog.Hints())
            all += hint + "\n";
        return all;
    }

    test::RecordingScope scope;
    test::TempDir dir;
    std::string path = dir.File("Anlage.anl3");
    CAnlage anlage;
};

std::string Sample(const std::string& name) {
    return test::ReadFile(test::SamplePath(name));
}

// Replaces the first match of `pattern` (format as std::regex_replace takes it).
std::string ReplaceFirst(const std::string& text, const std::string& pattern, const std::string& format) {
    std::string result =
        std::regex_replace(text, std::regex(pattern), format, std::regex_constants::format_first_only);
    EXPECT_NE(result, text) << "pattern not found: " << pattern;
    return result;
}

TEST_F(Fidelity, EverySampleKeepsEverythingButTheFormOfOwnedNumbers) {
    int samples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        ++samples;
        std::string original = test::ReadFile(entry.path().string());
        ASSERT_TRUE(Load(original)) << entry.path();
        EXPECT_TRUE(scope.ui.errors.empty()) << entry.path();
        EXPECT_FALSE(anlage.Changed()) << entry.path() << Hints();
        EXPECT_EQ(test::OwnedNumberDifference(original, SaveTwice()), "") << entry.path();
    }
    EXPECT_EQ(samples, test::SampleCount());
    EXPECT_GT(samples, 0);
}

struct EditedCopy {
    const char* what;
    const char* sample;
    std::function<std::string(const std::string&)> edit;
    const char* hint;    // empty: no hint expected
    bool dropsSomething; // then the layout counts as changed and the edit's text is gone
    const char* kept;    // a text the save must hold
};

TEST_F(Fidelity, EditedCopiesKeepWhatTheyHoldAndNameWhatTheyDrop) {
    const std::string branch =
        R"re(<Gleisverbindung GleisID1="(\d+)" Anschluss1="(\w+)" GleisID2="(\d+)" Anschluss2="(\w+)"/>)re";
    const EditedCopy cases[] = {
        {"two records at one end", "Demo-Linien.anl3",
         [&](const std::string& text) {
             return ReplaceFirst(
                 text, branch,
                 "$&<Gleisverbindung GleisID1=\"$3\" Anschluss1=\"EndeAbzweig\" GleisID2=\"$1\" "
                 "Anschluss2=\"EndeAbzweig\"/>");
         },
         "", false, "Anschluss1=\"EndeAbzweig\""},
        {"unknown child before the frame of a building", "Screenshots.anl3",
         [](const std::string& text) {
             return ReplaceFirst(text, R"((<Immobile [^>]*>)(<Dreibein>))", "$1<GBSObject Nr=\"3\"/>$2");
         },
         "", false, "<GBSObject Nr=\"3\"/><Dreibein>"},
        {"comment, DOCTYPE and blanks around the document element", "Screenshots.anl3",
         [](const std::string& text) {
             std::string edited = ReplaceFirst(text, R"(\?>\n<sutrackp)",
                                               "?>\n<!-- von Hand -->\n<!DOCTYPE sutrackp>\n  <sutrackp");
             return edited.substr(0, edited.size() - 1) + "\n<!-- Ende -->\n\n";
         },
         "", false, "<!-- von Hand -->\n<!DOCTYPE sutrackp>\n  <sutrackp"},
        {"processing instruction inside an element", "Demo-Linien.anl3",
         [](const std::string& text) {
             return ReplaceFirst(text, R"((<Gleissystem [^>]*>))", "$1<?kavrin merke hier?>");
         },
         "", false, "<?kavrin merke hier?><Dreibein>"},
        {"unknown attribute on a vector", "Tutorial-Ampelkreuzung.anl3",
         [](const std::string& text) { return ReplaceFirst(text, R"(<Vektor x=)", "<Vektor w=\"1\" x="); },
         "Vektor enthält unerwartetes Attribut 'w'", false, "<Vektor w=\"1\" x="},
        {"child element inside a vector", "Lua-Testbeispiel.anl3",
         [](const std::string& text) {
             return ReplaceFirst(text, R"(>Pos</Vektor>)", ">Pos<Alt/></Vektor>");
         },
         "Kann Subnodes von 'Vektor' nicht verarbeiten", false, ">Pos<Alt/></Vektor>"},
        {"vectors in another order", "Lua-Test-vor-EEP.anl3",
         [](const std::string& text) {
             return ReplaceFirst(text, R"((<Vektor [^>]*>Pos</Vektor>)(<Vektor [^>]*>Dir</Vektor>))", "$2$1");
         },
         "", false, "Dir</Vektor><Vektor"},
        {"incomplete connection", "Tutorial-Ampelkreuzung-2.anl3",
         [](const std::string& text) { return ReplaceFirst(text, R"( Anschluss2="Anfang"/>)", "/>"); },
         "Unvollständige Anschlussdaten in Gleisverbindung!", true, ""},
        {"misspelt end of a connection", "Demoanlage-Ampel-Grundmodelle.anl3",
         [](const std::string& text) {
             return ReplaceFirst(text, R"(Anschluss1="Ende")", "Anschluss1=\"Endee\"");
         },
         "Unbekannter Anschluss-Eintrag 'Endee' im Gleisverbindungs-Node", true, ""},
        {"frame of a newer track with an attribute of its own", "Demo-Linien.anl3",
         [](const std::string& text) {
             return ReplaceFirst(text, R"(<Frame><Position)", "<Frame Art=\"1\"><Position");
         },
         "", false, "<Frame Art=\"1\"><Position"},
    };
    for (const EditedCopy& c : cases) {
        SCOPED_TRACE(c.what);
        std::string edited = c.edit(Sample(c.sample));
        ASSERT_TRUE(Load(edited));
        if (*c.hint) {
            EXPECT_NE(Hints().find(c.hint), std::string::npos) << Hints();
        } else {
            EXPECT_EQ(Hints(), "");
        }
        EXPECT_EQ(anlage.Changed(), c.dropsSomething);
        std::string saved = SaveTwice();
        if (*c.kept) {
            EXPECT_NE(saved.find(c.kept), std::string::npos);
        }
        if (!c.dropsSomething) {
            EXPECT_EQ(test::OwnedNumberDifference(edited, saved), "");
        } else {
            EXPECT_LT(saved.size(), edited.size());
        }
    }
}

// Markup the simulator does not write but a parser accepts is read as the parser reads it,
// whichever way the file is cut into pieces.
TEST_F(Fidelity, UnusualWellFormedMarkupLoadsAndSavesAsRead) {
    std::string tracks;
    for (int id = 1; id <= 25000; ++id) // several pieces
        tracks += "<Gleis GleisID='" + std::to_string(id) + "' Name='a > b \"c\"' clsid=\"x\"><Unbekannt/>" +
                  "<?merke " + std::to_string(id) + "?></Gleis >\r\n";
    std::string text =
        "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
        "<!DOCTYPE sutrackp [ <!ELEMENT sutrackp ANY> ]>\r\n<sutrackp>\r\n"
        "<Version EEP=\"15\"/>\r\n<Gleissystem GleissystemID=\"1\">\r\n" +
        tracks +
        "</Gleissystem >\r\n<Schandlaft extX=\"75\" extY=\"75\" posX=\"-25000\" posY=\"-25000\" "
        "dichte=\"0.0015\"/><Beschreibung>  </Beschreibung>\r\n</sutrackp>\r\n";
    ASSERT_TRUE(Load(text));
    ASSERT_NE(FindGleis(anlage, 1, 25000), nullptr);
    EXPECT_EQ(AttributeText(*FindGleis(anlage, 1, 2999), "Name"), "a > b \"c\"");
    std::string saved = SaveTwice();
    // What the writer puts in its own way: double quotes, escaped, no blanks between elements.
    EXPECT_NE(saved.find("<Gleis GleisID=\"25000\" Name=\"a &gt; b &quot;c&quot;\" clsid=\"x\"><Unbekannt/>"
                         "<?merke 25000?></Gleis></Gleissystem>"),
              std::string::npos);
    EXPECT_EQ(saved.rfind("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!DOCTYPE sutrackp", 0),
              0u);
    EXPECT_NE(saved.find("<Beschreibung>  </Beschreibung></sutrackp>\r\n"), std::string::npos);
}

TEST_F(Fidelity, ParseErrorPositionsCountCharacters) {
    // Three umlauts (two bytes each) stand before the error.
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<sutrackp><Version Name=\"Größenänderung\"/><<";
    EXPECT_FALSE(Load(text));
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    size_t bytes = text.size() - 1; // where the parser stops
    std::string position = std::to_string(bytes - 3 + 1) + ". Zeichen";
    EXPECT_NE(scope.ui.errors[0].find(position), std::string::npos) << scope.ui.errors[0];
    EXPECT_EQ(CharacterCount("aöb", 4), 3u);
}

// A track of the newer format moves through the frame it is drawn and saved with; an
// untouched track keeps its text as read.
TEST_F(Fidelity, NewerTracksMoveThroughTheirOuterFrame) {
    ASSERT_TRUE(Load(Sample("Demo-Linien.anl3")));
    CNodeGleis* moved = FindGleis(anlage, 3, 1);
    ASSERT_NE(moved, nullptr);
    ASSERT_TRUE(moved->IsNewFormat());
    CVector before = CTrackGeometry(*moved).Start();
    moved->MovePos(150, -250, 10);
    CVector after = CTrackGeometry(*moved).Start();
    EXPECT_NEAR(after.X - before.X, 150, 1e-6);
    EXPECT_NEAR(after.Y - before.Y, -250, 1e-6);
    EXPECT_NEAR(after.Z - before.Z, 10, 1e-6);
    std::string saved = SaveAndRead();
    EXPECT_NE(saved.find("<Frame><Position x=\"-39.3\" y=\"55.3\" z=\"0.2\"/>"), std::string::npos);
    // Turned by 90 degrees about its start, it heads north.
    moved->Rotate(90, after.X, after.Y);
    CTrackGeometry turned(*moved);
    EXPECT_NEAR(turned.Start().X, after.X, 1e-6);
    EXPECT_NEAR(turned.End().Y - turned.Start().Y, turned.Length(), 1e-3);
}

} // namespace
