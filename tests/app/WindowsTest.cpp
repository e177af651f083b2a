// The real windows, offscreen: opening layouts into document windows, the recent-file menus,
// the close question, save as, failed and cancelled loads, the parse-log window and the
// arrangement of the document windows.

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "../document/LayoutText.h"
#include "AppTestSupport.h"
#include "TestSupport.h"
#include "app/CMru.h"
#include "app/FAnlage.h"
#include "app/FMain.h"
#include "app/FParseLogWindow.h"
#include "app/modQtText.h"
#include "app/modShell.h"
#include "core/modTools.h"
#include "document/CAnlage.h"

using namespace kavrin;

namespace {

// Document windows keep absolute paths.
std::string Absolute(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).absoluteFilePath().toStdString();
}

const std::string kSample = Absolute(test::SamplePath("Demo-Linien.anl3"));
const std::string kOtherSample = Absolute(test::SamplePath("Lua-Testbeispiel.anl3"));

std::vector<QString> MruCaptions(QMenu* menu) {
    std::vector<QString> captions;
    for (QAction* action : menu->actions())
        if (action->objectName() == QLatin1String("mnuFileMru"))
            captions.push_back(action->text());
    return captions;
}

} // namespace

class WindowsTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void openShowsNameVersionAndGoesToTheRecentFiles();
    void recentFilesAppearInEveryWindowsMenu();
    void recentFileThatIsGoneIsReported();
    void failedLoadLeavesNoWindow();
    void closeQuestionYesKeepsTheWindowAndTheFile();
    void closeQuestionNoClosesWithoutSaving();
    void unchangedLayoutClosesWithoutQuestion();
    void mainWindowStaysWhileADocumentStaysOpen();
    void saveAsRefusesALayoutOpenElsewhere();
    void saveAsWritesTheNewFileAndRenamesTheWindow();
    void failedSaveKeepsNameAndChange();
    void waitCursorOverTheMainWindowOnly();
    void commandLineOpensEveryNamedLayout();
    void parseLogShowsHintsAndCopiesThem();
    void cancelStopsTheLoad();
    void cleanLoadLeavesNoParseLog();
    void arrangeChildren();
    void helpFilesThatAreMissingOrCannotBeShown();

private:
    std::string WriteLayout(const std::string& name, const std::string& text) {
        std::string path = folder->File(name);
        test::WriteFile(path, text);
        return path;
    }
    QAction* Action(QObject* owner, const char* name) { return owner->findChild<QAction*>(name); }
};

void WindowsTest::init() {
    QVERIFY(Start());
}

void WindowsTest::cleanup() {
    Stop();
}

void WindowsTest::openShowsNameVersionAndGoesToTheRecentFiles() {
    FAnlage* window = main->OpenFile(kSample);
    QVERIFY(window);
    QCOMPARE(main->Anlagen().size(), size_t(1));
    QCOMPARE(main->Anlagen()[0], window);
    QCOMPARE(window->FileName(), kSample);
    QCOMPARE(window->windowTitle(), QString("Demo-Linien.anl3[*]"));
    QVERIFY(!window->isWindowModified());
    auto* version = window->findChild<QLabel*>("lblVersion");
    QVERIFY(version->text().contains(QString::fromStdString(window->Anlage().Version().Text())));
    QVERIFY(!window->Anlage().Version().Text().empty());
    QCOMPARE(window->findChild<QLabel*>("lblStatus")->text(), QString("Höhenfilter: nicht aktiv"));
    QVERIFY(!window->Changed());
    QVERIFY(port->errors.empty());
    QCOMPARE(main->Mru().Item(1), kSample);
    QCOMPARE(settings->Raw("Settings", "MruFile1"), kSample);
    // The active document's menus are in the main window's menu bar.
    QCOMPARE(main->ActiveAnlage(), window);
    QVERIFY(main->menuBar()->actions().contains(window->FileMenu()->menuAction()));
}

