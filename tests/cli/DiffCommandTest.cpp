#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>

#include "TestSupport.h"
#include "cli/CCommandLine.h"

#ifdef KAVRIN_CLI_RENDERS
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#endif

using namespace kavrin;

namespace {

class DiffCommand : public ::testing::Test {
protected:
    int Run(std::vector<std::string> args) {
        out.str("");
        err.str("");
        return CCommandLine(out, err).Run(args);
    }
    int Diff(const std::string& alt, const std::string& neu, std::vector<std::string> options = {}) {
        std::vector<std::string> args{"diff", alt, neu};
        args.insert(args.end(), options.begin(), options.end());
        return Run(args);
    }
    // "  Gleise: 78 entfernt, 2 geändert" -> 78 for ("Gleise", "entfernt"); 0 when not listed.
    static long Count(const std::string& summary, const std::string& kind, const std::string& change) {
        std::smatch line;
        if (!std::regex_search(summary, line, std::regex("\n  " + kind + ": ([^\n]*)")))
            return 0;
        std::smatch count;
        std::string counts = line[1].str();
        return std::regex_search(counts, count, std::regex("(\\d+) " + change)) ? std::stol(count[1].str())
                                                                                : 0;
    }
    static long Printed(const std::string& text, const std::string& pattern) {
        std::smatch found;
        return std::regex_search(text, found, std::regex(pattern)) ? std::stol(found[1].str()) : 0;
    }

