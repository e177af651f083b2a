// Selecting and editing in a document window, offscreen: the pointer tool's clicks, rubber band
// and drag, the Bearbeiten commands, the status count, undo and redo with the changed flag,
// the move and rotate dialogs with their totals and the rotation centre, selection by id, hidden
// kinds leaving the selection, and the search selecting what it finds.

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUndoStack>
#include <cmath>

#include "AppTestSupport.h"
#include "PlanFixtures.h"
#include "app/COptions.h"
#include "app/CPlanEditor.h"
#include "app/CPlanWidget.h"
#include "app/FAnlage.h"
#include "app/FSelGleisId.h"
#include "app/FSelMove.h"
#include "app/FSelRotate.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPlanPainter.h"
#include "plan/CSelection.h"

using namespace kavrin;

namespace {

std::string Frame(double x, double y) {
    return "<Dreibein><Vektor x=\"" + test::Num(x) + "\" y=\"" + test::Num(y) +
           "\" z=\"0\">Pos</Vektor><Vektor x=\"1\" y=\"0\" z=\"0\">Dir</Vektor><Vektor x=\"0\" y=\"1\" "
           "z=\"0\">Nor</Vektor><Vektor x=\"0\" y=\"0\" z=\"1\">Bin</Vektor></Dreibein>";
}

std::string Track(int id, double x, double y, double length) {
    return "<Gleis GleisID=\"" + std::to_string(id) + "\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\">" +
           Frame(x, y) + "<Charakteristik Kruemmung=\"0\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" Laenge=\"" +
           test::Num(length) + "\"/></Gleis>";
}

// On a terrain of 500 x 500 m around the origin: three tracks (1 and 2 joined), two buildings
// and a good, far enough apart to be told apart at the first zoom step.
std::string EditLayout() {
    return test::LayoutText(
        "<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" + Track(1, -10000, 0, 5000) +
            Track(2, -5000, 0, 5000) + Track(3, -10000, 6000, 5000) +
            "<Gleisverbindung GleisID1=\"1\" Anschluss1=\"Ende\" GleisID2=\"2\" Anschluss2=\"Anfang\"/>"
            "</Gleissystem><Gebaeudesammlung GebaudesammlungID=\"4\"><Immobile gsbname=\"\\Haus.3dm\">" +
            Frame(10000, 10000) + "</Immobile><Immobile gsbname=\"\\Kirche.3dm\">" + Frame(10000, -10000) +
            "</Immobile></Gebaeudesammlung><Goods count=\"1\">" + test::GoodText({0, -10000, 0}) + "</Goods>",
        test::TerrainText(500, 500, -25000, -25000));
}

void SendMouse(QWidget* widget, QEvent::Type type, QPoint at,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(Qt::LeftButton);
    Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, modifiers);
    QApplication::sendEvent(widget, &event);
}

} // namespace

class SelectionWindowTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }
    void clicksSelectTogglesAddAndClear();
    void rubberBandSelectsWhatLiesInside();
    void draggingTheSelectionMovesItAsOneEdit();
    void commandsSelectWhatThePlanShowsAndAreGreyedWithoutSelection();
    void undoAndRedoFollowTheSavedPoint();
    void undoStackStaysInStepWithTheHistory();
    void rotateDialogByKeys();
    void movedOutOfTheHeightBandStaysSelected();
    void moveDialogTotalsAndInputTest();
    void rotateDialogTotalsCentreAndInputTest();
    void selectionByIdNamesWhatItCouldNotTake();
    void hiddenKindsLeaveTheSelection();
    void searchHitIsSelected();
    void zoomToSelectionShowsItLarge();
    void dialogsCloseWithTheLayout();

