#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <unistd.h>

#include "LayoutText.h"
#include "TestSupport.h"
#include "document/CAnlage.h"
#include "document/CNodeUnknown.h"
#include "document/NodeAttributes.h"
#include "document/NodeTree.h"

using namespace kavrin;

namespace {

class LoadSave : public ::testing::Test {
protected:
    bool LoadText(const std::string& text) {
        test::WriteFile(path, text);
        return anlage.Load(path);
    }
    std::string SaveAndRead() {
        std::string out = dir.File("out.anl3");
        EXPECT_TRUE(anlage.Save(out));
        return test::ReadFile(out);
    }
    std::vector<std::string> TempLeftovers() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(dir.Path()))
            if (entry.path().filename().string().rfind(".kavrin", 0) == 0)
                names.push_back(entry.path().string());
        return names;
    }
    test::RecordingScope scope;
    test::TempDir dir;
    std::string path = dir.File("Anlage.anl3");
    CAnlage anlage;
};

TEST_F(LoadSave, KeepsDeclarationRootAttributesLineFeedsAndInstructions) {
    std::string text = test::LayoutText("<TexText Text=\"a\nb\" Leer=\"\"/>");
    text.replace(text.find("<sutrackp>"), 10,
                 "<?kavrin hinweis?><sutrackp xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                 "xsi:noNamespaceSchemaLocation=\"x.xsd\">");
    text.replace(0, text.find("?>") + 2, "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>");
    ASSERT_TRUE(LoadText(text));
    EXPECT_EQ(SaveAndRead(), text);
}

TEST_F(LoadSave, VersionChaptersAndHints) {
    ASSERT_TRUE(LoadText(test::LayoutText()));
    EXPECT_EQ(anlage.Version().FileVersion(), "15");
    EXPECT_TRUE(anlage.FoundChapter().Found("Gleissystem"));
    EXPECT_TRUE(scope.ui.parseLog.Hints().empty());
    EXPECT_FALSE(anlage.Changed());
    EXPECT_EQ(scope.ui.statuses.front(), "wird aufgebaut ...");
}

TEST_F(LoadSave, MissingChaptersAreHintsNotFailures) {
    std::string text = test::LayoutText();
    for (const char* chapter : {"<Kammerasammlung/>", "<Fuhrpark FuhrparkID=\"1\"/>"})
        text.erase(text.find(chapter), std::strlen(chapter));
    ASSERT_TRUE(LoadText(text));
    const auto& hints = scope.ui.parseLog.Hints();
    ASSERT_EQ(hints.size(), 2u);
    EXPECT_EQ(hints[0], "Der Abschnitt \"Fuhrpark\" fehlt vollständig");
    EXPECT_EQ(hints[1], "Der Abschnitt mit den Kameras fehlt.");
}

TEST_F(LoadSave, MissingOrIncompleteTerrainIsRefused) {
    const std::string terrains[] = {
        "<Beschreibung/>",                                                              // none at all
        "<Schandlaft extX=\"75\" extY=\"75\" posX=\"0\" dichte=\"0.0015\"/>",           // no posY
        "<Schandlaft extX=\"0\" extY=\"75\" posX=\"0\" posY=\"0\" dichte=\"0.0015\"/>", // empty grid
        "<Schandlaft extX=\"75\" extY=\"75\" posX=\"0\" posY=\"0\" dichte=\"x\"/>",     // no density
    };
    for (const std::string& terrain : terrains) {
        scope.ui.errors.clear();
        EXPECT_FALSE(LoadText(test::LayoutText("", terrain))) << terrain;
        ASSERT_EQ(scope.ui.errors.size(), 1u) << terrain;
        EXPECT_EQ(scope.ui.errors[0], "Der Abschnitt \"Schandlaft\" fehlt oder ist unvollständig;\r\n"
                                      "somit fehlen die Grunddaten der Anlage!");
        EXPECT_EQ(anlage.RootNode(), nullptr);
    }
}