void WindowsTest::recentFilesAppearInEveryWindowsMenu() {
    FAnlage* first = main->OpenFile(kSample);
    FAnlage* second = main->OpenFile(kOtherSample);
    QVERIFY(first && second);
    const std::vector<QString> expected{ToQt(FormatMessage("&%1 %2", 1, kOtherSample)),
                                        ToQt(FormatMessage("&%1 %2", 2, kSample))};
    QCOMPARE(MruCaptions(first->FileMenu()), expected);
    QCOMPARE(MruCaptions(second->FileMenu()), expected);
    QCOMPARE(MruCaptions(main->findChild<QMenu*>("mnuFile")), expected);
    // Opening the same layout again brings its window to the front instead of a second one, and
    // moves it up everywhere, once.
    FAnlage* third = main->OpenFile(kSample);
    QCOMPARE(third, first);
    QCOMPARE(main->ActiveAnlage(), first);
    QCOMPARE(main->Anlagen().size(), size_t(2));
    const std::vector<QString> moved{ToQt(FormatMessage("&%1 %2", 1, kSample)),
                                     ToQt(FormatMessage("&%1 %2", 2, kOtherSample))};
    QCOMPARE(MruCaptions(first->FileMenu()), moved);
    QCOMPARE(MruCaptions(third->FileMenu()), moved);
    // Choosing an entry of a layout that is open brings that window to the front.
    for (QAction* action : first->FileMenu()->actions())
        if (action->objectName() == QLatin1String("mnuFileMru") && action->data().toInt() == 2) {
            action->trigger();
            break;
        }
    QCOMPARE(main->Anlagen().size(), size_t(2));
    QCOMPARE(main->ActiveAnlage(), second);
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Lua-Testbeispiel.anl3"));
}

void WindowsTest::recentFileThatIsGoneIsReported() {
    std::string path = WriteLayout("Weg.anl3", test::LayoutText());
    FAnlage* window = main->OpenFile(path);
    QVERIFY(window);
    QVERIFY(window->SubWindow()->close());
    std::filesystem::remove(path);
    main->OpenMru(1);
    QCOMPARE(port->errors.size(), size_t(1));
    QCOMPARE(port->errors[0], FormatMessage("Sorry,%naber ich kann die Datei%m%1%mnicht finden...", path));
    QCOMPARE(main->Mru().Item(1), path); // the list stays as it was
    main->OpenMru(7);
    QCOMPARE(port->errors.back(), FormatMessage("Sorry,%naber ich kann die Datei%m%1%mnicht finden...", ""));
}

void WindowsTest::failedLoadLeavesNoWindow() {
    FAnlage* kept = main->OpenFile(kSample);
    QVERIFY(kept);
    std::string notXml = WriteLayout("Kaputt.anl3", "Das ist keine Anlage <<<");
    std::string noTerrain = WriteLayout("OhneLandschaft.anl3", test::LayoutText("", "<Leer/>"));
    for (const std::string& path : {notXml, noTerrain, folder->File("GibtEsNicht.anl3")}) {
        port->errors.clear();
        QVERIFY(!main->OpenFile(path));
        QCOMPARE(port->errors.size(), size_t(1));
        QCOMPARE(main->Anlagen().size(), size_t(1));
        QCOMPARE(main->MdiArea()->subWindowList().size(), qsizetype(1));
        QCOMPARE(main->Mru().Count(), 1);
    }
    QCOMPARE(main->Anlagen()[0], kept);
    QVERIFY(port->errors.back().find("existiert nicht") != std::string::npos);
    QCOMPARE(test::ReadFile(notXml), std::string("Das ist keine Anlage <<<"));
}

void WindowsTest::closeQuestionYesKeepsTheWindowAndTheFile() {
    std::string path = WriteLayout("Geaendert.anl3", test::LayoutText());
    const std::string before = test::ReadFile(path);
    FAnlage* window = main->OpenFile(path);
    QVERIFY(window);
    window->SetChanged(true);
    QVERIFY(window->isWindowModified()); // the title shows a star
    port->answer = true;
    QVERIFY(!window->SubWindow()->close());
    QCOMPARE(port->questions.size(), size_t(1));
    QCOMPARE(port->questions[0], FormatMessage("Änderungen an der Anlage%n%1%nsind noch nicht gespeichert "
                                               "worden!%mHaben Sie vor, Ihre Änderungen zu speichern?",
                                               path));
    QCOMPARE(main->Anlagen().size(), size_t(1));
    QVERIFY(window->Changed());
    QVERIFY(window->Anlage().RootNode());
    QCOMPARE(test::ReadFile(path), before);
}

void WindowsTest::closeQuestionNoClosesWithoutSaving() {
    std::string path = WriteLayout("Geaendert.anl3", test::LayoutText());
    const std::string before = test::ReadFile(path);
    FAnlage* window = main->OpenFile(path);
    QVERIFY(window);
    window->SetChanged(true);
    port->answer = false;
    QVERIFY(window->SubWindow()->close());
    QCOMPARE(port->questions.size(), size_t(1));
    QVERIFY(main->Anlagen().empty());
    QTRY_VERIFY(main->MdiArea()->subWindowList().isEmpty());
    QCOMPARE(test::ReadFile(path), before);
}