private:
    FAnlage* Open(const std::string& text = EditLayout()) {
        const QString path = dir_.filePath(QStringLiteral("Bearbeiten.anl3"));
        test::WriteFile(path.toStdString(), text);
        FAnlage* window = main->OpenFile(path.toStdString());
        if (!window)
            return nullptr;
        window->World(); // the whole layout
        Settle(window);
        return window;
    }
    static void Settle(FAnlage* window) {
        auto* timer = window->findChild<QTimer*>("PaintTimer");
        if (!QTest::qWaitFor([timer] { return !timer->isActive(); }))
            qWarning("the plan was not drawn in time");
        window->Plan()->grab();
    }
    static QPoint Pixel(FAnlage* window, double x, double y) {
        const CPlanView& view = window->View();
        return QPoint(static_cast<int>(std::lround(view.ToPixelX(x))),
                      static_cast<int>(std::lround(view.ToPixelY(y))));
    }
    static void Click(FAnlage* window, double x, double y, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* plan = window->Plan();
        SendMouse(plan, QEvent::MouseButtonPress, Pixel(window, x, y), modifiers);
        SendMouse(plan, QEvent::MouseButtonRelease, Pixel(window, x, y), modifiers);
    }
    static void Drag(FAnlage* window, QPoint from, QPoint to,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* plan = window->Plan();
        SendMouse(plan, QEvent::MouseButtonPress, from, modifiers);
        for (int step = 1; step <= 4; ++step)
            SendMouse(plan, QEvent::MouseMove, from + (to - from) * step / 4, modifiers);
        SendMouse(plan, QEvent::MouseButtonRelease, to, modifiers);
    }
    static CNodeGleis& TrackOf(FAnlage* window, int id) { return *FindGleis(window->Anlage(), 2, id); }
    static QString Status(FAnlage* window) { return window->findChild<QLabel*>("lblSelection")->text(); }
    static QAction* Command(FAnlage* window, const char* name) { return window->Editor().Command(name); }

    QTemporaryDir dir_;
};

void SelectionWindowTest::clicksSelectTogglesAddAndClear() {
    FAnlage* window = Open();
    QVERIFY(window);
    CSelection& selection = window->Selection();
    QCOMPARE(Status(window), QString("Nichts ausgewählt"));
    Click(window, -7500, 0);
    QVERIFY(TrackOf(window, 1).Selected());
    QCOMPARE(selection.Count(), 1);
    QCOMPARE(Status(window), QString("1 Gleis, 0 Immobilien, 0 Güter ausgewählt"));
    Click(window, 10000, 10000, Qt::ShiftModifier);
    Click(window, 0, -10000, Qt::ShiftModifier);
    QCOMPARE(Status(window), QString("1 Gleis, 1 Immobilie, 1 Gut ausgewählt"));
    Click(window, -7500, 0, Qt::ControlModifier);
    QVERIFY(!TrackOf(window, 1).Selected());
    QCOMPARE(selection.Count(), 2);
    // A plain click takes the object alone; one on empty plan clears.
    Click(window, -2500, 0);
    QCOMPARE(selection.Count(), 1);
    QVERIFY(TrackOf(window, 2).Selected());
    Click(window, 20000, 0, Qt::ShiftModifier);
    QCOMPARE(selection.Count(), 1);
    Click(window, 20000, 0);
    QCOMPARE(selection.Count(), 0);
    QVERIFY(!window->Anlage().Changed());
}

void SelectionWindowTest::rubberBandSelectsWhatLiesInside() {
    FAnlage* window = Open();
    QVERIFY(window);
    // Around tracks 1 and 3 (both ends inside) but only half of track 2.
    Drag(window, Pixel(window, -11000, 7000), Pixel(window, -2000, -1000));
    CSelection& selection = window->Selection();
    QCOMPARE(selection.CountGleise(), 2);
    QVERIFY(TrackOf(window, 1).Selected() && TrackOf(window, 3).Selected());
    // With Ctrl a band toggles, with Shift it adds.
    Drag(window, Pixel(window, -11000, 7000), Pixel(window, -4000, 5000), Qt::ControlModifier);
    QVERIFY(!TrackOf(window, 3).Selected());
    Drag(window, Pixel(window, 9000, 11000), Pixel(window, 11000, 9000), Qt::ShiftModifier);
    QCOMPARE(Status(window), QString("1 Gleis, 1 Immobilie, 0 Güter ausgewählt"));
}

