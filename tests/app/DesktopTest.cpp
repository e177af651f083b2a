// Desktop conventions of the main window, offscreen: the title, a new layout in front with the
// focus, opening an open layout again, the keyboard commands, dropped files, a second start
// handing its files over (a second process), the start-up question's "Nicht mehr fragen" and
// the help windows.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLockFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QProcess>
#include <QTest>
#include <QUrl>
#include <atomic>
#include <thread>

#include "AppTestSupport.h"
#include "TestSupport.h"
#include "app/CInstanceChannel.h"
#include "app/CPlanWidget.h"
#include "app/CSettingsStore.h"
#include "app/FAnlage.h"
#include "app/FHelpText.h"
#include "app/FMain.h"
#include "app/FOptSettings.h"
#include "app/FSearch.h"
#include "app/modMain.h"
#include "app/modRegApi.h"
#include "app/modShell.h"
#include "core/modTools.h"

using namespace kavrin;

namespace {
std::string Absolute(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).absoluteFilePath().toStdString();
}
const std::string kSample = Absolute(test::SamplePath("Demo-Linien.anl3"));
const std::string kOtherSample = Absolute(test::SamplePath("Lua-Testbeispiel.anl3"));

// A help file put beside the test program for one test, and taken away again.
class HelpFile {
public:
    HelpFile(const std::string& name, const std::string& text)
        : path_(QDir(QCoreApplication::applicationDirPath())
                    .filePath(QString::fromStdString(name))
                    .toStdString()) {
        test::WriteFile(path_, text);
    }
    ~HelpFile() { QFile::remove(QString::fromStdString(path_)); }

private:
    std::string path_;
};
} // namespace

class DesktopTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() {
        SetShellOpenHandler({});
        Stop();
    }
    void newLayoutComesToTheFrontAndNamesTheMainWindow();
    void titleFollowsChangesSaveAsAndMaximisedWindows();
    void openingAnOpenLayoutActivatesIt();
    void keyboardCommands();
    void droppedLayoutsAreOpened();
    void secondStartHandsItsFilesOver();
    void handOverWithoutAListenerFails();
    void resourceQuestionCanBeSwitchedOff();
    void whatsNewIsShownInsideKavrin();
    void guideFallsBackToHtmlWithoutAPdfViewer();

private:
    std::string CopyOfSample(const std::string& name) {
        std::string path = folder->File(name);
        test::WriteFile(path, test::ReadFile(kSample));
        return path;
    }
};

void DesktopTest::newLayoutComesToTheFrontAndNamesTheMainWindow() {
    QCOMPARE(main->ShownTitle(), QString("Kavrin"));
    main->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.get()));
    FAnlage* first = main->OpenFile(kSample);
    FAnlage* second = main->OpenFile(kOtherSample);
    QVERIFY(first && second);
    QCOMPARE(main->ActiveAnlage(), second);
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Lua-Testbeispiel.anl3"));
    // The plan has the keys in the main window; the parse log may stand in front of it with the
    // hints of the load (the samples lack their terrain bitmaps).
    QTRY_COMPARE(main->focusWidget(), static_cast<QWidget*>(second->Plan()));
    // Closing it hands the front to the other one.
    QVERIFY(second->SubWindow()->close());
    QTRY_COMPARE(main->ActiveAnlage(), first);
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Demo-Linien.anl3"));
}

void DesktopTest::titleFollowsChangesSaveAsAndMaximisedWindows() {
    FAnlage* window = main->OpenFile(CopyOfSample("Alt.anl3"));
    QVERIFY(window);
    window->SetChanged(true);
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Alt.anl3*"));
    // A maximised document window does not add its own title a second time.
    window->SubWindow()->showMaximized();
    QTest::qWait(20);
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Alt.anl3*"));
    QVERIFY(window->SaveAs(folder->File("Neu.anl3")));
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Neu.anl3"));
    window->SubWindow()->showNormal();
    QCOMPARE(main->ShownTitle(), QString("Kavrin - Neu.anl3"));
    QVERIFY(window->SubWindow()->close());
    QCOMPARE(main->ShownTitle(), QString("Kavrin"));
}

