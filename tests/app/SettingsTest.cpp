// What Kavrin keeps between runs: the settings store, the recent-file list, the view options,
// the main window's position, and the lock that refuses a second instance.

#include <QLockFile>
#include <QTest>
#include <algorithm>

#include "AppTestSupport.h"
#include "TestSupport.h"
#include "app/CMru.h"
#include "app/COptions.h"
#include "app/CSettingsStore.h"
#include "app/FMain.h"
#include "app/modMain.h"
#include "core/modTools.h"

using namespace kavrin;

class SettingsTest : public QObject {
    Q_OBJECT
private slots:
    void init() { settings.Clear(); }
    void storeAnswersNoEntryAndDefaults();
    void storeNumbersRejectGarbage();
    void mruPutsAPathOnceAtTheTop();
    void mruKeepsNineAndDeletesSurplusKeys();
    void mruSkipsMissingFilesAndBrokenKeys();
    void optionsDefaultsOnAnEmptyStore();
    void storedUserColoursWinOverThePalette();
    void optionsRoundTripAndFlagTexts();
    void optionsFallBackOnGarbage();
    void optionsIndexOutsideRangeIsReported();
    void windowStartsWithDefaultsAndTakesSingleKeys();
    void windowPositionRoundTrip();
    void windowMaximisedStoresOnlyTheFlag();
    void windowOffAllScreensComesBack();
    void layoutsDirectoryFollowsSettingOrResources();
    void secondInstanceIsRefused();
    void storeThatCannotBeWrittenIsReportedOnce();

private:
    test::SettingsSandbox settings;
    test::TempDir files;
    std::string NewFile(const std::string& name) {
        std::string path = files.File(name);
        test::WriteFile(path, "x");
        return path;
    }
};

void SettingsTest::storeAnswersNoEntryAndDefaults() {
    QCOMPARE(CSettingsStore::Get("Settings", "PathAnlagen"), std::string("##NoEntry##"));
    QCOMPARE(CSettingsStore::GetNumber("MainWindow", "x", -1), -1);
    CSettingsStore::Save("Settings", "PathAnlagen", "/home/ich/Anlagen, alt/ä");
    QCOMPARE(CSettingsStore::Get("Settings", "PathAnlagen"), std::string("/home/ich/Anlagen, alt/ä"));
    CSettingsStore::Delete("Settings", "PathAnlagen");
    QCOMPARE(CSettingsStore::Get("Settings", "PathAnlagen"), std::string("##NoEntry##"));
    // Values edited by hand: quoted text whole; commas, which the file format reads as a
    // list, still give one text.
    settings.WriteByHand("[Settings]\nPathAnlagen=\"D:/EEP/Anlagen, alt\"\nMruFile1=a,b\n");
    QCOMPARE(CSettingsStore::Get("Settings", "PathAnlagen"), std::string("D:/EEP/Anlagen, alt"));
    QCOMPARE(CSettingsStore::Get("Settings", "MruFile1"), std::string("a,b"));
}

void SettingsTest::storeNumbersRejectGarbage() {
    struct Case {
        const char* text;
        int32_t expected;
    };
    for (Case c :
         {Case{"120", 120}, Case{" -8 ", -8}, Case{"812.5", 812}, Case{"813.5", 814}, Case{"1E3", 1000},
          Case{"abc", 77}, Case{"12abc", 77}, Case{"", 77}, Case{"99999999999", 77}, Case{"nan", 77}}) {
        CSettingsStore::Save("MainWindow", "w", c.text);
        QCOMPARE(CSettingsStore::GetNumber("MainWindow", "w", 77), c.expected);
    }
}

void SettingsTest::mruPutsAPathOnceAtTheTop() {
    std::string a = NewFile("a.anl3"), b = NewFile("b.anl3"), c = NewFile("c.anl3");
    CMru mru;
    QCOMPARE(mru.Count(), 0);
    QCOMPARE(mru.MaxCount(), 9);
    QCOMPARE(mru.Item(1), std::string());
    for (const std::string& path : {a, b, c, b, b})
        mru.Add(path);
    QCOMPARE(mru.Count(), 3);
    QCOMPARE(mru.Item(1), b);
    QCOMPARE(mru.Item(2), c);
    QCOMPARE(mru.Item(3), a);
    QCOMPARE(mru.Item(0), std::string());
    QCOMPARE(mru.Item(4), std::string());
    QCOMPARE(settings.Raw("Settings", "MruFile1"), b);
    QCOMPARE(settings.Raw("Settings", "MruFile3"), a);
    QCOMPARE(settings.Raw("Settings", "MruFile4"), std::string("(fehlt)"));
    // The comparison is exact: another spelling is another entry.
    std::string upper = files.File("A.anl3");
    mru.Add(upper);
    QCOMPARE(mru.Count(), 4);
    CMru reread;
    QCOMPARE(reread.Item(1), b); // "A.anl3" does not exist, so it is not read back
    QCOMPARE(reread.Count(), 3);
}

