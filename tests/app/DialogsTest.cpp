// The modal windows, driven through the menus as a user would: the open and save dialogs, the
// view options, the settings and the About window; and what a document window shows while it
// loads, repairs and closes.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "../document/LayoutText.h"
#include "AppTestSupport.h"
#include "TestSupport.h"
#include "app/COptions.h"
#include "app/FAbout.h"
#include "app/FAnlage.h"
#include "app/FMain.h"
#include "app/FOptSettings.h"
#include "app/FOptView.h"
#include "app/FParseLogWindow.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"

using namespace kavrin;

namespace {

// What the user types into the dialog's name field.
void TypeFileName(QFileDialog* dialog, const std::string& name) {
    auto* edit = dialog->findChild<QLineEdit*>("fileNameEdit");
    QVERIFY(edit);
    edit->setText(QString::fromStdString(name));
}

QString Absolute(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).absoluteFilePath();
}

} // namespace

class DialogsTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void menusCarryTheirNames();
    void openDialogStartsInTheLayoutsFolder();
    void saveAsDialogOffersOneFilterAndAddsTheExtension();
    void viewOptionsAreSavedOrLeftAlone();
    void settingsDialogChecksTheFolder();
    void aboutShowsNameAndVersion();
    void statusWhileLoadingAndClosing();
    void repairedLayoutOpensChanged();
    void closingTheParseLogWhileLoadingCancels();

private:
    void Trigger(const char* name) { main->findChild<QAction*>(name)->trigger(); }
};

void DialogsTest::init() {
    QVERIFY(Start());
}

void DialogsTest::cleanup() {
    Stop();
}

void DialogsTest::menusCarryTheirNames() {
    for (const char* name :
         {"mnuFileOpen", "mnuFileQuit", "mnuOptionView", "mnuOptionSettings", "mnuHelpHandbook",
          "mnuHelpWhatsNew", "mnuHelpInfo", "mnuWindowCascade", "mnuWindowTileHorizontal",
          "mnuWindowTileVertical", "mnuWindowArrangeIcons", "mnuWindowMinimizeAll", "mnuFileMruSep"})
        QVERIFY2(main->findChild<QObject*>(name), name);
    FAnlage* window = main->OpenFile(test::SamplePath("Demo-Linien.anl3"));
    QVERIFY(window);
    for (const char* name : {"mnuFileSave", "mnuFileSaveAs", "mnuFileClose", "mnuFileMruSep", "mnuFileMru"})
        QVERIFY2(window->FileMenu()->findChild<QObject*>(name), name);
    // Open and quit are the main window's own commands, in every file menu.
    QVERIFY(window->FileMenu()->actions().contains(main->findChild<QAction*>("mnuFileOpen")));
    QVERIFY(window->FileMenu()->actions().contains(main->findChild<QAction*>("mnuFileQuit")));
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Demo-Linien.anl3"));
}

void DialogsTest::openDialogStartsInTheLayoutsFolder() {
    std::string layout = folder->File("Gefunden.anl3");
    test::WriteFile(layout, test::LayoutText());
    settings->Put("Settings", "PathAnlagen", QString::fromStdString(folder->Path().string()));
    bool seen = test::WithModal<QFileDialog>(
        [this] { Trigger("mnuFileOpen"); },
        [&](QFileDialog* dialog) {
            QCOMPARE(dialog->windowTitle(), QString("Anlagendatei auswählen"));
            QCOMPARE(dialog->nameFilters(), QStringList({"EEP Anlagen (*.anl3)", "Alle Dateien (*.*)"}));
            QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
            QCOMPARE(dialog->directory().absolutePath(), Absolute(folder->Path().string()));
            TypeFileName(dialog, layout);
            static_cast<QDialog*>(dialog)->accept();
        });
    QVERIFY(seen);
    QCOMPARE(main->Anlagen().size(), size_t(1));
    QCOMPARE(QString::fromStdString(main->Anlagen()[0]->FileName()), Absolute(layout));
    // Cancelling opens nothing.
    QVERIFY(test::WithModal<QFileDialog>([this] { Trigger("mnuFileOpen"); }, [](QFileDialog*) {}));
    QCOMPARE(main->Anlagen().size(), size_t(1));
}