// Menu, recent list and command line alike: one window per layout.
void DesktopTest::openingAnOpenLayoutActivatesIt() {
    main->ProcessParams("\"" + kSample + "\" \"" + kOtherSample + "\" \"" + kSample + "\"");
    QCOMPARE(main->Anlagen().size(), size_t(2));
    QCOMPARE(main->ActiveAnlage()->FileName(), kSample);
    main->OpenMru(2);
    QCOMPARE(main->Anlagen().size(), size_t(2));
    QCOMPARE(main->ActiveAnlage()->FileName(), kOtherSample);
    // The same file named another way is the same layout.
    std::string roundabout =
        QFileInfo(QString::fromStdString(kSample)).absolutePath().toStdString() + "/./../" +
        QDir(QFileInfo(QString::fromStdString(kSample)).absolutePath()).dirName().toStdString() +
        "/Demo-Linien.anl3";
    QCOMPARE(main->OpenFile(roundabout), main->Anlagen()[0]);
    QCOMPARE(main->Anlagen().size(), size_t(2));
    QVERIFY(port->errors.empty());
}

void DesktopTest::keyboardCommands() {
    // Shortcuts go to the active window; after a modal dialog the offscreen platform leaves
    // the activation to the program.
    auto activate = [this] {
        main->activateWindow();
        return QTest::qWaitForWindowActive(main.get());
    };
    QVERIFY(activate());
    FAnlage* window = main->OpenFile(CopyOfSample("Tasten.anl3"));
    QVERIFY(window);
    QWidget* focus = window->Plan();
    window->SetChanged(true);
    QTest::keyClick(focus, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!window->Changed());
    QVERIFY(test::WithModal<QFileDialog>(
        [&] { QTest::keyClick(focus, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier); },
        [](QFileDialog* dialog) { QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave); }));
    QVERIFY(activate());
    QVERIFY(test::WithModal<QFileDialog>(
        [&] { QTest::keyClick(focus, Qt::Key_O, Qt::ControlModifier); },
        [](QFileDialog* dialog) { QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen); }));
    QVERIFY(activate());
    QTest::keyClick(focus, Qt::Key_F, Qt::ControlModifier);
    auto* search = window->findChild<FSearch*>();
    QVERIFY(search && search->isVisible());
    search->close();
    QVERIFY(activate());
    QTest::keyClick(window->Plan(), Qt::Key_W, Qt::ControlModifier);
    QTRY_VERIFY(main->Anlagen().empty());
    // Without a layout, Ctrl+O still opens and Ctrl+Q ends.
    QVERIFY(activate());
    QVERIFY(test::WithModal<QFileDialog>([&] { QTest::keyClick(main.get(), Qt::Key_O, Qt::ControlModifier); },
                                         [](QFileDialog*) {}));
    QVERIFY(activate());
    QTest::keyClick(main.get(), Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY(!main->isVisible());
}

void DesktopTest::droppedLayoutsAreOpened() {
    QMimeData data;
    data.setUrls(
        {QUrl::fromLocalFile(QString::fromStdString(kSample)), QUrl::fromLocalFile("/tmp/Bild.png")});
    const QPoint at = main->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main.get(), &drop);
    QTRY_COMPARE(main->Anlagen().size(), size_t(1));
    QCOMPARE(main->Anlagen()[0]->FileName(), kSample);
    // Nothing but pictures is not taken.
    QMimeData pictures;
    pictures.setUrls({QUrl::fromLocalFile("/tmp/Bild.png")});
    QDragEnterEvent refused(at, Qt::CopyAction, &pictures, Qt::LeftButton, Qt::NoModifier);
    refused.setAccepted(false);
    QApplication::sendEvent(main.get(), &refused);
    QVERIFY(!refused.isAccepted());
}

