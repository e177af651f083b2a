#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUndoStack>

#include "AppTestSupport.h"
#include "PlanFixtures.h"
#include "app/CPlanEditor.h"
#include "app/FAnlage.h"
#include "app/FContactsDel.h"
#include "app/FSelDelete.h"
#include "app/FSignalsDel.h"
#include "app/modMain.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/LayoutLookup.h"
#include "plan/CSelection.h"

// Deleting in a document window, offscreen: FSelDelete's counts, trains, locked objects and
// question, cancelling and confirming, the plan and status afterwards and undo; signals and
// contacts deleted from their lists, with and without the simulator's signal folder.

using namespace kavrin;

namespace {

std::string Frame(double x, double y) {
    return "<Dreibein><Vektor x=\"" + test::Num(x) + "\" y=\"" + test::Num(y) +
           "\" z=\"0\">Pos</Vektor><Vektor x=\"1\" y=\"0\" z=\"0\">Dir</Vektor><Vektor x=\"0\" y=\"1\" "
           "z=\"0\">Nor</Vektor><Vektor x=\"0\" y=\"0\" z=\"1\">Bin</Vektor></Dreibein>";
}

std::string Track(int id, double x, double y, const std::string& marks = "") {
    return "<Gleis GleisID=\"" + std::to_string(id) + "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\">" +
           Frame(x, y) +
           "<Charakteristik Kruemmung=\"0\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" Laenge=\"5000\"/>" +
           marks + "</Gleis>";
}

// Three tracks (a train on 1, signals "Hp" on 1 and "Vr" on 3, a camera contact on 3), a
// building, one locked in the simulator, and a good.
std::string DeleteLayout() {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<sutrackp><Version EEP=\"15\"/>"
           "<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" +
           Track(1, -10000, 0, "<Meldung Position=\"5\" name=\"Hp\" Key_Id=\"3\"><Signal/></Meldung>") +
           Track(2, -5000, 0) +
           Track(
               3, -10000, 6000,
               "<Kontakt Position=\"1\" SetType=\"512\" SetValue=\"1\"/><Meldung Position=\"5\" name=\"Vr\" "
               "Key_Id=\"4\"><Signal/></Meldung>") +
           "<Gleisverbindung GleisID1=\"1\" Anschluss1=\"Ende\" GleisID2=\"2\" "
           "Anschluss2=\"Anfang\"/></Gleissystem>"
           "<Fuhrpark FuhrparkID=\"1\"><Zugverband ZugID=\"1\" name=\"#Güterzug\"><Gleisort "
           "gleissystemID=\"2\" "
           "gleisID=\"1\" parameter=\"1\" ausrichtung=\"1\"/><Rollmaterial/><Rollmaterial/><Rollmaterial/>"
           "</Zugverband></Fuhrpark>"
           "<Gebaeudesammlung GebaudesammlungID=\"4\"><Immobile gsbname=\"\\Haus.3dm\" LockEd=\"0\">" +
           Frame(10000, 10000) + "</Immobile><Immobile gsbname=\"\\Kirche.3dm\" LockEd=\"1\">" +
           Frame(10000, -10000) + "</Immobile></Gebaeudesammlung><Goods count=\"1\">" +
           test::GoodText({0, -10000, 0}) +
           "</Goods><Kammerasammlung/><Settings/><Options/><Weather/><TimeTable/>" +
           test::TerrainText(500, 500, -25000, -25000) + "<Beschreibung/></sutrackp>\n";
}

} // namespace

class DeleteWindowTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }
    void selDeleteShowsWhatGoesAndDeletesOnlyWhenConfirmed();
    void singleObjectWithoutTrains();
    void signalsListedCheckedAgainstTheInstallationAndDeleted();
    void contactsOfTheSelectedTracksDeleted();

private:
    FAnlage* Open() {
        const QString path = dir_.filePath(QStringLiteral("Loeschen.anl3"));
        test::WriteFile(path.toStdString(), DeleteLayout());
        FAnlage* window = main->OpenFile(path.toStdString());
        if (window)
            window->World();
        return window;
    }
    static QAction* Command(FAnlage* window, const char* name) {
        return window->findChild<QAction*>(QLatin1String(name));
    }
    static QString Text(QWidget* dialog, const char* label) {
        return dialog->findChild<QLabel*>(QLatin1String(label))->text();
    }
    static QStringList Items(QWidget* dialog, const char* list) {
        QStringList items;
        auto* widget = dialog->findChild<QListWidget*>(QLatin1String(list));
        for (int row = 0; row < widget->count(); ++row)
            items << widget->item(row)->text();
        return items;
    }
    static size_t CountOf(FAnlage* window, const char* element) {
        size_t count = 0;
        std::function<void(const INode&)> walk = [&](const INode& node) {
            count += node.Name() == element;
            for (const auto& child : node.SubNodes())
                walk(*child);
        };
        walk(*window->Anlage().RootNode());
        return count;
    }

    QTemporaryDir dir_;
};