void SelectionWindowTest::draggingTheSelectionMovesItAsOneEdit() {
    FAnlage* window = Open();
    QVERIFY(window);
    Click(window, -7500, 0);
    Click(window, -2500, 0, Qt::ShiftModifier);
    const double pixel = window->View().PixelSize();
    const QPoint from = Pixel(window, -7500, 0);
    Drag(window, from, from + QPoint(10, -20));
    const C3Bein& frame = TrackOf(window, 1).DreiBein();
    QCOMPARE(frame.Pos().X, -10000 + std::round(10 * pixel));
    QCOMPARE(frame.Pos().Y, std::round(20 * pixel));
    QCOMPARE(TrackOf(window, 2).DreiBein().Pos().X, -5000 + std::round(10 * pixel));
    QCOMPARE(window->History().Count(), size_t(1));
    QVERIFY(window->Anlage().Changed());
    QVERIFY(window->isWindowModified());
    QCOMPARE(window->Selection().Count(), 2);
    // Out of the layout: the question; No leaves everything where it is.
    port->answer = false;
    const QPoint now = Pixel(window, -7500, frame.Pos().Y);
    Drag(window, now, QPoint(-200, now.y()));
    QCOMPARE(port->questions.size(), size_t(1));
    QVERIFY(QString::fromStdString(port->questions[0]).startsWith("Achtung:"));
    QCOMPARE(window->History().Count(), size_t(1));
    port->answer = true;
    Drag(window, now, QPoint(-200, now.y()));
    QCOMPARE(window->History().Count(), size_t(2));
    QVERIFY(frame.Pos().X < -25000);
    QCOMPARE(window->Selection().Count(), 2);
    // Partly outside now: a step back is not asked about, a step further out is, and so is a
    // turn that swings the selection out on the other side.
    port->questions.clear();
    QVERIFY(window->Editor().FormSelMove_Move(100, 0, 0));
    QCOMPARE(port->questions.size(), size_t(0));
    port->answer = false;
    QVERIFY(!window->Editor().FormSelMove_Move(-100, 0, 0));
    QVERIFY(!window->Editor().FormSelRotate_Rotate(180, 0, 0));
    QCOMPARE(port->questions.size(), size_t(2));
    QVERIFY(QString::fromStdString(port->questions[1]).contains("nach dem Drehen außerhalb"));
    QCOMPARE(window->History().Count(), size_t(3));
}

// Every step the history records reaches the undo stack, also after an undo: edit, edit, undo,
// new edit, undo, undo, redo, redo, each step made in the move dialog with the keyboard.
void SelectionWindowTest::undoStackStaysInStepWithTheHistory() {
    FAnlage* window = Open();
    QVERIFY(window);
    Click(window, 10000, 10000);
    window->Editor().ShowMoveDialog();
    FSelMove* dialog = window->Editor().FormSelMove();
    auto* east = dialog->findChild<QLineEdit*>("txtMeter0");
    const C3Bein& frame = static_cast<CNodeImmobilie&>(*window->Selection().NewEnum().begin()).DreiBein();
    QUndoStack* stack = window->Editor().UndoStack();
    auto step = [&](const char* metres) {
        east->setFocus();
        east->selectAll();
        QTest::keyClicks(east, metres);
        QTest::keyClick(east, Qt::Key_Return); // the default button
    };
    auto expect = [&](double x, size_t steps, size_t done) {
        QCOMPARE(frame.Pos().X, x);
        QCOMPARE(window->History().Count(), steps);
        QCOMPARE(window->History().Done(), done);
        QCOMPARE(size_t(stack->count()), steps);
        QCOMPARE(size_t(stack->index()), done);
        QCOMPARE(Command(window, "mnuEditUndo")->isEnabled(), done > 0);
        QCOMPARE(Command(window, "mnuEditRedo")->isEnabled(), done < steps);
    };
    step("10");
    step("5");
    expect(11500, 2, 2);
    Command(window, "mnuEditUndo")->trigger();
    expect(11000, 2, 1);
    step("2"); // the step undone is dropped
    expect(11200, 2, 2);
    QCOMPARE(Command(window, "mnuEditUndo")->text(), QString("&Rückgängig \"Verschieben\""));
    Command(window, "mnuEditUndo")->trigger();
    expect(11000, 2, 1);
    Command(window, "mnuEditUndo")->trigger();
    expect(10000, 2, 0);
    QVERIFY(!window->Anlage().Changed());
    Command(window, "mnuEditRedo")->trigger();
    Command(window, "mnuEditRedo")->trigger();
    expect(11200, 2, 2);
    QVERIFY(window->Anlage().Changed());
}