void DialogsTest::saveAsDialogOffersOneFilterAndAddsTheExtension() {
    std::string layout = folder->File("Quelle.anl3");
    test::WriteFile(layout, test::LayoutText());
    FAnlage* window = main->OpenFile(layout);
    QVERIFY(window);
    bool seen = test::WithModal<QFileDialog>(
        [&] { window->FileMenu()->findChild<QAction*>("mnuFileSaveAs")->trigger(); },
        [&](QFileDialog* dialog) {
            QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(dialog->nameFilters(), QStringList({"EEP Anlagen (*.anl3)"}));
            QCOMPARE(dialog->defaultSuffix(), QString("anl3"));
            QCOMPARE(dialog->directory().absolutePath(), Absolute(folder->Path().string()));
            TypeFileName(dialog, "Kopie");
            static_cast<QDialog*>(dialog)->accept();
        });
    QVERIFY(seen);
    QVERIFY(port->errors.empty());
    QCOMPARE(QString::fromStdString(window->FileName()), Absolute(folder->File("Kopie.anl3")));
    QVERIFY(FileExists(folder->File("Kopie.anl3")));
}

void DialogsTest::viewOptionsAreSavedOrLeftAlone() {
    FAnlage* window = main->OpenFile(test::SamplePath("Demo-Linien.anl3"));
    QVERIFY(window);
    QVERIFY(test::WithModal<FOptView>(
        [this] { Trigger("mnuOptionView"); },
        [](FOptView* dialog) { dialog->findChild<QCheckBox*>("chkTrack1Visible")->setChecked(false); }));
    QCOMPARE(settings->Raw("Anlagen", "Track1Visible"), std::string("(fehlt)"));
    QVERIFY(main->Options().TrackVisible(1));

    QVERIFY(
        test::WithModal<FOptView>([this] { Trigger("mnuOptionView"); },
                                  [](FOptView* dialog) {
                                      dialog->findChild<QCheckBox*>("chkTrack1Visible")->setChecked(false);
                                      dialog->findChild<QCheckBox*>("chkImmo5Visible")->setChecked(false);
                                      dialog->findChild<QCheckBox*>("chkTrackMarks")->setChecked(true);
                                      dialog->findChild<QCheckBox*>("chkGleisId")->setChecked(true);
                                      dialog->accept();
                                  }));
    QVERIFY(!main->Options().TrackVisible(1));
    QVERIFY(!main->Options().ImmoVisible(5));
    QVERIFY(main->Options().TrackMarks());
    QVERIFY(main->Options().GleisId());
    QCOMPARE(settings->Raw("Anlagen", "Track1Visible"), std::string("0"));
    QCOMPARE(settings->Raw("Anlagen", "Immo5Visible"), std::string("0"));
    QCOMPARE(settings->Raw("Anlagen", "TrackMarks"), std::string("1"));
    // Saving writes every key of the section, also the untouched ones.
    for (const char* key :
         {"Track4Color", "Track2Visible", "Immo4Color", "GoodsColor", "GoodsVisible", "BGColor"})
        QVERIFY2(settings->Raw("Anlagen", key) != "(fehlt)", key);
    QCOMPARE(settings->Raw("Anlagen", "BGColor"), std::to_string(CViewOptions::kDefaultBgColor));
    // The plan takes the background colour of the options.
    main->Options().SetBgColor(0x00FFFF);
    main->RepaintAnlagen();
    QCOMPARE(window->findChild<QWidget*>("picPlan")->palette().color(QPalette::Window), QColor(255, 255, 0));
}

void DialogsTest::settingsDialogChecksTheFolder() {
    std::string missing = folder->File("GibtEsNicht");
    QVERIFY(test::WithModal<FOptSettings>([this] { Trigger("mnuOptionSettings"); },
                                          [&](FOptSettings* dialog) {
                                              QCOMPARE(test::MnemonicLabelsWithoutBuddy(*dialog),
                                                       QStringList());
                                              auto* path = dialog->findChild<QLineEdit*>("txtPathAnlagen");
                                              path->setText(QString::fromStdString(missing));
                                              dialog->accept();
                                              QVERIFY(dialog->isVisible()); // refused: the dialog stays
                                              path->setText(QString::fromStdString(folder->Path().string()));
                                              dialog->accept();
                                          }));
    QCOMPARE(port->errors,
             std::vector<std::string>{FormatMessage("Das Verzeichnis%n%1%ngibt es nicht.", missing)});
    QCOMPARE(settings->Raw("Settings", "PathAnlagen"), folder->Path().string());
    // An empty folder hands the choice back to the simulator's layouts.
    QVERIFY(test::WithModal<FOptSettings>(
        [this] { Trigger("mnuOptionSettings"); },
        [&](FOptSettings* dialog) {
            QCOMPARE(dialog->findChild<QLineEdit*>("txtPathAnlagen")->text().toStdString(),
                     folder->Path().string());
            dialog->findChild<QLineEdit*>("txtPathAnlagen")->clear();
            dialog->accept();
        }));
    QCOMPARE(settings->Raw("Settings", "PathAnlagen"), std::string("(fehlt)"));
}