void WindowsTest::unchangedLayoutClosesWithoutQuestion() {
    QVERIFY(main->OpenFile(kSample));
    QVERIFY(main->OpenFile(kOtherSample));
    QAction* close = Action(main->Anlagen()[1], "mnuFileClose");
    QVERIFY(close);
    close->trigger();
    QCOMPARE(port->questions, std::vector<std::string>{});
    QCOMPARE(main->Anlagen().size(), size_t(1));
    QCOMPARE(main->Anlagen()[0]->FileName(), kSample);
}

void WindowsTest::mainWindowStaysWhileADocumentStaysOpen() {
    QVERIFY(main->OpenFile(kSample));
    FAnlage* changed = main->OpenFile(kOtherSample);
    changed->SetChanged(true);
    port->answer = true; // "yes, I intend to save": the document and the program stay
    QVERIFY(!main->close());
    QVERIFY(main->isVisible());
    QCOMPARE(main->Anlagen().size(), size_t(1));
    QCOMPARE(main->Anlagen()[0], changed);
    QCOMPARE(settings->Raw("MainWindow", "Maximized"), std::string("(fehlt)"));
    port->answer = false;
    QVERIFY(main->close());
    QVERIFY(main->Anlagen().empty());
    QCOMPARE(settings->Raw("MainWindow", "Maximized"), std::string("0"));
}

void WindowsTest::saveAsRefusesALayoutOpenElsewhere() {
    std::string first = WriteLayout("Erste.anl3", test::LayoutText());
    std::string second = WriteLayout("Zweite.anl3", test::LayoutText("<Extra a=\"1\"/>"));
    const std::string firstBefore = test::ReadFile(first);
    QVERIFY(main->OpenFile(first));
    FAnlage* other = main->OpenFile(second);
    QVERIFY(other);
    QVERIFY(!other->SaveAs(first));
    QCOMPARE(port->errors.size(), size_t(1));
    QCOMPARE(port->errors[0],
             FormatMessage(
                 "Sorry, aber die Anlage%n%1%nwird gerade von %2 bearbeitet!%mSie kann deshalb nicht mit "
                 ">Anlage speichern unter...< überschrieben werden!",
                 first, "Kavrin"));
    QCOMPARE(test::ReadFile(first), firstBefore);
    QCOMPARE(other->FileName(), second);
}

void WindowsTest::saveAsWritesTheNewFileAndRenamesTheWindow() {
    std::string path = WriteLayout("Alt.anl3", test::LayoutText());
    FAnlage* window = main->OpenFile(path);
    QVERIFY(window);
    window->SetChanged(true);
    std::string copy = folder->File("Neu.anl3");
    QVERIFY(window->SaveAs(copy)); // its own file is no obstacle either
    QVERIFY(port->errors.empty());
    QVERIFY(!window->Changed());
    QCOMPARE(window->FileName(), copy);
    QCOMPARE(window->windowTitle(), QString("Neu.anl3[*]"));
    QVERIFY(!window->isWindowModified());
    QCOMPARE(main->Mru().Item(1), copy);
    CAnlage reread;
    QVERIFY(reread.Load(copy));
    QVERIFY(window->SaveAs(copy));
}

void WindowsTest::failedSaveKeepsNameAndChange() {
    std::string path = WriteLayout("Bleibt.anl3", test::LayoutText());
    FAnlage* window = main->OpenFile(path);
    QVERIFY(window);
    window->SetChanged(true);
    QVERIFY(!window->SaveAs(folder->File("fehlt/Neu.anl3")));
    QCOMPARE(port->errors.size(), size_t(1));
    QVERIFY(port->errors[0].rfind(FormatMessage("Die Anlage wurde NICHT gespeichert!!%m"), 0) == 0);
    QCOMPARE(window->FileName(), path);
    QVERIFY(window->Changed());
    QVERIFY(window->isWindowModified());
    QCOMPARE(main->Mru().Item(1), path);
    QCOMPARE(main->Mru().Count(), 1);
}