// The rotate dialog by keys: turns that add up to none leave no residue in the total or the
// file, a centre out of range takes the focus, and Esc hides the centre's marker like Fertig.
void SelectionWindowTest::rotateDialogByKeys() {
    FAnlage* window = Open();
    QVERIFY(window);
    Click(window, 10000, 10000);
    window->Editor().ShowRotateDialog();
    FSelRotate* dialog = window->Editor().FormSelRotate();
    auto* degrees = dialog->findChild<QLineEdit*>("txtDegrees");
    auto* centreX = dialog->findChild<QLineEdit*>("txtCenter0");
    auto* centreY = dialog->findChild<QLineEdit*>("txtCenter1");
    auto* sum = dialog->findChild<QLabel*>("lblSumme");
    auto type = [](QLineEdit* box, const char* text) {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
    };
    auto turn = [&](const char* angle) {
        type(degrees, angle);
        QTest::keyClick(degrees, Qt::Key_Return);
    };
    type(centreX, "50");
    for (int i = 0; i < 3; ++i)
        turn("33,3");
    QCOMPARE(sum->text(), QString("99,9 Grad"));
    dialog->findChild<QRadioButton*>("rbRight")->click();
    turn("99,9");
    QCOMPARE(sum->text(), QString(""));
    QVERIFY(dialog->findChild<QLabel*>("picRot")->pixmap().isNull());
    QCOMPARE(dialog->Total(), 0.0);
    const C3Bein& frame = static_cast<CNodeImmobilie&>(*window->Selection().NewEnum().begin()).DreiBein();
    QCOMPARE(frame.Pos().X, 10000.0); // exactly where it stood
    QCOMPARE(frame.Dir().Y, 0.0);
    QCOMPARE(window->History().Count(), size_t(4));

    // A centre beyond 100 km: the message, and the focus on that box.
    for (QLineEdit* box : {centreX, centreY}) {
        type(box, "-200000");
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(QString::fromStdString(port->errors.back()).contains("Drehpunkt"));
        QCOMPARE(dialog->focusWidget(), box);
        type(box, "0");
    }
    QCOMPARE(window->History().Count(), size_t(4));

    // Esc closes the dialog and hides the marker; opened again it starts from the selection.
    type(centreX, "-12,5");
    QCOMPARE(window->Plan()->Painter().RotCenterX, -1250.0);
    QTest::keyClick(centreX, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QVERIFY(!window->Editor().RotCenterShown());
    window->Editor().ShowRotateDialog();
    QCOMPARE(centreX->text(), QString("100,00"));
    QCOMPARE(window->Plan()->Painter().RotCenterX, 10000.0);
}

// Moved up out of the height band with the move dialog, the building stays selected (the
// status strip says it is hidden) and the totals stay, until the user selects anew.
void SelectionWindowTest::movedOutOfTheHeightBandStaysSelected() {
    FAnlage* window = Open();
    QVERIFY(window);
    window->Anlage().HoehenFilter().SetTop(100);
    window->Anlage().HoehenFilter().SetTopActive(true);
    window->RepaintPlan();
    Settle(window);
    Click(window, 10000, 10000);
    QCOMPARE(window->Selection().Count(), 1);
    window->Editor().ShowMoveDialog();
    FSelMove* dialog = window->Editor().FormSelMove();
    auto* up = dialog->findChild<QLineEdit*>("txtMeter2");
    up->setFocus();
    up->selectAll();
    QTest::keyClicks(up, "2");
    QTest::keyClick(up, Qt::Key_Return);
    Settle(window);
    QCOMPARE(window->Selection().Count(), 1);
    QCOMPARE(Status(window), QString("0 Gleise, 1 Immobilie, 0 Güter ausgewählt (1 davon ausgeblendet)"));
    QCOMPARE(dialog->findChild<QLabel*>("lblSumme2")->text(), QString("2,00 m ^"));
    Click(window, -7500, 0);
    QCOMPARE(window->Selection().Count(), 1);
    QCOMPARE(Status(window), QString("1 Gleis, 0 Immobilien, 0 Güter ausgewählt"));
    window->Anlage().HoehenFilter().SetTopActive(false);
}

void SelectionWindowTest::commandsSelectWhatThePlanShowsAndAreGreyedWithoutSelection() {
    FAnlage* window = Open();
    QVERIFY(window);
    for (const char* name : {"mnuSelNone", "mnuSelMove", "mnuSelRotate", "mnuSelLoesen", "mnuSelZoom"})
        QVERIFY2(!Command(window, name)->isEnabled(), name);
    QVERIFY(!Command(window, "mnuEditUndo")->isEnabled());
    QVERIFY(!Command(window, "Undo")->isEnabled());
    // The commands stand in the Bearbeiten menu, before the search, and in the popup.
    QList<QAction*> edit = window->EditMenu()->actions();
    QVERIFY(edit.indexOf(Command(window, "mnuSelAll")) <
            edit.indexOf(window->findChild<QAction*>("mnuEditFind")));
    QVERIFY(window->findChild<QMenu*>("popAnl")->actions().contains(Command(window, "mnuSelLoesen")));
    QCOMPARE(Command(window, "mnuSelAll")->shortcut(), QKeySequence(QKeySequence::SelectAll));
    QVERIFY(Command(window, "mnuEditRedo")->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_Y)));
    QVERIFY(
        Command(window, "mnuEditRedo")->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)));

    Command(window, "mnuSelAll")->trigger();
    QCOMPARE(Status(window), QString("3 Gleise, 2 Immobilien, 1 Gut ausgewählt"));
    for (const char* name : {"mnuSelNone", "mnuSelMove", "mnuSelRotate", "mnuSelLoesen"})
        QVERIFY2(Command(window, name)->isEnabled(), name);
    Click(window, 0, -10000, Qt::ControlModifier);
    Command(window, "mnuSelInvert")->trigger();
    QCOMPARE(Status(window), QString("0 Gleise, 0 Immobilien, 1 Gut ausgewählt"));
    QVERIFY(!Command(window, "mnuSelLoesen")->isEnabled()); // no track to cut loose
    Command(window, "mnuSelNone")->trigger();
    QCOMPARE(window->Selection().Count(), 0);

    // Cutting loose is one edit: the joint between the selected and the other track goes.
    Click(window, -7500, 0);
    Command(window, "mnuSelLoesen")->trigger();
    QCOMPARE(TrackOf(window, 2).Verbindung(kAnfang), 0);
    QCOMPARE(Command(window, "mnuEditUndo")->text(), QString("&Rückgängig \"Auswahl lösen\""));
    QCOMPARE(port->infos.size(), size_t(1));
}