void DialogsTest::aboutShowsNameAndVersion() {
    QVERIFY(test::WithModal<FAbout>(
        [this] { Trigger("mnuHelpInfo"); },
        [](FAbout* about) {
            QCOMPARE(about->findChild<QLabel*>("lblName")->text(), QString("Kavrin"));
            QVERIFY(about->findChild<QLabel*>("lblVersion")->text().contains(KAVRIN_VERSION));
            QCOMPARE(about->parentWidget()->window()->objectName(), QString("FMain"));
        }));
}

void DialogsTest::statusWhileLoadingAndClosing() {
    QStringList seen;
    CQtUserInterface::Hooks hooks = port->hooks;
    hooks.eventRound = [&](long) {
        for (QLabel* label : main->findChildren<QLabel*>("lblStatus"))
            if (!seen.contains(label->text()))
                seen << label->text();
    };
    port->ui.SetHooks(hooks);
    FAnlage* window = main->OpenFile(test::SamplePath("Demo-Linien.anl3"));
    QVERIFY(window);
    QCOMPARE(seen, QStringList({"wird aufgebaut ..."}));
    QPointer<QLabel> status = window->findChild<QLabel*>("lblStatus");
    QCOMPARE(status->text(), QString("Höhenfilter: nicht aktiv"));
    QVERIFY(window->SubWindow()->close());
    QCOMPARE(status->text(), QString("wird abgebaut ..."));
    QVERIFY(window->Anlage().RootNode() == nullptr);
    QTRY_VERIFY(!status);
}

void DialogsTest::repairedLayoutOpensChanged() {
    std::string collections;
    for (int id : {1, 2, 3, 0, 4, 5})
        collections += "<Gebaeudesammlung GebaudesammlungID=\"" + std::to_string(id) + "\"/>";
    std::string path = folder->File("Planfuger.anl3");
    test::WriteFile(path, test::LayoutText(collections));
    const std::string before = test::ReadFile(path);
    FAnlage* window = main->OpenFile(path);
    QVERIFY(window);
    QCOMPARE(port->errors.size(), size_t(1));
    QVERIFY(port->errors[0].find("'KurzAnleitung.pdf' im Kapitel 'Öffnen einer Anlage'") !=
            std::string::npos);
    QVERIFY(window->Changed());
    QVERIFY(window->isWindowModified());
    QCOMPARE(test::ReadFile(path), before);
    // Closing asks, since the repair is a change that is not on disk yet.
    port->answer = false;
    QVERIFY(window->SubWindow()->close());
    QCOMPARE(port->questions.size(), size_t(1));
}

void DialogsTest::closingTheParseLogWhileLoadingCancels() {
    port->ui.SetShowDelay(0);
    port->answer = true;
    bool closed = false;
    CQtUserInterface::Hooks hooks = port->hooks;
    hooks.ask = [this](const std::string& text) {
        port->questions.push_back(text);
        return port->answer;
    };
    hooks.eventRound = [&](long round) {
        if (round == 10 && !closed) {
            closed = true;
            QVERIFY(!port->ui.ParseLogWindow()->close()); // the window stays to show what happened
        }
    };
    port->ui.SetHooks(hooks);
    QVERIFY(!main->OpenFile(test::SamplePath("Demo-Linien.anl3")));
    QVERIFY(closed);
    QCOMPARE(port->questions, std::vector<std::string>{"Einlesen der Anlage wirklich abbrechen?"});
    QVERIFY(main->Anlagen().empty());
    QVERIFY(port->ui.ParseLogWindow()->isVisible());
    QVERIFY(port->ui.ParseLogWindow()->close()); // after the load it simply closes
}

QTEST_MAIN(DialogsTest)
#include "DialogsTest.moc"
