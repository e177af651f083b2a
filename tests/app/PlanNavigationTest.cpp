// Moving about the plan, offscreen: the wheel, pinch and typed factors zoom between the steps,
// the keys scroll and zoom, the middle button, Space and the mover tool drag, and resting over
// an object shows what it is.

#include <QAction>
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <cmath>

#include "PlanFixtures.h"
#include "PlanWindowFixture.h"
#include "app/CPlanCommands.h"
#include "app/CPlanWidget.h"
#include "app/FAnlage.h"
#include "app/modPlanTexts.h"
#include "app/modQtText.h"
#include "core/modTools.h"

using namespace kavrin;
using namespace kavrin::test;

class PlanNavigationTest : public QObject, public test::PlanWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }
    void wheelZoomsAboutTheMouse();
    void shiftWheelScrollsSideways();
    void typedFactorZoomsAndFocusReturnsToThePlan();
    void zoomFactorTexts();
    void keysScrollAndZoomThePlan();
    void middleButtonAndSpaceDragWithAnyTool();
    void moverToolDragsThePlan();
    void restingOverAnObjectShowsItsTip();
};

void PlanNavigationTest::wheelZoomsAboutTheMouse() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(2000, 2000)));
    QVERIFY(window);
    SelectZoom(window, 2);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    CPlanWidget* plan = window->Plan();
    const QPoint at(plan->width() / 3, plan->height() / 3);
    const double x = view.ToWorldX(at.x()), y = view.ToWorldY(at.y());
    auto stays = [&] {
        return std::fabs(view.ToWorldX(at.x()) - x) < view.PixelSize() &&
               std::fabs(view.ToWorldY(at.y()) - y) < view.PixelSize();
    };
    // Three notches double the factor, between the steps; the box shows the factor.
    SendWheel(plan, at, 120);
    QVERIFY(Near(view.Zoom(), 4 * CPlanWidget::WheelNotchFactor(), 1e-5));
    QCOMPARE(ZoomBox(window)->currentIndex(), -1);
    QCOMPARE(ZoomBox(window)->currentText(), ToQt(ZoomFactorText(view.Zoom())));
    QVERIFY(stays());
    SendWheel(plan, at, 240);
    QVERIFY(Near(view.Zoom(), 8, 1e-5));
    QCOMPARE(ZoomBox(window)->currentIndex(), 3);
    QVERIFY(stays());
    // Half notches zoom by half as much, Ctrl+wheel zooms as well; at a corner the view stays
    // on the layout.
    SendWheel(plan, at, 60, Qt::ControlModifier);
    QVERIFY(Near(view.Zoom(), 8 * std::sqrt(CPlanWidget::WheelNotchFactor()), 1e-5));
    QVERIFY(stays());
    SendWheel(plan, QPoint(0, 0), -1200);
    QCOMPARE(view.Zoom(), 1.0f);
    QVERIFY(Near(view.CentreX(), 100000));
    SendWheel(plan, QPoint(0, 0), 360);
    QVERIFY(Near(view.Zoom(), 2, 1e-5));
    QVERIFY(view.Left() >= view.PosX() - 1e-6 || view.ScrollRangeX() <= 0);
    QVERIFY(view.Top() <= view.PosY() + view.ExtY() + 1e-6 || view.ScrollRangeY() <= 0);
}

// Shift+wheel scrolls sideways by a tenth of the picture per notch, the zoom stays.
void PlanNavigationTest::shiftWheelScrollsSideways() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(2000, 2000)));
    QVERIFY(window);
    SelectZoom(window, 3);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    CPlanWidget* plan = window->Plan();
    const double left = view.Left(), top = view.Top();
    SendWheel(plan, {10, 10}, -120, Qt::ShiftModifier);
    QCOMPARE(view.Zoom(), 8.0f);
    QVERIFY(Near(view.Left(), left + 0.1 * plan->width() * view.PixelSize()));
    QCOMPARE(view.Top(), top);
    QCOMPARE(window->findChild<QScrollBar*>("scrHor")->value(), int(std::lround(view.ScrollValueX())));
}