void SelectionWindowTest::undoAndRedoFollowTheSavedPoint() {
    FAnlage* window = Open();
    QVERIFY(window);
    QVERIFY(window->Save());
    const std::string saved = test::ReadFile(window->FileName());
    Command(window, "mnuSelAll")->trigger();
    QVERIFY(window->Editor().FormSelMove_Move(100, 0, 0));
    QVERIFY(window->Editor().FormSelRotate_Rotate(45, 0, 0));
    QCOMPARE(Command(window, "mnuEditUndo")->text(), QString("&Rückgängig \"Drehen\""));
    QVERIFY(Command(window, "Undo")->toolTip().startsWith("Rückgängig \"Drehen\""));
    QVERIFY(window->isWindowModified());
    Command(window, "mnuEditUndo")->trigger();
    QCOMPARE(Command(window, "mnuEditRedo")->text(), QString("&Wiederholen \"Drehen\""));
    Command(window, "Undo")->trigger(); // the toolbar's button
    QVERIFY(!window->Anlage().Changed());
    QVERIFY(!window->isWindowModified());
    QVERIFY(window->QueryUnload()); // no question
    QVERIFY(port->questions.empty());
    QVERIFY(window->Save());
    QCOMPARE(test::ReadFile(window->FileName()), saved);
    Command(window, "mnuEditRedo")->trigger();
    QVERIFY(window->isWindowModified());
    QVERIFY(window->Save());
    QVERIFY(!window->isWindowModified());
    Command(window, "mnuEditUndo")->trigger();
    QVERIFY(window->isWindowModified());
    Command(window, "mnuEditRedo")->trigger();
    QVERIFY(!window->isWindowModified());
}