void SettingsTest::mruKeepsNineAndDeletesSurplusKeys() {
    CMru mru;
    std::vector<std::string> paths;
    for (int i = 1; i <= 10; ++i) {
        paths.push_back(NewFile("f" + std::to_string(i) + ".anl3"));
        mru.Add(paths.back());
    }
    QCOMPARE(mru.Count(), 9);
    QCOMPARE(mru.Item(1), paths[9]);
    QCOMPARE(mru.Item(9), paths[1]); // the oldest, paths[0], is gone
    for (int n = 1; n <= 9; ++n)
        QCOMPARE(settings.Raw("Settings", "MruFile" + std::to_string(n)), paths[static_cast<size_t>(10 - n)]);
    QCOMPARE(settings.Raw("Settings", "MruFile10"), std::string("(fehlt)"));
    // Moving an entry up keeps nine keys and no stale tenth.
    mru.Add(paths[5]);
    QCOMPARE(mru.Count(), 9);
    QCOMPARE(settings.Raw("Settings", "MruFile1"), paths[5]);
    QCOMPARE(settings.Raw("Settings", "MruFile10"), std::string("(fehlt)"));
}

void SettingsTest::mruSkipsMissingFilesAndBrokenKeys() {
    std::string kept = NewFile("bleibt.anl3");
    std::string gone = NewFile("geloescht.anl3");
    {
        CMru mru;
        mru.Add(kept);
        mru.Add(gone);
    }
    std::filesystem::remove(gone);
    settings.Put("Settings", "MruFile5", QStringLiteral("/kein/solcher/Pfad.anl3"));
    CMru mru;
    QCOMPARE(mru.Count(), 1);
    QCOMPARE(mru.Item(1), kept);
    // The next Add writes the list as it is now: the deleted file's key goes.
    mru.Add(kept);
    QCOMPARE(settings.Raw("Settings", "MruFile2"), std::string("(fehlt)"));
    QCOMPARE(settings.Raw("Settings", "MruFile5"), std::string("(fehlt)"));
}

void SettingsTest::optionsDefaultsOnAnEmptyStore() {
    COptions options;
    QCOMPARE(options.TrackStyleCount(), 4);
    QCOMPARE(options.ImmoStyleCount(), 2);
    // The default palette: every kind its own colour, none of them the background's.
    std::vector<uint32_t> colours{options.BgColor(), options.GoodsColor()};
    for (int i = 1; i <= 4; ++i) {
        QVERIFY(options.TrackVisible(i));
        QCOMPARE(options.TrackColor(i), CViewOptions::DefaultTrackColor(i));
        colours.push_back(options.TrackColor(i));
    }
    for (int kind : {4, 5}) {
        QVERIFY(options.ImmoVisible(kind));
        QCOMPARE(options.ImmoColor(kind), CViewOptions::DefaultImmoColor(kind));
        colours.push_back(options.ImmoColor(kind));
    }
    std::sort(colours.begin(), colours.end());
    QVERIFY(std::adjacent_find(colours.begin(), colours.end()) == colours.end());
    QCOMPARE(options.BgColor(), CViewOptions::kDefaultBgColor);
    QVERIFY(options.GoodsVisible());
    QVERIFY(!options.TrackMarks());
    QVERIFY(!options.GleisId());
}

// A colour the user stored wins over the palette, also black, the colour of older versions;
// keys the user never stored keep the palette.
void SettingsTest::storedUserColoursWinOverThePalette() {
    settings.Put("Anlagen", "Track1Color", QStringLiteral("0"));
    settings.Put("Anlagen", "Immo5Color", QStringLiteral("255"));
    settings.Put("Anlagen", "BGColor", QStringLiteral("16777215"));
    COptions options;
    QCOMPARE(options.TrackColor(1), 0u);
    QCOMPARE(options.ImmoColor(5), 255u);
    QCOMPARE(options.BgColor(), 16777215u);
    QCOMPARE(options.TrackColor(2), CViewOptions::DefaultTrackColor(2));
    QCOMPARE(options.ImmoColor(4), CViewOptions::DefaultImmoColor(4));
    QCOMPARE(options.GoodsColor(), CViewOptions::kDefaultGoodsColor);
    // Saving the dialog stores the palette under the keys, so the user sees what is kept.
    options.Save();
    QCOMPARE(settings.Raw("Anlagen", "Track1Color"), std::string("0"));
    QCOMPARE(settings.Raw("Anlagen", "Track2Color"), std::to_string(CViewOptions::DefaultTrackColor(2)));
}