void WindowsTest::waitCursorOverTheMainWindowOnly() {
    bool checked = false;
    CQtUserInterface::Hooks hooks = port->hooks;
    hooks.eventRound = [&](long) {
        if (checked)
            return;
        checked = true;
        QCOMPARE(main->cursor().shape(), Qt::WaitCursor);
        QVERIFY(!QApplication::overrideCursor());
    };
    port->ui.SetHooks(hooks);
    QVERIFY(main->OpenFile(kSample));
    QVERIFY(checked);
    QCOMPARE(main->cursor().shape(), Qt::ArrowCursor);
    // Nested calls keep the hourglass until the outermost one ends.
    port->ui.SetWaitCursor(true);
    port->ui.SetWaitCursor(true);
    port->ui.SetWaitCursor(false);
    QCOMPARE(main->cursor().shape(), Qt::WaitCursor);
    port->ui.SetWaitCursor(false);
    port->ui.SetWaitCursor(false);
    QCOMPARE(main->cursor().shape(), Qt::ArrowCursor);
}

void WindowsTest::commandLineOpensEveryNamedLayout() {
    std::string spaced = WriteLayout("Mit Leerzeichen.anl3", test::LayoutText());
    std::string plain = WriteLayout("Ohne.anl3", test::LayoutText());
    main->ProcessParams("  \"" + spaced + "\" " + plain + " " + folder->File("Fehlt.anl3") + "  ");
    QCOMPARE(main->Anlagen().size(), size_t(2));
    QCOMPARE(main->Anlagen()[0]->FileName(), spaced);
    QCOMPARE(main->Anlagen()[1]->FileName(), plain);
    QCOMPARE(port->errors.size(), size_t(1)); // the missing one
    main->ProcessParams("\"" + spaced + " " + plain);
    QCOMPARE(main->Anlagen().size(), size_t(2));
}

void WindowsTest::parseLogShowsHintsAndCopiesThem() {
    // A layout without a camera collection loads with a hint.
    std::string text = test::LayoutText();
    text.erase(text.find("<Kammerasammlung/>"), std::string("<Kammerasammlung/>").size());
    std::string path = WriteLayout("Hinweise.anl3", text);
    QVERIFY(main->OpenFile(path));
    FParseLogWindow* log = port->ui.ParseLogWindow();
    QVERIFY(log);
    QVERIFY(log->isVisible());
    QVERIFY(log->Finished());
    QVERIFY(log->LogText().contains(ToQt(FormatMessage("Der Abschnitt mit den Kameras fehlt."))));
    QVERIFY(log->LogText().contains(QString(30, '=')));
    QVERIFY(!log->LogText().endsWith('\n'));
    QVERIFY(log->findChild<QLabel*>("lblHinweis")->isVisible());
    QCOMPARE(log->findChild<QLineEdit*>("txtFile")->text(), QString::fromStdString(path));
    QVERIFY(!log->findChild<QPushButton*>("cmdCancel")->isEnabled());
    auto* copy = log->findChild<QPushButton*>("cmdClipbrd");
    QVERIFY(copy->isEnabled());
    QTest::mouseClick(copy, Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(), QString::fromStdString(port->ui.ParseLog().ClipboardText()));
    QVERIFY(QApplication::clipboard()->text().startsWith(
        "Kavrin gibt folgende Hinweise beim Laden der EEP-Anlage"));
    // The next load gets a window of its own; this one stays with its hints until OK.
    QVERIFY(main->OpenFile(kSample));
    QVERIFY(log->isVisible());
    QTest::mouseClick(log->findChild<QPushButton*>("cmdOk"), Qt::LeftButton);
    QTRY_VERIFY(!log->isVisible());
}