void SelectionWindowTest::moveDialogTotalsAndInputTest() {
    FAnlage* window = Open();
    QVERIFY(window);
    Click(window, 10000, 10000);
    window->Editor().ShowMoveDialog();
    FSelMove* dialog = window->Editor().FormSelMove();
    QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
    QCOMPARE(test::MnemonicLabelsWithoutBuddy(*dialog), QStringList());
    auto box = [dialog](int row) {
        return dialog->findChild<QLineEdit*>(QStringLiteral("txtMeter%1").arg(row));
    };
    auto total = [dialog](int row) {
        return dialog->findChild<QLabel*>(QStringLiteral("lblSumme%1").arg(row))->text();
    };
    auto button = [dialog](int row, int which) {
        return dialog->findChild<QRadioButton*>(QStringLiteral("rbDir%1_%2").arg(row).arg(which));
    };
    QCOMPARE(box(0)->selectedText(), box(0)->text()); // ready to be typed over
    QCOMPARE(dialog->findChild<QLabel*>("lblAreaVon")->text(), QString("100,00 m; 100,00 m; 0,00 m"));
    QCOMPARE(dialog->findChild<QLabel*>("lblAreaBis")->text(), QString("bis 100,00 m; 100,00 m; 0,00 m"));
    auto* move = dialog->findChild<QPushButton*>("cmdMove");
    box(0)->setText(" 12,5 ");
    box(1)->setText("3");
    button(1, 1)->setChecked(true); // south
    move->click();
    QCOMPARE(box(0)->text(), QString("12,5")); // trimmed
    box(0)->setText("2.5");
    box(1)->setText("1");
    box(2)->setText("0,25");
    button(2, 1)->setChecked(true); // down
    move->click();
    const C3Bein& frame =
        window->Selection().NewEnum().begin() != window->Selection().NewEnum().end()
            ? static_cast<CNodeImmobilie&>(*window->Selection().NewEnum().begin()).DreiBein()
            : TrackOf(window, 1).DreiBein();
    QCOMPARE(frame.Pos().X, 10000.0 + 1500);
    QCOMPARE(frame.Pos().Y, 10000.0 - 400);
    QCOMPARE(frame.Pos().Z, -25.0);
    QCOMPARE(total(0), QString("15,00 m O"));
    QCOMPARE(total(1), QString("4,00 m S"));
    QCOMPARE(total(2), QString("0,25 m v"));
    // Back west beyond the start: the letter turns; a total of 0 shows nothing.
    box(0)->setText("20");
    button(0, 1)->setChecked(true);
    box(1)->setText("4");
    button(1, 0)->setChecked(true);
    box(2)->setText("0");
    move->click();
    QCOMPARE(total(0), QString("5,00 m W"));
    QCOMPARE(total(1), QString(""));
    QCOMPARE(dialog->findChild<QLabel*>("lblAreaVon")->text(), QString("95,00 m; 100,00 m; -0,25 m"));
    // Undo leaves the totals alone.
    Command(window, "mnuEditUndo")->trigger();
    QCOMPARE(total(0), QString("5,00 m W"));
    // Not a number: the message, nothing moves; a sign is no number here either.
    const double x = frame.Pos().X;
    for (const char* text : {"1,2,3", "-4", "zehn"}) {
        box(1)->setText(text);
        move->click();
        QCOMPARE(port->errors.back(),
                 FormatMessage("Ungültige Zahl >%1< !%mBitte korrigieren Sie Ihre Eingabe.", text));
    }
    QCOMPARE(frame.Pos().X, x);
    // cmdClear: the boxes to 0 and a new count.
    dialog->findChild<QPushButton*>("cmdClear")->click();
    QCOMPARE(box(0)->text(), QString("0"));
    QCOMPARE(box(1)->text(), QString("0"));
    QCOMPARE(total(0), QString(""));
    QCOMPARE(dialog->Totals()[0], 0.0);
    // A new selection starts a new count as well.
    box(0)->setText("1");
    move->click();
    QCOMPARE(total(0), QString("1,00 m W"));
    Click(window, 0, -10000);
    QCOMPARE(total(0), QString(""));
}