void PlanNavigationTest::typedFactorZoomsAndFocusReturnsToThePlan() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(2000, 2000)));
    QVERIFY(window);
    QVERIFY(!Settled(window).isNull());
    QComboBox* box = ZoomBox(window);
    // Only digits and one separator get into the box; factors beyond the closest view are
    // clamped (ten metres across the 2 km layout).
    struct Case {
        QString typed;
        float zoom;
    };
    for (const Case& c : {Case{"3,5", 3.5f}, Case{"12.25", 12.25f}, Case{"abc", 12.25f}, Case{"0", 12.25f},
                          Case{"4", 4.0f}, Case{"1e9", 19.0f}, Case{"900000", 200.0f}}) {
        box->setFocus();
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), c.typed);
        QTest::keyClick(box->lineEdit(), Qt::Key_Return);
        QCOMPARE(window->View().Zoom(), c.zoom);
        QCOMPARE(box->currentText(), ToQt(ZoomFactorText(c.zoom)));
        QVERIFY2(window->Plan()->hasFocus(), qPrintable(c.typed));
    }
    // Choosing an entry also hands the keys back to the plan.
    box->setFocus();
    box->setCurrentIndex(2);
    emit box->activated(2);
    QCOMPARE(window->View().Zoom(), 4.0f);
    QVERIFY(window->Plan()->hasFocus());
}

void PlanNavigationTest::zoomFactorTexts() {
    const UserNumberFormat previous = GetUserNumberFormat();
    SetUserNumberFormat({',', '.'});
    struct Shown {
        float factor;
        std::string text;
    };
    for (const Shown& c : {Shown{4, "4"}, Shown{2.371f, "2,37"}, Shown{12.46f, "12,5"}, Shown{140.4f, "140"},
                           Shown{1.999f, "2"}})
        QCOMPARE(ZoomFactorText(c.factor), c.text);
    struct Read {
        std::string text;
        bool ok;
        float factor;
    };
    for (const Read& c :
         {Read{"2,5", true, 2.5f}, Read{" 3.25 ", true, 3.25f}, Read{"7", true, 7}, Read{"", false, 0},
          Read{"0", false, 0}, Read{"-2", false, 0}, Read{"2,5x", false, 0}, Read{"1,2,3", false, 0}}) {
        float factor = 0;
        QCOMPARE(ReadZoomFactor(c.text, factor), c.ok);
        if (c.ok)
            QCOMPARE(factor, c.factor);
    }
    SetUserNumberFormat(previous);
}

// Arrows move by a tenth of the picture, PgUp/PgDn by most of a page, + and - zoom by steps;
// a click gives the plan the keys.
void PlanNavigationTest::keysScrollAndZoomThePlan() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(2000, 2000)));
    QVERIFY(window);
    SelectZoom(window, 3);
    QVERIFY(!Settled(window).isNull());
    CPlanWidget* plan = window->Plan();
    ZoomBox(window)->setFocus();
    SendMouse(plan, QEvent::MouseButtonPress, {50, 50}, Qt::LeftButton);
    SendMouse(plan, QEvent::MouseButtonRelease, {50, 50}, Qt::LeftButton);
    QVERIFY(plan->focusPolicy() & Qt::ClickFocus);
    plan->setFocus(); // what the click does in a real window system
    const CPlanView& view = window->View();
    const double pixel = view.PixelSize();
    struct Case {
        Qt::Key key;
        double dx, dy; // pixels the view moves (x right, y down)
    };
    const Case cases[] = {
        {Qt::Key_Right, 0.1 * plan->width(), 0},     {Qt::Key_Left, -0.1 * plan->width(), 0},
        {Qt::Key_Down, 0, 0.1 * plan->height()},     {Qt::Key_Up, 0, -0.1 * plan->height()},
        {Qt::Key_PageDown, 0, 0.9 * plan->height()}, {Qt::Key_PageUp, 0, -0.9 * plan->height()},
    };
    for (const Case& c : cases) {
        const double left = view.Left(), top = view.Top();
        QTest::keyClick(plan, c.key);
        QVERIFY2(Near(view.Left(), left + c.dx * pixel, 1e-9) && Near(view.Top(), top - c.dy * pixel, 1e-9),
                 qPrintable(QKeySequence(c.key).toString()));
    }
    QCOMPARE(window->findChild<QScrollBar*>("scrVert")->value(), int(std::lround(view.ScrollValueY())));
    QTest::keyClick(plan, Qt::Key_Plus);
    QCOMPARE(view.Zoom(), 16.0f);
    QTest::keyClick(plan, Qt::Key_Minus);
    QTest::keyClick(plan, Qt::Key_Minus, Qt::KeypadModifier);
    QCOMPARE(view.Zoom(), 4.0f);
    QCOMPARE(ZoomBox(window)->currentText(), QString("4"));
    // The scroll stops at the layout's edge.
    for (int i = 0; i < 40; ++i)
        QTest::keyClick(plan, Qt::Key_Left);
    QVERIFY(Near(view.Left(), view.PosX()));
}

