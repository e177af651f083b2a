#include <gtest/gtest.h>

#include <sstream>

#include "TestSupport.h"
#include "cli/CCommandLine.h"
#include "document/CAnlage.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"

using namespace kavrin;

namespace {

// "kavrin-cli edit" as other tools call it.
class EditCommand : public ::testing::Test {
protected:
    int Edit(std::vector<std::string> options, const std::string& sample = "Demo-Linien.anl3") {
        std::vector<std::string> args{"edit", test::SamplePath(sample), outPath};
        args.insert(args.end(), options.begin(), options.end());
        out.str("");
        err.str("");
        CCommandLine commandLine(out, err);
        return commandLine.Run(args);
    }
    std::string Written() { return test::ReadFile(outPath); }
    bool Exists() const { return std::filesystem::exists(outPath); }
    CVector StartOf(int16_t system, int32_t id) {
        test::RecordingScope scope;
        CAnlage anlage;
        EXPECT_TRUE(anlage.Load(outPath));
        return CTrackGeometry(*FindGleis(anlage, system, id)).Start();
    }

    test::TempDir dir;
    std::string outPath = dir.File("aus.anl3");
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(EditCommand, WrongUsageExitsWithTwoAndWritesNothing) {
    const std::vector<std::vector<std::string>> calls = {
        {"edit"},
        {"edit", "ein.anl3"},
        {"edit", "ein.anl3", "aus.anl3"},
    };
    for (const auto& call : calls) {
        CCommandLine commandLine(out, err);
        EXPECT_EQ(commandLine.Run(call), CCommandLine::kUsage);
    }
    for (const auto& options : std::vector<std::vector<std::string>>{
             {"--alles", "--schieben", "1;2;3"}, {"--verschieben"}, {"--alles", "--gleise"}}) {
        EXPECT_EQ(Edit(options), CCommandLine::kUsage) << options[0];
        EXPECT_NE(err.str().find("kavrin-cli --help"), std::string::npos);
        EXPECT_FALSE(Exists());
    }
}

TEST_F(EditCommand, BadValuesEmptySelectionsAndUnknownIdsFailWithOne) {
    struct Case {
        std::vector<std::string> options;
        const char* message;
    };
    const Case cases[] = {
        {{"--alles", "--verschieben", "1;2"}, "erwartet werden 3 Zahlen"},
        {{"--alles", "--verschieben", "1;;2"}, "erwartet werden 3 Zahlen"},
        {{"--alles", "--verschieben", "eins;2;3"}, "Ungültiger Wert 'eins;2;3'"},
        {{"--alles", "--verschieben", "100000,01;0;0"}, "höchstens 100 km"},
        {{"--alles", "--drehen", "1e300;0;0"}, "Der Winkel ist zu groß"},
        {{"--alles", "--drehen", "nan;0;0"}, "Ungültiger Wert"},
        {{"--alles", "--drehen", "36000,5;0;0"}, "Der Winkel ist zu groß"},
        {{"--bereich", "0;0;1e9;1"}, "nicht innerhalb von 100 km"},
        {{"--verschieben", "1;0;0"}, "--verschieben: Die Auswahl ist leer."},
        {{"--alles", "--keine", "--loesen"}, "--loesen: Die Auswahl ist leer."},
        {{"--gleise", "3:1,99,40..45"}, "Im Gleissystem 3 gibt es diese Gleise nicht: 99, 40..45"},
        {{"--gleise", "9:1"}, "Das Gleissystem 9 gibt es in dieser Anlage nicht."},
        {{"--gleise", "3:1..x"}, "Ungültige Angabe >1..x<"},
        {{"--gleise", "drei:1"}, "erwartet wird SYS:LISTE"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        EXPECT_EQ(Edit(c.options), CCommandLine::kFailed);
        EXPECT_NE(err.str().find(c.message), std::string::npos) << err.str();
        EXPECT_FALSE(Exists());
    }
}

TEST_F(EditCommand, MovesAndTurnsWhatTheOptionsSelect) {
    // Values beginning with "-" are values; comma and point alike.
    ASSERT_EQ(Edit({"--gleise", "3:1", "--verschieben", "-1,5;2.25;0,5"}), CCommandLine::kOk) << err.str();
    CVector start = StartOf(3, 1);
    EXPECT_NEAR(start.X, -4080 - 150, 1e-6);
    EXPECT_NEAR(start.Y, 5780 + 225, 1e-6);
    EXPECT_NEAR(start.Z, 10 + 50, 1e-6);
    EXPECT_NE(
        out.str().find("Auswahl: 1 Gleis, 0 Immobilien, 0 Güter\nVerschoben um -1,50 m nach Osten, 2,25 m "
                       "nach Norden, 0,50 m nach oben.\n"),
        std::string::npos)
        << out.str();
    // Turned a quarter to the left about the track's own start: it heads north.
    ASSERT_EQ(Edit({"--gleise", "3:1", "--drehen", "90;-40,8;57,8"}), CCommandLine::kOk) << err.str();
    EXPECT_NEAR(StartOf(3, 1).X, -4080, 1e-6);
    // The rectangle's corners in any order select the same.
    ASSERT_EQ(Edit({"--bereich", "-45;50;25;65", "--verschieben", "0;0;1"}), CCommandLine::kOk);
    std::string first = Written();
    ASSERT_EQ(Edit({"--bereich", "25;65;-45;50", "--verschieben", "0;0;1"}), CCommandLine::kOk);
    EXPECT_EQ(Written(), first);
    EXPECT_EQ(out.str().find("Auswahl: 0 Gleise"), std::string::npos) << out.str();
}

TEST_F(EditCommand, UndoTakesBackTheActionsSinceTheLastUndo) {
    ASSERT_EQ(Edit({"--keine", "--alles", "--loesen"}), CCommandLine::kOk);
    EXPECT_NE(out.str().find("0 Gleisverbindungen gelöst."), std::string::npos) << out.str();
    std::string plain = Written();
    ASSERT_EQ(Edit({"--alles", "--verschieben", "5;5;0", "--drehen", "10;1;2", "--rueckgaengig"}),
              CCommandLine::kOk);
    EXPECT_NE(out.str().find("2 Aktionen rückgängig gemacht."), std::string::npos) << out.str();
    EXPECT_EQ(Written(), plain);
    ASSERT_EQ(Edit({"--alles", "--verschieben", "1;0;0"}), CCommandLine::kOk);
    std::string moved = Written();
    ASSERT_EQ(Edit({"--alles", "--drehen", "45;0;0", "--rueckgaengig", "--verschieben", "1;0;0",
                    "--rueckgaengig", "--rueckgaengig", "--verschieben", "1;0;0"}),
              CCommandLine::kOk);
    EXPECT_EQ(Written(), moved);
}

// Out of the layout is done with a hint, for a move or a turn that takes something further
// out; a step back in is not.
TEST_F(EditCommand, MoveOrTurnOutOfTheLayoutIsDoneWithAHint) {
    ASSERT_EQ(
        Edit({"--alles", "--verschieben", "5000;0;0", "--verschieben", "-10;0;0", "--drehen", "90;100000;0"},
             "Lua-Testbeispiel.anl3"),
        CCommandLine::kOk);
    const std::string text = out.str();
    const std::string moved =
        "Hinweis: Teile der Auswahl befinden sich nach dem Verschieben außerhalb der Anlage.";
    const size_t first = text.find(moved);
    EXPECT_NE(first, std::string::npos) << text;
    EXPECT_EQ(text.find(moved, first + 1), std::string::npos) << text;
    EXPECT_NE(text.find("Hinweis: Teile der Auswahl befinden sich nach dem Drehen außerhalb der Anlage."),
              std::string::npos)
        << text;
    EXPECT_TRUE(Exists());
}

TEST_F(EditCommand, HelpNamesTheEditOptions) {
    CCommandLine commandLine(out, err);
    ASSERT_EQ(commandLine.Run({"--help"}), CCommandLine::kOk);
    for (const char* option :
         {"edit EIN AUS OPTION", "--alles", "--bereich X1;Y1;X2;Y2", "--gleise SYS:LISTE", "--keine",
          "--verschieben DX;DY;DZ", "--drehen GRAD;CX;CY", "--loesen", "--rueckgaengig"})
        EXPECT_NE(out.str().find(option), std::string::npos) << option;
}

} // namespace