void DeleteWindowTest::selDeleteShowsWhatGoesAndDeletesOnlyWhenConfirmed() {
    FAnlage* window = Open();
    QVERIFY(window);
    QAction* selDelete = Command(window, "mnuSelDelete");
    QVERIFY(selDelete);
    QVERIFY(!selDelete->isEnabled());
    QCOMPARE(selDelete->shortcut(), QKeySequence(QKeySequence::Delete));
    Command(window, "mnuSelAll")->trigger();
    QVERIFY(selDelete->isEnabled());
    const bool seen = test::WithModal<FSelDelete>(
        [&] { selDelete->trigger(); },
        [](FSelDelete* dialog) {
            QCOMPARE(Text(dialog, "lblCountGleise"), QString(" 3 Gleise, Strassen etc."));
            QCOMPARE(Text(dialog, "lblCountImmos"), QString(" 2 Immos, Bäume etc."));
            QCOMPARE(Text(dialog, "lblCountGoods"), QString(" 1 Ladegüter"));
            QCOMPARE(Items(dialog, "lbRollies"), QStringList{"#Güterzug (3 Stück)"});
            QCOMPARE(Text(dialog, "lblQuery"), QString("Wollen Sie all diese Objekte wirklich löschen ?"));
            QVERIFY(dialog->findChild<QLabel*>("lblLocked")->isVisibleTo(dialog));
            QCOMPARE(Text(dialog, "lblLocked"),
                     QString("1 Objekt der Auswahl ist in EEP gesperrt und bleibt erhalten."));
            dialog->findChild<QPushButton*>("cmdCancel")->click();
        });
    QVERIFY(seen);
    QCOMPARE(window->History().Count(), size_t(0));
    QCOMPARE(window->Selection().Count(), 6);

    test::WithModal<FSelDelete>(
        [&] { selDelete->trigger(); },
        [](FSelDelete* dialog) { dialog->findChild<QPushButton*>("cmdOk")->click(); });
    // The locked building stays, and stays selected: the user sees what is left.
    QCOMPARE(window->Selection().Count(), 1);
    QCOMPARE(window->Selection().CountImmos(), 1);
    QCOMPARE(TrackSystems(window->Anlage()).front()->Gleise().Count(), 0);
    QCOMPARE(CountOf(window, "Zugverband"), size_t(0));
    QCOMPARE(CountOf(window, "Immobile"), size_t(1));
    QCOMPARE(CountOf(window, "Good"), size_t(0));
    QCOMPARE(window->findChild<QLabel*>("lblSelection")->text(),
             QString("0 Gleise, 1 Immobilie, 0 Güter ausgewählt"));
    QVERIFY(window->Anlage().Changed());
    QCOMPARE(window->Editor().UndoStack()->undoText(), QString("Löschen"));
    window->Editor().UndoStack()->undo();
    QCOMPARE(TrackSystems(window->Anlage()).front()->Gleise().Count(), 3);
    QCOMPARE(CountOf(window, "Zugverband"), size_t(1));
    QVERIFY(!window->Anlage().Changed());
    // Selected again and redone: what the redo takes out leaves the selection.
    Command(window, "mnuSelAll")->trigger();
    window->Editor().UndoStack()->redo();
    QCOMPARE(window->Selection().Count(), 1);
}

void DeleteWindowTest::singleObjectWithoutTrains() {
    FAnlage* window = Open();
    QVERIFY(window);
    window->Selection().Add(*FindGleis(window->Anlage(), 2, 2));
    window->Editor().EditedElsewhere();
    const bool seen = test::WithModal<FSelDelete>(
        [&] { Command(window, "mnuSelDelete")->trigger(); },
        [](FSelDelete* dialog) {
            QCOMPARE(Text(dialog, "lblQuery"), QString("Wollen Sie dieses Objekt wirklich löschen ?"));
            QCOMPARE(Items(dialog, "lbRollies"), QStringList{">>>>>  Keine Zugverbände in der Auswahl"});
            QVERIFY(!dialog->findChild<QLabel*>("lblLocked")->isVisibleTo(dialog));
            dialog->accept();
        });
    QVERIFY(seen);
    QCOMPARE(FindGleis(window->Anlage(), 2, 2), nullptr);
    QCOMPARE(FindGleis(window->Anlage(), 2, 1)->Verbindung(kEnde), 0);
}