    test::TempDir dir;
    std::ostringstream out;
    std::ostringstream err;
};

// Every sample against its copies edited by "edit": the diff names exactly what the edit says it did.
TEST_F(DiffCommand, SamplesAgainstTheirEditedCopiesShowExactlyTheEdits) {
    for (const auto& file : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (file.path().extension() != ".anl3")
            continue;
        const std::string sample = file.path().string();
        SCOPED_TRACE(file.path().filename().string());
        ASSERT_EQ(Diff(sample, sample), 0);
        EXPECT_NE(out.str().find("Keine Unterschiede."), std::string::npos);

        ASSERT_EQ(Run({"edit", sample, dir.File("moved.anl3"), "--alles", "--verschieben", "3;4;0"}), 0)
            << err.str();
        const std::string selected = out.str();
        const long tracks = Printed(selected, "Auswahl: (\\d+) Gleise");
        const long buildings = Printed(selected, "(\\d+) Immobilien");
        ASSERT_EQ(Diff(sample, dir.File("moved.anl3"), {"--zusammenfassung"}), tracks + buildings ? 1 : 0);
        EXPECT_EQ(Count(out.str(), "Gleise", "verschoben"), tracks) << out.str();
        EXPECT_EQ(Count(out.str(), "Immobilien", "verschoben"), buildings) << out.str();
        Diff(sample, dir.File("moved.anl3"));
        const std::string details = out.str();
        const std::string changes = details.substr(std::min(details.find("Änderungen:"), details.size()));
        const auto lines = std::count(changes.begin(), changes.end(), '\n');
        long exact = 0;
        for (size_t at = changes.find("verschoben um 5,00 m, Höhe +0,00 m\n"); at != std::string::npos;
             at = changes.find("verschoben um 5,00 m, Höhe +0,00 m\n", at + 1))
            ++exact;
        // Every line is such a move: the selection's, and the collectors that travel with buildings.
        EXPECT_EQ(lines, exact ? 1 + exact : 0) << "nur die Verschiebungen";
        Diff(sample, dir.File("moved.anl3"), {"--zusammenfassung"});
        EXPECT_EQ(exact, tracks + buildings + Count(out.str(), "Kollektoren", "verschoben"));

        ASSERT_EQ(Run({"edit", sample, dir.File("deleted.anl3"), "--alles", "--loeschen"}), 0) << err.str();
        const std::string deleted = out.str();
        ASSERT_EQ(Diff(sample, dir.File("deleted.anl3"), {"--zusammenfassung"}), 1);
        const std::string summary = out.str();
        EXPECT_EQ(Count(summary, "Gleise", "entfernt"), Printed(deleted, "(\\d+) Gleise?\n"));
        EXPECT_EQ(Count(summary, "Immobilien", "entfernt"), Printed(deleted, "(\\d+) Immobilien?\n"));
        EXPECT_EQ(Count(summary, "Kontakte", "entfernt"), Printed(deleted, "(\\d+) Kontakte?\n"));
        EXPECT_EQ(Count(summary, "Signale", "entfernt"), Printed(deleted, "(\\d+) Signale?\n"));
        EXPECT_EQ(Count(summary, "Züge", "entfernt"), Printed(deleted, "(\\d+) Zugverb(and|ände)\n"));
        EXPECT_EQ(Count(summary, "Kollektoren", "entfernt"), Printed(deleted, "(\\d+) Kollektor(en)?\n"));
        for (const char* change : {"hinzugefügt", "verschoben", "gedreht"})
            EXPECT_EQ(summary.find(change), std::string::npos) << summary;

        ASSERT_EQ(Run({"edit", sample, dir.File("renumbered.anl3"), "--nummerieren"}), 0) << err.str();
        const long renumbered = Printed(out.str(), "(\\d+) Key-IDs neu nummeriert");
        ASSERT_EQ(Diff(sample, dir.File("renumbered.anl3"), {"--zusammenfassung"}), renumbered ? 1 : 0);
        EXPECT_EQ(Count(out.str(), "Gleise", "geändert") + Count(out.str(), "Signale", "geändert"),
                  renumbered)
            << out.str();
    }
}

TEST_F(DiffCommand, ExitStatusAndUsage) {
    EXPECT_EQ(Diff(test::SamplePath("Lua-Test-vor-EEP.anl3"), test::SamplePath("Lua-Testbeispiel.anl3")), 1);
    EXPECT_EQ(out.str().find("Hinweis"), std::string::npos) << "keine Ladehinweise zwischen den Zeilen";
    EXPECT_EQ(Diff(test::SamplePath("Lua-Test-vor-EEP.anl3"), dir.File("fehlt.anl3")), 2);
    EXPECT_NE(err.str().find("fehlt.anl3"), std::string::npos) << err.str();
    test::WriteFile(dir.File("kaputt.anl3"), "<?xml version=\"1.0\"?>\n<sutrackp><Gleissystem>");
    EXPECT_EQ(Diff(dir.File("kaputt.anl3"), test::SamplePath("Lua-Test-vor-EEP.anl3")), 2);
    EXPECT_NE(err.str().find("Fehler"), std::string::npos) << err.str();
    EXPECT_EQ(Run({"diff", test::SamplePath("Lua-Test-vor-EEP.anl3")}), 2);
    EXPECT_EQ(Diff(test::SamplePath("Lua-Test-vor-EEP.anl3"), test::SamplePath("Lua-Test-vor-EEP.anl3"),
                   {"--farbig"}),
              2);
}

#ifdef KAVRIN_CLI_RENDERS
// The JSON parses, carries all kinds and changes, and its counts are those of the text.
TEST_F(DiffCommand, JsonParsesWithTheSameCounts) {
    const std::string alt = test::SamplePath("Tutorial-Ampelkreuzung-2.anl3");
    const std::string neu = test::SamplePath("Tutorial-Ampelkreuzung-3-rechtsabbieger.anl3");
    ASSERT_EQ(Diff(alt, neu, {"--zusammenfassung"}), 1);
    const std::string summary = out.str();
    ASSERT_EQ(Diff(alt, neu, {"--json"}), 1);
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(out.str()), &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    QJsonObject counts = document.object().value("zusammenfassung").toObject();
    EXPECT_EQ(counts.size(), 10);
    const std::pair<const char*, const char*> kinds[] = {
        {"Gleise", "Gleise"},     {"Signale", "Signale"},
        {"Kontakte", "Kontakte"}, {"Immobilien", "Immobilien"},
        {"Gueter", "Güter"},      {"Zuege", "Züge"},
        {"Kameras", "Kameras"},   {"Kollektoren", "Kollektoren"},
        {"Gelaende", "Gelände"},  {"Sonstiges", "Sonstiges"}};
    const std::pair<const char*, const char*> changes[] = {{"hinzugefuegt", "hinzugefügt"},
                                                           {"entfernt", "entfernt"},
                                                           {"verschoben", "verschoben"},
                                                           {"gedreht", "gedreht"},
                                                           {"geaendert", "geändert"}};
    long total = 0;
    for (const auto& [key, text] : kinds) {
        QJsonObject kind = counts.value(key).toObject();
        EXPECT_EQ(kind.size(), 5) << key;
        for (const auto& [changeKey, changeText] : changes) {
            EXPECT_EQ(kind.value(changeKey).toInt(-1), Count(summary, text, changeText))
                << key << " " << changeKey;
            total += kind.value(changeKey).toInt();
        }
    }
    QJsonArray entries = document.object().value("aenderungen").toArray();
    EXPECT_EQ(entries.size(), total);
    for (const auto& value : entries) {
        QJsonObject entry = value.toObject();
        EXPECT_FALSE(entry.value("objekt").toString().isEmpty());
        if (entry.value("aenderung").toString() == "geaendert") {
            EXPECT_FALSE(entry.value("werte").toArray().isEmpty());
        }
    }
    ASSERT_EQ(Diff(alt, neu, {"--json", "--zusammenfassung"}), 1);
    EXPECT_TRUE(QJsonDocument::fromJson(QByteArray::fromStdString(out.str()))
                    .object()
                    .value("aenderungen")
                    .isUndefined());
}
#endif

} // namespace