// The real program is started a second time, with the temp folder this test shares with it:
// it finds the lock of this "first instance", hands its files over and ends silently.
void DesktopTest::secondStartHandsItsFilesOver() {
    QTemporaryDir temp;
    std::unique_ptr<QLockFile> lock = AcquireInstanceLock(temp.path());
    QVERIFY(lock);
    CInstanceChannel channel;
    QVERIFY(channel.Listen(QDir(temp.path()).filePath(CInstanceChannel::ServerName())));
    connect(&channel, &CInstanceChannel::FilesReceived, main.get(), &FMain::OpenHandedOver);
    main->OpenFile(kOtherSample);

    QProcess second;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", temp.path());
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    second.setProcessEnvironment(environment);
    // Names relative to the second start's own folder.
    second.setWorkingDirectory(QFileInfo(QString::fromStdString(kSample)).absolutePath());
    second.start(KAVRIN_APP_PATH, {"Demo-Linien.anl3", "Lua-Testbeispiel.anl3"});
    QVERIFY(second.waitForStarted());
    QTRY_COMPARE_WITH_TIMEOUT(main->Anlagen().size(), size_t(2), 30000);
    QVERIFY(second.state() == QProcess::NotRunning || second.waitForFinished(30000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(main->Anlagen()[1]->FileName(), kSample);
    // The layout that was open already is brought to the front, not opened twice.
    QTRY_COMPARE(main->ActiveAnlage()->FileName(), kOtherSample);
    QVERIFY(port->errors.empty());
}

void DesktopTest::handOverWithoutAListenerFails() {
    QTemporaryDir temp;
    QVERIFY(!CInstanceChannel::HandOver({"/a.anl3"}, QDir(temp.path()).filePath("niemand"), 500));
    // A listener that gets nothing but an empty message still answers: a start without files
    // only brings the first one to the front.
    CInstanceChannel channel;
    QString name = QDir(temp.path()).filePath("leer");
    QVERIFY(channel.Listen(name));
    QStringList received{"nicht leer"};
    connect(&channel, &CInstanceChannel::FilesReceived, this,
            [&](const QStringList& files) { received = files; });
    // The second start is another process; here a thread of its own stands for it.
    std::atomic<bool> confirmed = false;
    std::thread secondStart([&] { confirmed = CInstanceChannel::HandOver({}, name, 5000); });
    QTRY_VERIFY(received.isEmpty());
    QTRY_VERIFY(confirmed);
    secondStart.join();
}

void DesktopTest::resourceQuestionCanBeSwitchedOff() {
    EepRegistry values; // no resource directory
    int asked = 0;
    auto hooks = port->hooks;
    // No with the box ticked stores nothing: the next start asks again.
    hooks.askDontAskAgain = [&](const std::string&, bool& dontAskAgain) {
        ++asked;
        dontAskAgain = true;
        return asked > 1;
    };
    port->ui.SetHooks(hooks);
    QVERIFY(!ReadInstallation(values));
    QVERIFY(AskAboutMissingResourceDirectory());
    QVERIFY(ReadInstallation(values));
    QCOMPARE(settings->Raw("Settings", "AskNoResourceDir"), std::string("0"));
    QVERIFY(!AskAboutMissingResourceDirectory());
    QVERIFY(ReadInstallation(values));
    QCOMPARE(asked, 2);
    // The status bar still says that the resources are missing.
    main->ShowInstallation();
    QCOMPARE(main->findChild<QLabel*>("lblInstallation")->text(), QString("EEP-Resourcen nicht gefunden"));
    // The settings dialog switches the question on again.
    QVERIFY(test::WithModal<FOptSettings>([&] { main->OptionSettings(); },
                                          [](FOptSettings* dialog) {
                                              auto* ask = dialog->findChild<QCheckBox*>("chkAskResources");
                                              QVERIFY(!ask->isChecked());
                                              ask->setChecked(true);
                                              dialog->accept();
                                          }));
    QVERIFY(AskAboutMissingResourceDirectory());
    QVERIFY(ReadInstallation(values));
    QCOMPARE(asked, 3);
}

void DesktopTest::whatsNewIsShownInsideKavrin() {
    HelpFile file("WasIsNeu.txt", "Kavrin - Was ist neu?\nÄnderungen\n");
    int shellCalls = 0;
    SetShellOpenHandler([&](const std::string&) { return ++shellCalls, 42; });
    main->ShowWasIsNeu();
    auto* window = main->findChild<FHelpText*>();
    QVERIFY(window && window->isVisible());
    QCOMPARE(window->windowTitle(), QString("Was ist neu?"));
    QCOMPARE(window->Text(), QString("Kavrin - Was ist neu?\nÄnderungen\n"));
    QCOMPARE(shellCalls, 0);
    QVERIFY(port->errors.empty());
}

void DesktopTest::guideFallsBackToHtmlWithoutAPdfViewer() {
    HelpFile pdf("KurzAnleitung.pdf", "%PDF-1.4");
    HelpFile html("KurzAnleitung.html",
                  "<html><body><h1>Kurzanleitung</h1><p>Erste Schritte</p></body></html>");
    int answer = 42;
    SetShellOpenHandler([&](const std::string&) { return answer; });
    main->ShowAnleitung();
    QVERIFY(!main->findChild<FHelpText*>());
    answer = kShellNoAssociation;
    main->ShowAnleitung();
    auto* window = main->findChild<FHelpText*>();
    QVERIFY(window && window->isVisible());
    QCOMPARE(window->windowTitle(), QString("Kurzanleitung"));
    QVERIFY(window->Text().contains("Erste Schritte"));
    QVERIFY(port->errors.empty());
}

QTEST_MAIN(DesktopTest)
#include "DesktopTest.moc"