// The middle button drags with the pointer tool too, and so does the left one while Space is
// held; letting Space go ends that.
void PlanNavigationTest::middleButtonAndSpaceDragWithAnyTool() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(2000, 2000)));
    QVERIFY(window);
    SelectZoom(window, 2);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    CPlanWidget* plan = window->Plan();
    QCOMPARE(plan->CurrentTool(), CPlanWidget::Tool::Pointer);
    auto drag = [&](Qt::MouseButton button, QPoint from, QPoint to) {
        SendMouse(plan, QEvent::MouseButtonPress, from, button);
        SendMouse(plan, QEvent::MouseMove, to, button);
        SendMouse(plan, QEvent::MouseButtonRelease, to, button);
    };
    double left = view.Left();
    drag(Qt::MiddleButton, {100, 100}, {140, 100});
    QVERIFY(std::fabs(view.Left() - (left - 40 * view.PixelSize())) < 1);
    left = view.Left();
    plan->setFocus();
    QTest::keyPress(plan, Qt::Key_Space);
    QCOMPARE(plan->cursor().shape(), Qt::OpenHandCursor);
    drag(Qt::LeftButton, {100, 100}, {70, 100});
    QVERIFY(std::fabs(view.Left() - (left + 30 * view.PixelSize())) < 1);
    QTest::keyRelease(plan, Qt::Key_Space);
    QCOMPARE(plan->cursor().shape(), Qt::ArrowCursor);
    left = view.Left();
    drag(Qt::LeftButton, {100, 100}, {70, 100});
    QCOMPARE(view.Left(), left);
}

void PlanNavigationTest::moverToolDragsThePlan() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(2000, 2000)));
    QVERIFY(window);
    SelectZoom(window, 2);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    CPlanWidget* plan = window->Plan();
    const double left = view.Left(), top = view.Top();
    // The pointer tool does not drag.
    SendMouse(plan, QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton);
    SendMouse(plan, QEvent::MouseMove, {160, 70}, Qt::LeftButton);
    SendMouse(plan, QEvent::MouseButtonRelease, {160, 70}, Qt::LeftButton);
    QCOMPARE(view.Left(), left);
    window->Commands().Button("MouseMover")->trigger();
    SendMouse(plan, QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton);
    SendMouse(plan, QEvent::MouseMove, {160, 70}, Qt::LeftButton);
    QCOMPARE(view.Left(), left); // the picture moves, the plan is drawn when the button is let go
    SendMouse(plan, QEvent::MouseButtonRelease, {160, 70}, Qt::LeftButton);
    QVERIFY(std::fabs(view.Left() - (left - 60 * view.PixelSize())) < 1);
    QVERIFY(std::fabs(view.Top() - (top - 30 * view.PixelSize())) < 1);
    QCOMPARE(window->findChild<QScrollBar*>("scrHor")->value(), int(std::lround(view.ScrollValueX())));
}

// A good in an otherwise empty layout: the window opens on it; the mouse on or beside it shows
// its tip, away from it none.
void PlanNavigationTest::restingOverAnObjectShowsItsTip() {
    FAnlage* window = Open(PlanLayout(TerrainText(100, 100), {{5000, 5000, 0}}));
    QVERIFY(window);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    CPlanWidget* plan = window->Plan();
    const QPointF good(view.ToPixelX(5000), view.ToPixelY(5000));
    const QString tip = plan->ToolTipAt(good);
    QVERIFY2(tip.startsWith(QStringLiteral("Gut\nModell: Kiste")), qPrintable(tip));
    QVERIFY(tip.contains(QStringLiteral("Position: 50")));
    QCOMPARE(plan->ToolTipAt(good + QPointF(4, -3)), tip);
    QVERIFY(plan->ToolTipAt(good + QPointF(60, 60)).isEmpty());
    QHelpEvent help(QEvent::ToolTip, good.toPoint(), plan->mapToGlobal(good.toPoint()));
    QVERIFY(QApplication::sendEvent(plan, &help));
    QCOMPARE(QToolTip::text(), tip);
    QHelpEvent away(QEvent::ToolTip, (good + QPointF(60, 60)).toPoint(),
                    plan->mapToGlobal((good + QPointF(60, 60)).toPoint()));
    QApplication::sendEvent(plan, &away);
    QTRY_VERIFY(!QToolTip::isVisible());
}

QTEST_MAIN(PlanNavigationTest)
#include "PlanNavigationTest.moc"