void WindowsTest::cancelStopsTheLoad() {
    QVERIFY(main->OpenFile(kOtherSample));
    port->ui.SetShowDelay(0);
    // The user presses the parse log's cancel button while the layout loads, and confirms.
    bool clicked = false;
    CQtUserInterface::Hooks hooks = port->hooks;
    hooks.errorBox = [this](const std::string& text) { port->errors.push_back(text); };
    hooks.ask = [this](const std::string& text) {
        port->questions.push_back(text);
        return true;
    };
    hooks.eventRound = [&](long round) {
        if (round != 20 || clicked)
            return;
        clicked = true;
        FParseLogWindow* log = port->ui.ParseLogWindow();
        QVERIFY(log && log->isVisible());
        QTest::mouseClick(log->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    };
    port->ui.SetHooks(hooks);
    QVERIFY(!main->OpenFile(kSample));
    QVERIFY(clicked);
    QCOMPARE(port->questions,
             std::vector<std::string>{FormatMessage("Einlesen der Anlage wirklich abbrechen?")});
    QCOMPARE(main->Anlagen().size(), size_t(1));
    QCOMPARE(main->Anlagen()[0]->FileName(), kOtherSample);
    QCOMPARE(main->Mru().Item(1), kOtherSample);
    FParseLogWindow* log = port->ui.ParseLogWindow();
    QVERIFY(log && log->Finished());
    QVERIFY(log->LogText().contains(ToQt(FormatMessage("Sie haben das Einlesen der Anlage abgebrochen!"))));
    QVERIFY(log->findChild<QPushButton*>("cmdOk")->isEnabled());
}

// A layout without hints, not even about terrain maps (the samples lack theirs).
void WindowsTest::cleanLoadLeavesNoParseLog() {
    const std::string clean = WriteLayout(
        "Sauber.anl3",
        test::LayoutText(
            "", "<Schandlaft extX=\"75\" extY=\"75\" posX=\"-25000\" posY=\"-25000\" dichte=\"1.5E-03\"/>"));
    QVERIFY(main->OpenFile(clean));
    QVERIFY(!port->ui.ParseLogWindow());
    QVERIFY(main->findChildren<FParseLogWindow*>().isEmpty() ||
            !main->findChildren<FParseLogWindow*>().first()->isVisible());
}

void WindowsTest::arrangeChildren() {
    QVERIFY(main->OpenFile(kSample));
    QVERIFY(main->OpenFile(kOtherSample));
    QList<QMdiSubWindow*> subs = main->MdiArea()->subWindowList(QMdiArea::CreationOrder);
    QRect area = main->MdiArea()->viewport()->rect();
    // The first layout fills the frame; the next one lies over it, smaller and a step further in.
    QCOMPARE(subs[0]->geometry(), area);
    QVERIFY(subs[1]->geometry().width() < area.width() && subs[1]->geometry().left() > 0);
    main->ArrangeChildren(2); // side by side
    QCOMPARE(subs[0]->geometry(), QRect(0, 0, area.width() / 2, area.height()));
    QCOMPARE(subs[1]->geometry().left(), area.width() / 2);
    QCOMPARE(subs[1]->geometry().right(), area.right());
    main->ArrangeChildren(1); // one above the other
    QCOMPARE(subs[0]->geometry(), QRect(0, 0, area.width(), area.height() / 2));
    QCOMPARE(subs[1]->geometry().bottom(), area.bottom());
    main->ArrangeChildren(7); // no such arrangement: nothing moves
    QCOMPARE(subs[0]->geometry(), QRect(0, 0, area.width(), area.height() / 2));
    main->ArrangeChildren(4);
    QVERIFY(subs[0]->isMinimized() && subs[1]->isMinimized());
    main->ArrangeChildren(3);
    QVERIFY(subs[0]->geometry().bottom() <= area.bottom());
    QVERIFY(!subs[0]->geometry().intersects(subs[1]->geometry()));
    main->ArrangeChildren(0);
    QCOMPARE(main->Anlagen().size(), size_t(2));
}

void WindowsTest::helpFilesThatAreMissingOrCannotBeShown() {
    std::string directory = QCoreApplication::applicationDirPath().toStdString();
    main->ShowFile("GibtEsNicht.pdf");
    QCOMPARE(port->errors.back(), FormatMessage("Sorry,%naber ich kann die Datei%m%1%mnicht finden...",
                                                directory + "/GibtEsNicht.pdf"));
    // A file that is there goes to the shell; its failure is reported in the shell's terms.
    std::string name = "kavrin-hilfe-" + std::to_string(QCoreApplication::applicationPid()) + ".xyz";
    std::string path = directory + "/" + name;
    test::WriteFile(path, "Hilfe");
    std::vector<std::string> opened;
    SetShellOpenHandler([&](const std::string& file) {
        opened.push_back(file);
        return opened.size() == 1 ? 42 : 31;
    });
    size_t errors = port->errors.size();
    main->ShowFile(name);
    QCOMPARE(port->errors.size(), errors);
    main->ShowFile(name);
    SetShellOpenHandler(nullptr);
    std::filesystem::remove(path);
    QCOMPARE(opened, (std::vector<std::string>{path, path}));
    QCOMPARE(port->errors.back(), ShellOpenErrorText(path, 31));
}

QTEST_MAIN(WindowsTest)
#include "WindowsTest.moc"