void DeleteWindowTest::signalsListedCheckedAgainstTheInstallationAndDeleted() {
    FAnlage* window = Open();
    QVERIFY(window);
    EepInstallation& installation = Installation();
    const EepInstallation saved = installation;
    // Without an installation nothing is checked and nothing said about it.
    installation.noResourceDirectory = true;
    bool seen = test::WithModal<FSignalsDel>(
        [&] { Command(window, "mnuAnlSignalsDel")->trigger(); },
        [](FSignalsDel* dialog) {
            QCOMPARE(Items(dialog, "lbDel"), (QStringList{"Hp -- (1)", "Vr -- (1)"}));
            QVERIFY(!dialog->findChild<QLabel*>("lblUnknown")->isVisibleTo(dialog));
            QVERIFY(!dialog->findChild<QLabel*>("lblHinweis")->isVisibleTo(dialog));
        });
    QVERIFY(seen);
    // With one: "Vr" has no definition file; "hp.GSB" counts for "Hp".
    QTemporaryDir resources;
    QVERIFY(QDir(resources.path()).mkpath("Signale/Signale"));
    test::WriteFile(resources.filePath("Signale/Signale/hp.GSB").toStdString(), "x");
    installation.noResourceDirectory = false;
    installation.resourceDirectory = resources.path().toStdString();
    port->answers = {true};
    seen = test::WithModal<FSignalsDel>([&] { Command(window, "mnuAnlSignalsDel")->trigger(); },
                                        [](FSignalsDel* dialog) {
                                            QStringList items = Items(dialog, "lbDel");
                                            QCOMPARE(items[0], QString("Hp -- (1)"));
                                            QVERIFY(items[1].startsWith("Vr -- (1)   nicht im\nBestand"));
                                            QCOMPARE(Text(dialog, "lblUnknown"),
                                                     QString("1 Signal-Modell ist nicht im Bestand."));
                                            auto* list = dialog->findChild<QListWidget*>("lbDel");
                                            list->item(1)->setSelected(true);
                                            dialog->findChild<QPushButton*>("cmdDelete")->click();
                                            QCOMPARE(Items(dialog, "lbDel"), QStringList{"Hp -- (1)"});
                                        });
    installation = saved;
    QVERIFY(seen);
    QCOMPARE(port->questions.back(),
             FormatMessage("Sie sind im Begriff, %1 zu löschen!%mWollen Sie das wirklich??", "ein Signal"));
    QCOMPARE(CountOf(window, "Meldung"), size_t(1));
    QCOMPARE(window->Editor().UndoStack()->undoText(), QString("Signale löschen"));
}

void DeleteWindowTest::contactsOfTheSelectedTracksDeleted() {
    FAnlage* window = Open();
    QVERIFY(window);
    QAction* contactsDel = Command(window, "mnuAnlContactsDel");
    QVERIFY(!contactsDel->isEnabled());
    Command(window, "mnuSelAll")->trigger();
    QVERIFY(contactsDel->isEnabled());
    port->answers = {false, true};
    const bool seen = test::WithModal<FContactsDel>(
        [&] { contactsDel->trigger(); },
        [](FContactsDel* dialog) {
            QCOMPARE(Items(dialog, "lbDel"), QStringList{"Kamera -- (1)"});
            dialog->findChild<QPushButton*>("cmdSelAll")->click();
            dialog->findChild<QPushButton*>("cmdDelete")->click(); // answered No
            QCOMPARE(Items(dialog, "lbDel"), QStringList{"Kamera -- (1)"});
            dialog->findChild<QPushButton*>("cmdDelete")->click();
            QVERIFY(Items(dialog, "lbDel").isEmpty());
        });
    QVERIFY(seen);
    QCOMPARE(CountOf(window, "Kontakt"), size_t(0));
    QCOMPARE(window->Selection().CountGleise(), 3);
}

QTEST_MAIN(DeleteWindowTest)
#include "DeleteWindowTest.moc"