TEST_F(LoadSave, WrongBuildingCollectionIdIsRepaired) {
    std::string collections;
    for (int id : {1, 2, 3, 0, 4, 5})
        collections += "<Gebaeudesammlung GebaudesammlungID=\"" + std::to_string(id) + "\"/>";
    ASSERT_TRUE(LoadText(test::LayoutText(collections)));
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    EXPECT_EQ(
        scope.ui.errors[0].rfind("Diese Anlage wurde offensichtlich vom\r\nProgramm 'Planfuger' erstellt", 0),
        0u);
    EXPECT_TRUE(anlage.ChangedWhileLoading());
    EXPECT_TRUE(anlage.Changed());
    std::string saved = SaveAndRead();
    EXPECT_NE(
        saved.find("<Gebaeudesammlung GebaudesammlungID=\"3\"/><Gebaeudesammlung GebaudesammlungID=\"6\"/>"),
        std::string::npos);
}

TEST_F(LoadSave, CorrectBuildingCollectionIdsAreLeftAlone) {
    std::string collections;
    for (int id : {1, 2, 3, 6, 4, 5})
        collections += "<Gebaeudesammlung GebaudesammlungID=\"" + std::to_string(id) + "\"/>";
    ASSERT_TRUE(LoadText(test::LayoutText(collections)));
    EXPECT_TRUE(scope.ui.errors.empty());
    EXPECT_FALSE(anlage.Changed());
}

TEST_F(LoadSave, BadFilesAreRefusedWithTheParserReport) {
    std::string layout = test::LayoutText();
    const std::pair<std::string, std::string> cases[] = {
        {"kein XML, nur Text", "Fehlercode: 16  (0x10)"},
        {"", "Fehlercode: 16  (0x10)"},
        {layout.substr(0, layout.find("<Options/>")), "Fehlercode: 14  (0xE)"},
        {"<a><b></a>", "Der Fehler entsteht in der Nähe des 9. Zeichen"},
    };
    for (const auto& [content, expected] : cases) {
        scope.ui.errors.clear();
        EXPECT_FALSE(LoadText(content));
        ASSERT_EQ(scope.ui.errors.size(), 1u);
        const std::string& error = scope.ui.errors[0];
        EXPECT_EQ(error.rfind("Die Datei\r\n" + path + "\r\nist offensichtlich keine Anlagen-Datei.", 0), 0u);
        EXPECT_NE(error.find(expected), std::string::npos) << error;
        EXPECT_NE(error.find("Fehlertext: "), std::string::npos);
        EXPECT_EQ(anlage.RootNode(), nullptr);
    }
}

TEST_F(LoadSave, CommentInsideTheTreeStopsTheLoad) {
    EXPECT_FALSE(LoadText(test::LayoutText("<X><!-- Kommentar --></X>")));
    ASSERT_EQ(scope.ui.parseLog.Hints().size(), 1u);
    EXPECT_NE(scope.ui.parseLog.Hints()[0].find("Unerwarteter Eintrag"), std::string::npos);
    EXPECT_EQ(anlage.RootNode(), nullptr);
}

TEST_F(LoadSave, MissingFileAndFolderAreRefused) {
    EXPECT_FALSE(anlage.Load(dir.File("gibtsnicht.anl3")));
    EXPECT_FALSE(anlage.Load(dir.Path().string()));
    ASSERT_EQ(scope.ui.errors.size(), 2u);
    EXPECT_NE(scope.ui.errors[0].find("existiert nicht"), std::string::npos);
    EXPECT_NE(scope.ui.errors[1].find("ist ein Ordner"), std::string::npos);
}

TEST_F(LoadSave, HugeAttributeLoadsAndSaves) {
    std::string big(10 * 1024 * 1024, 'x');
    big[5] = '&'; // escaped on the way out, decoded on the way in
    std::string text =
        test::LayoutText("<Beschreibung Text=\"" + std::string(big).replace(5, 1, "&amp;") + "\"/>");
    ASSERT_TRUE(LoadText(text));
    EXPECT_EQ(SaveAndRead(), text);
}

TEST_F(LoadSave, CancelledLoadFails) {
    scope.ui.cancelAfterRounds = 5;
    EXPECT_FALSE(LoadText(test::LayoutText()));
    EXPECT_TRUE(scope.ui.parseLog.Cancelled());
    EXPECT_NE(scope.ui.parseLog.LogText().find("Sie haben das Einlesen der Anlage abgebrochen!"),
              std::string::npos);
}

