// Renumbering key ids from the Anlage menu, offscreen: the warning with the table, copying it,
// cancelling, renumbering as one undoable step, and a layout that needs nothing.

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "AppTestSupport.h"
#include "app/CPlanEditor.h"
#include "app/FAnlage.h"
#include "app/FRenumKeyIds.h"
#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "nodes/CNodeGleis.h"
#include "nodes/LayoutLookup.h"

using namespace kavrin;

class RenumberWindowTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }
    void warningWithTableThenOneUndoableStep();
    void gaplessLayoutNeedsNothing();

private:
    static QAction* RenumberCommand(FAnlage* window) {
        for (QMenu* menu : window->Menus())
            if (auto* action = menu->findChild<QAction*>("mnuAnlRenumKeyId"))
                return action;
        for (QAction* action : window->findChildren<QAction*>())
            if (action->objectName() == QLatin1String("mnuAnlRenumKeyId"))
                return action;
        return nullptr;
    }
    static std::vector<int32_t> KeyIds(FAnlage* window) {
        std::vector<int32_t> ids;
        for (CNodeGleisSys* system : TrackSystems(window->Anlage()))
            for (CNodeGleis* track : system->Gleise().Tracks())
                ids.push_back(track->KeyId());
        return ids;
    }
};

// Screenshots numbers its switches and signals 1..6 and 33..56.
void RenumberWindowTest::warningWithTableThenOneUndoableStep() {
    FAnlage* window = main->OpenFile(test::SamplePath("Screenshots.anl3"));
    QVERIFY(window);
    QAction* command = RenumberCommand(window);
    QVERIFY(command);
    const std::vector<int32_t> before = KeyIds(window);

    // Cancelled after copying the table: nothing changes.
    bool seen = test::WithModal<FRenumKeyIds>(
        [&] { command->trigger(); },
        [](FRenumKeyIds* dialog) {
            QVERIFY(dialog->findChild<QLabel*>("lblWarning")->text().contains("Lua-Skripte"));
            const QString table = dialog->findChild<QPlainTextEdit*>("txtTable")->toPlainText();
            QVERIFY(table.startsWith("Key-ID alt\tKey-ID neu\n33\t7\n"));
            dialog->findChild<QPushButton*>("cmdCopy")->click();
            QCOMPARE(QGuiApplication::clipboard()->text(), table);
            dialog->findChild<QPushButton*>("cmdCancel")->click();
        });
    QVERIFY(seen);
    QCOMPARE(KeyIds(window), before);
    QCOMPARE(window->History().Count(), size_t(0));
    QVERIFY(!window->Anlage().Changed());

    seen = test::WithModal<FRenumKeyIds>(
        [&] { command->trigger(); },
        [](FRenumKeyIds* dialog) { dialog->findChild<QPushButton*>("cmdOk")->click(); });
    QVERIFY(seen);
    QCOMPARE(window->History().Count(), size_t(1));
    QVERIFY(window->Anlage().Changed());
    QVERIFY(window->isWindowModified());
    for (int32_t id : KeyIds(window))
        QVERIFY(id <= 30);
    QCOMPARE(window->Editor().Command("mnuEditUndo")->text(),
             QString("&Rückgängig \"Key-IDs neu nummerieren\""));
    window->Editor().Command("mnuEditUndo")->trigger();
    QCOMPARE(KeyIds(window), before);
    QVERIFY(!window->Anlage().Changed());
}

void RenumberWindowTest::gaplessLayoutNeedsNothing() {
    FAnlage* window = main->OpenFile(test::SamplePath("Tutorial-Ampelkreuzung.anl3"));
    QVERIFY(window);
    RenumberCommand(window)->trigger();
    QCOMPARE(port->infos.size(), size_t(1));
    QVERIFY(QString::fromStdString(port->infos[0]).contains("bereits lückenlos"));
    QCOMPARE(window->History().Count(), size_t(0));
}

QTEST_MAIN(RenumberWindowTest)
#include "RenumberWindowTest.moc"