void SelectionWindowTest::rotateDialogTotalsCentreAndInputTest() {
    FAnlage* window = Open();
    QVERIFY(window);
    Click(window, 10000, 10000);
    window->Editor().ShowRotateDialog();
    FSelRotate* dialog = window->Editor().FormSelRotate();
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(test::MnemonicLabelsWithoutBuddy(*dialog), QStringList());
    auto* degrees = dialog->findChild<QLineEdit*>("txtDegrees");
    auto* centreX = dialog->findChild<QLineEdit*>("txtCenter0");
    auto* centreY = dialog->findChild<QLineEdit*>("txtCenter1");
    auto* sum = dialog->findChild<QLabel*>("lblSumme");
    auto* arrow = dialog->findChild<QLabel*>("picRot");
    auto* rotate = dialog->findChild<QPushButton*>("cmdRotate");
    // Without a centre of its own it turns about the middle of the selection, which the marker shows.
    QCOMPARE(centreX->text(), QString("100,00"));
    QVERIFY(window->Editor().RotCenterShown());
    // The angle is selected, so the first key typed replaces it, also after each step.
    QCOMPARE(degrees->selectedText(), degrees->text());
    // Two steps of 200 degrees to the left: 400, reduced modulo 360.
    degrees->setText("200");
    rotate->click();
    rotate->click();
    QCOMPARE(sum->text(), QString("40 Grad"));
    QCOMPARE(degrees->selectedText(), QString("200"));
    QVERIFY(!arrow->pixmap().isNull());
    const QImage left = arrow->pixmap().toImage();
    dialog->findChild<QRadioButton*>("rbRight")->setChecked(true);
    degrees->setText("52,5");
    rotate->click();
    QCOMPARE(sum->text(), QString("12,5 Grad"));
    QVERIFY(arrow->pixmap().toImage() != left);
    // Back to 0: the total and the arrow are cleared.
    dialog->findChild<QRadioButton*>("rbLeft")->setChecked(true);
    degrees->setText("12,5");
    rotate->click();
    QCOMPARE(sum->text(), QString(""));
    QVERIFY(arrow->pixmap().isNull());
    QCOMPARE(window->History().Count(), size_t(4));
    // A centre typed in moves the marker; one set on the plan fills the boxes.
    centreX->setText("-12,5");
    QTest::keyClick(centreX, Qt::Key_0);
    QCOMPARE(window->Plan()->Painter().RotCenterX, -1250.0);
    window->Editor().PickRotCenter();
    QVERIFY(window->Plan()->PointPicking());
    Click(window, -5000, 2500);
    QVERIFY(!window->Plan()->PointPicking());
    QCOMPARE(TextToDouble(FromQt(centreX->text())), std::round(window->Plan()->Painter().RotCenterX) / 100);
    QVERIFY(std::fabs(window->Plan()->Painter().RotCenterY - 2500) < window->View().PixelSize());
    QCOMPARE(window->Selection().Count(), 1); // picking the centre selects nothing
    // Bad input: the subject, the focus, nothing turns.
    centreY->setText("1,2,3");
    rotate->click();
    QCOMPARE(port->errors.back(),
             FormatMessage("Die Koordinate ist keine gültige Zahl!%mBitte korrigieren Sie Ihre Eingabe."));
    centreY->setText("-3");
    degrees->setText("1e300");
    rotate->click();
    QCOMPARE(port->errors.back(),
             FormatMessage("Der Winkel ist keine gültige Zahl!%mBitte korrigieren Sie Ihre Eingabe."));
    degrees->setText("100000");
    rotate->click();
    QVERIFY(QString::fromStdString(port->errors.back()).startsWith("Der Winkel ist zu groß"));
    QCOMPARE(window->History().Count(), size_t(4));
    // Closing the dialog hides the marker.
    dialog->close();
    QVERIFY(!window->Editor().RotCenterShown());
}