TEST_F(LoadSave, FailedSaveLeavesTheOldFileAndNoTemporaryFile) {
    ASSERT_TRUE(LoadText(test::LayoutText()));
    std::string target = dir.File("alt.anl3");
    test::WriteFile(target, "alter Inhalt");
    // A node that refuses to be written makes the save fail half-way.
    class Refusing : public CNodeUnknown {
        bool XmlAttributes(CXmlWriter&) override { return false; }
    };
    auto refusing = std::make_unique<Refusing>();
    refusing->SetName("Kaputt");
    AppendChild(*anlage.RootNode(), std::move(refusing));
    anlage.SetChanged(true);
    EXPECT_FALSE(anlage.Save(target));
    EXPECT_EQ(test::ReadFile(target), "alter Inhalt");
    EXPECT_TRUE(TempLeftovers().empty());
    EXPECT_TRUE(anlage.Changed());
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    EXPECT_EQ(
        scope.ui.errors[0].rfind("Die Anlage wurde NICHT gespeichert!!\r\n\r\nProzedur: CAnlage.Save", 0),
        0u);
}

TEST_F(LoadSave, SaveIntoUnwritablePlacesFailsCleanly) {
    ASSERT_TRUE(LoadText(test::LayoutText()));
    anlage.SetChanged(true);
    std::vector<std::string> targets = {dir.File("fehlt/x.anl3"), dir.Path().string(),
                                        "/proc/kavrin-test.anl3"};
    for (const std::string& target : targets) {
        scope.ui.errors.clear();
        EXPECT_FALSE(anlage.Save(target)) << target;
        ASSERT_EQ(scope.ui.errors.size(), 1u) << target;
        EXPECT_NE(scope.ui.errors[0].find("Fehler 75"), std::string::npos) << scope.ui.errors[0];
        EXPECT_TRUE(anlage.Changed());
    }
    EXPECT_TRUE(std::filesystem::is_directory(dir.Path()));
}

// A read-only folder, for a new file and for a writable file in it: run as an ordinary user
// (in a child), since root may write anywhere.
TEST_F(LoadSave, SaveIntoAReadOnlyFolderFailsAndKeepsTheFileThere) {
    ASSERT_TRUE(LoadText(test::LayoutText()));
    anlage.SetChanged(true);
    std::string folder = dir.File("nurlesen"), existing = folder + "/vorhanden.anl3";
    std::filesystem::create_directory(folder);
    test::WriteFile(existing, "alt");
    std::filesystem::permissions(existing, std::filesystem::perms(0666));
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    std::filesystem::permissions(dir.Path(), std::filesystem::perms(0755));
    EXPECT_EXIT(
        {
            if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
                _exit(3);
            for (const std::string& target : {folder + "/neu.anl3", existing}) {
                scope.ui.errors.clear();
                if (anlage.Save(target) || scope.ui.errors.size() != 1 || !anlage.Changed())
                    _exit(1);
                std::fprintf(stderr, "%s\n", scope.ui.errors[0].c_str());
            }
            std::fflush(stderr);
            _exit(test::ReadFile(existing) == "alt" && !std::filesystem::exists(folder + "/neu.anl3") ? 0
                                                                                                      : 2);
        },
        ::testing::ExitedWithCode(0), "Fehler 75");
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
}

TEST_F(LoadSave, SaveReplacesAnExistingFileAndKeepsItsPermissions) {
    ASSERT_TRUE(LoadText(test::LayoutText()));
    std::string target = dir.File("ziel.anl3");
    test::WriteFile(target, "alt");
    std::filesystem::permissions(target, std::filesystem::perms(0640));
    ASSERT_TRUE(anlage.Save(target));
    EXPECT_EQ(test::ReadFile(target), test::LayoutText());
    EXPECT_EQ(std::filesystem::status(target).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(anlage.FilePath(), target);
    EXPECT_TRUE(TempLeftovers().empty());
}

} // namespace
