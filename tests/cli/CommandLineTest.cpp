#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "../document/LayoutText.h"
#include "TestSupport.h"
#include "cli/CCommandLine.h"

using namespace kavrin;

namespace {

struct CliRun {
    explicit CliRun(const std::vector<std::string>& args) {
        CCommandLine commandLine(out, err);
        status = commandLine.Run(args);
    }
    std::ostringstream out;
    std::ostringstream err;
    int status = -1;
};

TEST(CommandLine, WrongUsageExitsWithTwo) {
    for (const auto& args : std::vector<std::vector<std::string>>{
             {}, {"info"}, {"save", "a"}, {"loeschen", "x"}, {"check", "a", "b"}}) {
        CliRun run(args);
        EXPECT_EQ(run.status, CCommandLine::kUsage);
        EXPECT_NE(run.err.str().find("kavrin-cli --help"), std::string::npos);
    }
}

TEST(CommandLine, HelpNamesEveryCommand) {
    CliRun run({"--help"});
    EXPECT_EQ(run.status, CCommandLine::kOk);
    for (const char* command : {"info DATEI", "check DATEI", "save EIN AUS"})
        EXPECT_NE(run.out.str().find(command), std::string::npos) << command;
}

// Every repair of a load is named, and the check says that the layout was repaired.
TEST(CommandLine, CheckNamesTheRepairsItMade) {
    test::TempDir dir;
    std::string path = dir.File("Kaputt.anl3");
    std::string text = test::ReadFile(test::SamplePath("Tutorial-Ampelkreuzung-2.anl3"));
    size_t record = text.find(" Anschluss2=\"Anfang\"/>");
    ASSERT_NE(record, std::string::npos);
    text.replace(record, std::string(" Anschluss2=\"Anfang\"/>").size(), "/>");
    test::WriteFile(path, text);
    CliRun run({"check", path});
    EXPECT_EQ(run.status, CCommandLine::kOk);
    EXPECT_NE(run.out.str().find("Hinweis: Unvollständige Anschlussdaten in Gleisverbindung!"),
              std::string::npos)
        << run.out.str();
    EXPECT_NE(run.out.str().find("repariert"), std::string::npos);
    EXPECT_NE(run.out.str().find("(1 Hinweis)."), std::string::npos) << run.out.str();
    CliRun clean({"check", test::SamplePath("Tutorial-Ampelkreuzung-2.anl3")});
    EXPECT_EQ(clean.out.str().find("repariert"), std::string::npos);
}

TEST(CommandLine, InfoReportsVersionChaptersAndCounts) {
    CliRun run({"info", test::SamplePath("Screenshots.anl3")});
    ASSERT_EQ(run.status, CCommandLine::kOk) << run.err.str();
    const std::string out = run.out.str();
    EXPECT_NE(out.find("Version: "), std::string::npos);
    EXPECT_NE(out.find("EEP 15"), std::string::npos);
    EXPECT_NE(out.find("Abschnitte: Version Gleissystem"), std::string::npos);
    EXPECT_NE(out.find("  Kammera: 160\n"), std::string::npos);
    EXPECT_NE(out.find("  3 Strasse: 231 Gleise, davon 30 Weichen\n"), std::string::npos) << out;
    EXPECT_NE(out.find("  4 Immobilien: 63\n"), std::string::npos);
    EXPECT_NE(out.find("Züge: 9\n"), std::string::npos);
    EXPECT_NE(out.find("Hinweise: 0"), std::string::npos);
}

TEST(CommandLine, InventoryListsWhatTheEditorLists) {
    // The option may stand before or after the file.
    for (const auto& args : std::vector<std::vector<std::string>>{
             {"info", "--inventar", test::SamplePath("Screenshots.anl3")},
             {"info", test::SamplePath("Screenshots.anl3"), "--inventar"}}) {
        CliRun run(args);
        ASSERT_EQ(run.status, CCommandLine::kOk) << run.err.str();
        const std::string out = run.out.str();
        // The same numbers as the plain info, in the inventory's own words.
        EXPECT_NE(out.find("Gleise je Gleissystem: "), std::string::npos) << out;
        EXPECT_NE(out.find("  Strasse: 231\n"), std::string::npos) << out;
        EXPECT_NE(out.find("Weichen je Gleissystem: "), std::string::npos);
        EXPECT_NE(out.find("  Strasse: 30\n"), std::string::npos) << out;
        EXPECT_NE(out.find("Gebäudesammlung Immobilien: 63\n"), std::string::npos) << out;
        EXPECT_NE(out.find("Züge (Fahrzeuge je Zug): "), std::string::npos);
        EXPECT_EQ(out.find("Elemente je Name"), std::string::npos);
    }
    CliRun missing({"info", "--inventar", "/gibt/es/nicht.anl3"});
    EXPECT_EQ(missing.status, CCommandLine::kFailed);
}

TEST(CommandLine, InfoCountsContactsByKindAndSignals) {
    CliRun run({"info", test::SamplePath("Demoanlage-Ampel-Grundmodelle.anl3")});
    ASSERT_EQ(run.status, CCommandLine::kOk) << run.err.str();
    const std::string out = run.out.str();
    EXPECT_NE(out.find("Kontakte je Art:\n  "), std::string::npos) << out;
    EXPECT_EQ(out.find("Signale: 0\n"), std::string::npos) << out;
}

TEST(CommandLine, CheckPrintsHintsAndTellsLoadFromFailure) {
    test::TempDir dir;
    std::string text = test::LayoutText();
    text.erase(text.find("<Kammerasammlung/>"), 18);
    test::WriteFile(dir.File("ok.anl3"), text);
    CliRun ok({"check", dir.File("ok.anl3")});
    EXPECT_EQ(ok.status, CCommandLine::kOk);
    EXPECT_NE(ok.out.str().find("Der Abschnitt mit den Kameras fehlt."), std::string::npos);

    test::WriteFile(dir.File("bad.anl3"), "<a>");
    CliRun bad({"check", dir.File("bad.anl3")});
    EXPECT_EQ(bad.status, CCommandLine::kFailed);
    EXPECT_NE(bad.err.str().find("ist offensichtlich keine Anlagen-Datei."), std::string::npos);
    EXPECT_EQ(bad.err.str().find('\r'), std::string::npos);
}

TEST(CommandLine, SaveWritesTheLayoutAndFailsWithoutTouchingAnything) {
    test::TempDir dir;
    test::WriteFile(dir.File("in.anl3"), test::LayoutText());
    CliRun save({"save", dir.File("in.anl3"), dir.File("out.anl3")});
    EXPECT_EQ(save.status, CCommandLine::kOk);
    EXPECT_EQ(test::ReadFile(dir.File("out.anl3")), test::LayoutText());

    CliRun missing({"save", dir.File("fehlt.anl3"), dir.File("out2.anl3")});
    EXPECT_EQ(missing.status, CCommandLine::kFailed);
    EXPECT_FALSE(std::filesystem::exists(dir.File("out2.anl3")));

    CliRun unwritable({"save", dir.File("in.anl3"), dir.File("kein/ordner.anl3")});
    EXPECT_EQ(unwritable.status, CCommandLine::kFailed);
    EXPECT_NE(unwritable.err.str().find("Die Anlage wurde NICHT gespeichert!!"), std::string::npos);
}

} // namespace

