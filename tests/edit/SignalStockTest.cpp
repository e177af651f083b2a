#include <gtest/gtest.h>

#include <filesystem>

#include "TestSupport.h"
#include "edit/CSignalStock.h"

using namespace kavrin;

namespace {

// Which signal models count as "nicht im Bestand": only those an installation's readable signal
// folder lacks; without an installation, or with a folder that is missing or cannot be listed,
// none does.
TEST(SignalStock, OnlyAReadableFolderMarksModelsAsMissing) {
    test::TempDir dir;
    const std::filesystem::path resources = dir.Path() / "Resourcen";
    std::filesystem::create_directories(resources / "Signale" / "Signale");
    test::WriteFile((resources / "Signale" / "Signale" / "Hp_Signal.GSB").string(), "x");

    CSignalStock stock(resources.string());
    EXPECT_TRUE(stock.Checked());
    EXPECT_FALSE(stock.FolderUnreadable());
    EXPECT_TRUE(stock.Known("hp_signal"));
    EXPECT_TRUE(stock.Known("HP_SIGNAL"));
    EXPECT_FALSE(stock.Known("Vr_Signal"));
    EXPECT_FALSE(stock.Known("Hp_Signal.GSB"));

    CSignalStock none("");
    EXPECT_FALSE(none.Checked());
    EXPECT_FALSE(none.FolderUnreadable());
    EXPECT_TRUE(none.Known("Vr_Signal"));

    CSignalStock missing((dir.Path() / "fehlt").string());
    EXPECT_TRUE(missing.FolderUnreadable());
    EXPECT_TRUE(missing.Known("Vr_Signal"));

    // A file where the folder should be cannot be listed.
    const std::filesystem::path broken = dir.Path() / "Kaputt";
    std::filesystem::create_directories(broken / "Signale");
    test::WriteFile((broken / "Signale" / "Signale").string(), "kein Ordner");
    CSignalStock unreadable(broken.string());
    EXPECT_TRUE(unreadable.FolderUnreadable());
    EXPECT_NE(unreadable.Folder().find("Signale"), std::string::npos);
    EXPECT_TRUE(unreadable.Known("Vr_Signal"));
}

} // namespace
