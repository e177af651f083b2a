#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "TestSupport.h"
#include "cli/CCommandLine.h"
#include "document/CAnlage.h"
#include <set>

#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/LayoutLookup.h"

using namespace kavrin;

namespace {

// The deletions of "kavrin-cli edit" and the preview of "kavrin-cli info".
class DeleteCommand : public ::testing::Test {
protected:
    static constexpr const char* kSample = "Demoanlage-Ampel-Grundmodelle.anl3";

    int Run(std::vector<std::string> args) {
        out.str("");
        err.str("");
        CCommandLine commandLine(out, err);
        return commandLine.Run(args);
    }
    int Edit(std::vector<std::string> options) {
        std::vector<std::string> args{"edit", test::SamplePath(kSample), outPath};
        args.insert(args.end(), options.begin(), options.end());
        return Run(args);
    }
    size_t CountIn(const std::string& text, const std::string& what) {
        size_t count = 0;
        for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++count;
        return count;
    }

    test::TempDir dir;
    std::string outPath = dir.File("aus.anl3");
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(DeleteCommand, DeletingATrackTakesItsTrainAndEmptiesTheSelection) {
    ASSERT_EQ(Edit({"--gleise", "3:60", "--loeschen", "--loeschen"}), CCommandLine::kFailed);
    EXPECT_NE(err.str().find("--loeschen: Die Auswahl ist leer."), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(outPath));

    ASSERT_EQ(Edit({"--gleise", "3:60", "--loeschen"}), CCommandLine::kOk) << err.str();
    EXPECT_NE(out.str().find("--loeschen: gelöscht:\n  1 Gleis\n"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("  1 Zugverband\n"), std::string::npos) << out.str();
    std::string original = test::ReadFile(test::SamplePath(kSample));
    std::string written = test::ReadFile(outPath);
    EXPECT_EQ(CountIn(written, "<Zugverband "), CountIn(original, "<Zugverband ") - 1);
    EXPECT_EQ(written.find("gleissystemID=\"3\" gleisID=\"60\""), std::string::npos);
    test::RecordingScope scope;
    CAnlage anlage;
    ASSERT_TRUE(anlage.Load(outPath));
    EXPECT_EQ(FindGleis(anlage, 3, 60), nullptr);
}

TEST_F(DeleteCommand, DeletedAndUndoneGivesTheSameFileAsNoEdit) {
    ASSERT_EQ(Edit({"--gleise", "3:1", "--keine"}), CCommandLine::kOk);
    std::string unedited = test::ReadFile(outPath);
    ASSERT_EQ(Edit({"--alles", "--loeschen", "--rueckgaengig"}), CCommandLine::kOk) << err.str();
    EXPECT_EQ(test::ReadFile(outPath), unedited);
}

TEST_F(DeleteCommand, SignalsByNameAndContactsByKind) {
    ASSERT_EQ(Edit({"--signale-loeschen", "signal_1"}), CCommandLine::kOk) << err.str();
    EXPECT_NE(out.str().find("  21 Signale\n"), std::string::npos) << out.str();
    std::string written = test::ReadFile(outPath);
    EXPECT_EQ(written.find("<Meldung "), std::string::npos);
    EXPECT_NE(written.find("<Zugverband "), std::string::npos);
    {
        // The signals of this layout carry no contact target (0); the switch contacts stay and
        // still switch their switches.
        test::RecordingScope scope;
        CAnlage anlage;
        ASSERT_TRUE(anlage.Load(outPath));
        std::set<int32_t> switches;
        int kept = 0;
        for (CNodeGleisSys* system : TrackSystems(anlage))
            for (const CNodeGleis* track : system->Gleise().Tracks())
                switches.insert(track->KontaktZiel());
        for (CNodeGleisSys* system : TrackSystems(anlage))
            for (const CNodeGleis* track : system->Gleise().Tracks())
                for (const auto& child : track->SubNodes())
                    if (auto* kontakt = dynamic_cast<const CNodeKontakt*>(child.get());
                        kontakt && kontakt->SetType() == 0) {
                        EXPECT_TRUE(switches.count(kontakt->KontaktZiel())) << kontakt->KontaktZiel();
                        ++kept;
                    }
        EXPECT_GT(kept, 0);
    }

    EXPECT_EQ(Edit({"--signale-loeschen", "gibt_es_nicht"}), CCommandLine::kFailed);
    EXPECT_NE(err.str().find("gibt_es_nicht"), std::string::npos);

    ASSERT_EQ(Edit({"--alles", "--kontakte-loeschen", "1;3"}), CCommandLine::kOk) << err.str();
    written = test::ReadFile(outPath);
    EXPECT_EQ(written.find("SetType=\"1\""), std::string::npos);
    EXPECT_EQ(written.find("SetType=\"3\""), std::string::npos);
    EXPECT_EQ(CountIn(written, "SetType=\"0\""), 11u);

    EXPECT_EQ(Edit({"--alles", "--kontakte-loeschen", "1;x"}), CCommandLine::kFailed);
    EXPECT_NE(err.str().find("--kontakte-loeschen"), std::string::npos);
}

TEST_F(DeleteCommand, PreviewListsWhatWouldGoAndWritesNothing) {
    ASSERT_EQ(Run({"info", "--loeschen-vorschau", test::SamplePath(kSample), "--gleise", "3:60"}),
              CCommandLine::kOk)
        << err.str();
    EXPECT_NE(out.str().find("Zugverband: "), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("Löschen würde entfernen:\n  1 Gleis\n"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("  1 Zugverband\n"), std::string::npos);

    ASSERT_EQ(Run({"info", "--loeschen-vorschau", test::SamplePath(kSample), "--keine"}), CCommandLine::kOk);
    EXPECT_NE(out.str().find("Löschen würde nichts entfernen."), std::string::npos) << out.str();
    EXPECT_EQ(Run({"info", "--loeschen-vorschau", test::SamplePath(kSample), "--loeschen"}),
              CCommandLine::kUsage);
    EXPECT_EQ(Run({"info", "--loeschen-vorschau", test::SamplePath(kSample)}), CCommandLine::kUsage);
}

} // namespace