void SelectionWindowTest::selectionByIdNamesWhatItCouldNotTake() {
    FAnlage* window = Open();
    QVERIFY(window);
    Click(window, 0, -10000);
    const bool seen =
        test::WithModal<FSelGleisId>([&] { Command(window, "mnuSelGleisId")->trigger(); },
                                     [](FSelGleisId* dialog) {
                                         dialog->findChild<QLineEdit*>("txtIds")->setText("1, 3, 7..9");
                                         dialog->findChild<QCheckBox*>("chkAdd")->setChecked(true);
                                         dialog->accept();
                                     });
    QVERIFY(seen);
    QCOMPARE(Status(window), QString("2 Gleise, 0 Immobilien, 1 Gut ausgewählt"));
    QCOMPARE(port->infos.size(), size_t(1));
    QVERIFY(QString::fromStdString(port->infos[0]).endsWith("7..9"));
    // A list that cannot be read keeps the dialog open.
    test::WithModal<FSelGleisId>([&] { Command(window, "mnuSelGleisId")->trigger(); },
                                 [this](FSelGleisId* dialog) {
                                     dialog->findChild<QLineEdit*>("txtIds")->setText("1..x");
                                     dialog->accept();
                                     QVERIFY(dialog->isVisible());
                                     QVERIFY(QString::fromStdString(port->errors.back()).contains(">1..x<"));
                                 });
}

void SelectionWindowTest::hiddenKindsLeaveTheSelection() {
    FAnlage* window = Open();
    QVERIFY(window);
    Command(window, "mnuSelAll")->trigger();
    Settle(window);
    main->Options().SetGoodsVisible(false);
    window->RepaintPlan();
    window->Plan()->grab();
    QCOMPARE(Status(window), QString("3 Gleise, 2 Immobilien, 0 Güter ausgewählt"));
    // The height band likewise: the buildings stand at 0, the band starts above.
    window->Anlage().HoehenFilter().SetBottom(100);
    window->Anlage().HoehenFilter().SetBottomActive(true);
    window->RepaintPlan();
    window->Plan()->grab();
    QCOMPARE(Status(window), QString("Nichts ausgewählt"));
    main->Options().SetGoodsVisible(true);
}

void SelectionWindowTest::searchHitIsSelected() {
    FAnlage* window = Open();
    QVERIFY(window);
    CObjectSearch::Hit hit{CObjectSearch::Kind::Track, "Gleis 3", -7500, 6000, &TrackOf(window, 3), false};
    window->JumpTo(hit);
    QCOMPARE(window->Selection().Count(), 1);
    QVERIFY(TrackOf(window, 3).Selected());
    // A hidden one is shown where it would be, but not selected.
    TrackOf(window, 1).SetActive(false);
    hit.node = &TrackOf(window, 1);
    window->JumpTo(hit);
    QVERIFY(!TrackOf(window, 1).Selected());
}

// The selected building fills much of the window afterwards, centred; "Auf Inhalt zoomen" goes
// back to all of it.
void SelectionWindowTest::zoomToSelectionShowsItLarge() {
    FAnlage* window = Open();
    QVERIFY(window);
    Click(window, 10000, 10000);
    Click(window, -7500, 0, Qt::ShiftModifier);
    QCOMPARE(window->Selection().Count(), 2);
    const float before = window->View().Zoom();
    Command(window, "mnuSelZoom")->trigger();
    Settle(window);
    QVERIFY(window->View().Zoom() > before);
    // Both selected objects are in the window, the part between them takes most of its width.
    const QPoint house = Pixel(window, 10000, 10000);
    const QPoint track = Pixel(window, -10000, 0);
    const QRect plan = window->Plan()->rect();
    QVERIFY(plan.contains(house) && plan.contains(track));
    QVERIFY(house.x() - track.x() > plan.width() / 2);
    QCOMPARE(window->Selection().Count(), 2);
    QVERIFY(!window->Anlage().Changed());
}

void SelectionWindowTest::dialogsCloseWithTheLayout() {
    FAnlage* window = Open();
    QVERIFY(window);
    Command(window, "mnuSelAll")->trigger();
    window->Editor().ShowMoveDialog();
    window->Editor().ShowRotateDialog();
    QPointer<FSelMove> move = window->Editor().FormSelMove();
    QPointer<FSelRotate> rotate = window->Editor().FormSelRotate();
    QVERIFY(window->Editor().FormSelMove_Move(100, 0, 0));
    port->answer = false; // do not keep the window open to save
    QVERIFY(window->SubWindow()->close());
    QTest::qWait(0);
    QVERIFY(move.isNull());
    QVERIFY(rotate.isNull());
}

QTEST_MAIN(SelectionWindowTest)
#include "SelectionWindowTest.moc"