namespace {

// Errors go to standard error with their reason, also when a hint stopped the load.
TEST(CommandLine, AFailedLoadSaysWhyOnStandardError) {
    test::TempDir dir;
    std::string path = dir.File("Kommentar.anl3");
    test::WriteFile(path, test::LayoutText("<Notiz><!-- Kommentar --></Notiz>"));
    for (const char* command : {"check", "info"}) {
        CliRun run({command, path});
        EXPECT_EQ(run.status, CCommandLine::kFailed);
        EXPECT_NE(run.err.str().find("Fehler: Die Anlage"), std::string::npos) << run.err.str();
        EXPECT_NE(run.err.str().find("Unerwarteter Eintrag in .anl3 Datei!"), std::string::npos)
            << run.err.str();
        EXPECT_NE(run.err.str().find("Die Anlage wurde nicht geladen."), std::string::npos);
    }
    CliRun pipe({"check", "/dev/null"});
    EXPECT_EQ(pipe.status, CCommandLine::kFailed);
    EXPECT_NE(pipe.err.str().find("ist ein Gerät und keine Anlagen-Datei"), std::string::npos)
        << pipe.err.str();
}

// Nobody can be asked on the command line: a write-protected file is not replaced.
TEST(CommandLine, SaveRefusesAWriteProtectedFile) {
    test::TempDir dir;
    std::string out = dir.File("Geschuetzt.anl3");
    test::WriteFile(out, "alt");
    std::filesystem::permissions(out, std::filesystem::perms::owner_read |
                                          std::filesystem::perms::group_read |
                                          std::filesystem::perms::others_read);
    CliRun run({"save", test::SamplePath("Demo-Linien.anl3"), out});
    EXPECT_EQ(run.status, CCommandLine::kFailed);
    EXPECT_NE(run.err.str().find("ist schreibgeschützt; kavrin-cli ersetzt sie nicht."), std::string::npos)
        << run.err.str();
    EXPECT_EQ(test::ReadFile(out), "alt");
}

} // namespace