void SettingsTest::optionsRoundTripAndFlagTexts() {
    {
        COptions options;
        options.SetTrackColor(2, 0x00FF00);
        options.SetTrackVisible(3, false);
        options.SetImmoColor(5, 0x123456);
        options.SetImmoVisible(4, false);
        options.SetGoodsColor(0x0000FF);
        options.SetGoodsVisible(false);
        options.SetBgColor(0xEEEEEE);
        options.SetTrackMarks(true);
        options.Save();
    }
    QCOMPARE(settings.Raw("Anlagen", "Track2Color"), std::string("65280"));
    QCOMPARE(settings.Raw("Anlagen", "Track3Visible"), std::string("0"));
    QCOMPARE(settings.Raw("Anlagen", "Track1Visible"), std::string("1"));
    QCOMPARE(settings.Raw("Anlagen", "Immo4Visible"), std::string("0"));
    QCOMPARE(settings.Raw("Anlagen", "BGColor"), std::string("15658734"));
    QCOMPARE(settings.Raw("Anlagen", "TrackMarks"), std::string("1"));
    QCOMPARE(settings.Raw("Anlagen", "Immo3Color"), std::string("(fehlt)"));
    QCOMPARE(settings.Raw("Anlagen", "Track5Color"), std::string("(fehlt)"));
    COptions reread;
    QCOMPARE(reread.TrackColor(2), 0x00FF00u);
    QVERIFY(!reread.TrackVisible(3));
    QVERIFY(reread.TrackVisible(4));
    QCOMPARE(reread.ImmoColor(5), 0x123456u);
    QVERIFY(!reread.ImmoVisible(4));
    QVERIFY(reread.ImmoVisible(5));
    QCOMPARE(reread.GoodsColor(), 0x0000FFu);
    QVERIFY(!reread.GoodsVisible());
    QCOMPARE(reread.BgColor(), 0xEEEEEEu);
    QVERIFY(reread.TrackMarks());
}

void SettingsTest::optionsFallBackOnGarbage() {
    settings.Put("Anlagen", "BGColor", QStringLiteral("weiss"));
    settings.Put("Anlagen", "Track1Color", QStringLiteral("-5"));
    settings.Put("Anlagen", "Track2Color", QStringLiteral("16777216"));
    settings.Put("Anlagen", "GoodsColor", QStringLiteral("255"));
    settings.Put("Anlagen", "Track1Visible", QStringLiteral("nein"));
    settings.Put("Anlagen", "Track2Visible", QStringLiteral("0"));
    settings.Put("Anlagen", "TrackMarks", QStringLiteral("vielleicht"));
    COptions options;
    QCOMPARE(options.BgColor(), CViewOptions::kDefaultBgColor);
    QCOMPARE(options.TrackColor(1), CViewOptions::DefaultTrackColor(1));
    QCOMPARE(options.TrackColor(2), CViewOptions::DefaultTrackColor(2));
    QCOMPARE(options.GoodsColor(), 255u);
    QVERIFY(options.TrackVisible(1)); // every text but "0" means visible
    QVERIFY(!options.TrackVisible(2));
    QVERIFY(!options.TrackMarks());
}

void SettingsTest::optionsIndexOutsideRangeIsReported() {
    test::QtPort port;
    COptions options;
    QCOMPARE(options.TrackColor(5), 0u);
    QVERIFY(!options.TrackVisible(0));
    options.SetImmoColor(3, 0x111111);
    QVERIFY(!options.ImmoVisible(6));
    QCOMPARE(port.errors.size(), size_t(4));
    QVERIFY(port.errors[0].find("Prozedur: COptions.TrackColor") != std::string::npos);
    QVERIFY(port.errors[0].find("Fehler 9") != std::string::npos);
    QVERIFY(port.errors[2].find("COptions.ImmoColor") != std::string::npos);
}

void SettingsTest::windowStartsWithDefaultsAndTakesSingleKeys() {
    test::QtPort port;
    QSize defaultSize;
    QPoint defaultPos;
    {
        FMain window(port.ui);
        defaultSize = window.size();
        defaultPos = window.pos();
        QVERIFY(!window.isMaximized());
        QVERIFY(window.Anlagen().empty());
    }
    settings.Put("MainWindow", "x", QStringLiteral("40"));
    {
        FMain window(port.ui);
        QCOMPARE(window.pos().x(), 40);
        QCOMPARE(window.pos().y(), defaultPos.y());
        QCOMPARE(window.size(), defaultSize);
    }
    settings.Put("MainWindow", "h", QStringLiteral("400"));
    settings.Put("MainWindow", "y", QStringLiteral("Quatsch"));
    {
        FMain window(port.ui);
        QCOMPARE(window.pos(), QPoint(40, defaultPos.y()));
        QCOMPARE(window.size(), QSize(defaultSize.width(), 400));
    }
}

void SettingsTest::windowPositionRoundTrip() {
    test::QtPort port;
    {
        FMain window(port.ui);
        window.show();
        window.move(30, 20);
        window.resize(700, 500);
        QVERIFY(window.close());
    }
    QCOMPARE(settings.Raw("MainWindow", "Maximized"), std::string("0"));
    QCOMPARE(settings.Raw("MainWindow", "w"), std::string("700"));
    QCOMPARE(settings.Raw("MainWindow", "h"), std::string("500"));
    FMain window(port.ui);
    QCOMPARE(window.pos(), QPoint(30, 20));
    QCOMPARE(window.size(), QSize(700, 500));
}

void SettingsTest::windowMaximisedStoresOnlyTheFlag() {
    test::QtPort port;
    {
        FMain window(port.ui);
        window.showMaximized();
        QVERIFY(window.close());
    }
    QCOMPARE(settings.Raw("MainWindow", "Maximized"), std::string("1"));
    QCOMPARE(settings.Raw("MainWindow", "x"), std::string("(fehlt)"));
    FMain window(port.ui);
    QVERIFY(window.windowState() & Qt::WindowMaximized);
}

void SettingsTest::windowOffAllScreensComesBack() {
    test::QtPort port;
    QPoint defaultPos;
    {
        FMain window(port.ui);
        defaultPos = window.pos();
    }
    settings.Put("MainWindow", "x", QStringLiteral("-30000"));
    settings.Put("MainWindow", "y", QStringLiteral("40000"));
    FMain window(port.ui);
    QCOMPARE(window.pos(), defaultPos);
}

void SettingsTest::layoutsDirectoryFollowsSettingOrResources() {
    test::QtPort port;
    Installation().noResourceDirectory = true;
    QCOMPARE(LayoutsDirectory(), std::string());
    Installation().noResourceDirectory = false;
    Installation().resourceDirectory = "/eep/Resourcen";
    QCOMPARE(LayoutsDirectory(), std::string("/eep/Resourcen/Anlagen"));
    CSettingsStore::Save("Settings", "PathAnlagen", "/home/ich/Anlagen");
    QCOMPARE(LayoutsDirectory(), std::string("/home/ich/Anlagen"));
    Installation() = EepInstallation();
}

void SettingsTest::secondInstanceIsRefused() {
    test::TempDir folder;
    QString path = QString::fromStdString(folder.Path().string());
    std::unique_ptr<QLockFile> first = AcquireInstanceLock(path);
    QVERIFY(first);
    QVERIFY(!AcquireInstanceLock(path));
    first.reset();
    QVERIFY(AcquireInstanceLock(path));
}

void SettingsTest::storeThatCannotBeWrittenIsReportedOnce() {
    test::QtPort port;
    // The store's folder would have to be made inside a file: no writing, not even as root.
    std::string blocker = files.File("keinOrdner");
    test::WriteFile(blocker, "x");
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(blocker + "/sub"));
    CSettingsStore::Save("MainWindow", "x", "10");
    CSettingsStore::Delete("MainWindow", "y");
    CMru mru;
    mru.Add(NewFile("a.anl3"));
    QCOMPARE(port.errors.size(), size_t(1));
    QVERIFY(port.errors[0].rfind(FormatMessage("Kavrin kann seine Einstellungen nicht speichern.%m"), 0) ==
            0);
    QVERIFY(port.errors[0].find("Fehler 75") != std::string::npos);
    QCOMPARE(mru.Item(1), files.File("a.anl3"));
}

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"
