// The plan of a document window, offscreen: fitting the layout to the picture, the zoom steps
// and commands, the scroll bars, the coordinate line, wheel and drag, deferred drawing after
// resizes, culling at the edges, and the terrain bitmaps.

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QWheelEvent>
#include <cmath>

#include "AppTestSupport.h"
#include "PlanFixtures.h"
#include "app/COptions.h"
#include "app/CPlanCommands.h"
#include "app/CPlanWidget.h"
#include "app/CQtCanvas.h"
#include "app/FAnlage.h"
#include "app/FParseLogWindow.h"
#include "app/modPlanTexts.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/NodeTree.h"
#include "nodes/CNodeGood.h"
#include "plan/CPlanPainter.h"
#include "plan/CViewOptions.h"

using namespace kavrin;

namespace {

bool Near(double a, double b, double tolerance = 1e-6) {
    return std::fabs(a - b) <= tolerance * std::max(1.0, std::fabs(b));
}

QStringList ComboTexts(const QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

void SendMouse(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::NoButton) {
    Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void SendWheel(QWidget* widget, QPoint at, int delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

} // namespace

class PlanWindowTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }
    void squareLayoutInWideAndTallWindows();
    void zoomStepsAsTheZoomBoxShowsThem();
    void zoomCommandsFollowTheSelectedStep();
    void chosenStepOneRecentresLargerStepsKeepTheCentre();
    void scrollBarsCountWorldUnits();
    void coordinateLineFollowsTheMouse();
    void coordinateTextUsesTheLocale();
    void wheelZoomsAboutTheMouse();
    void shiftWheelScrollsSideways();
    void opensFittedToTheContent();
    void zoomToContentAndWholeLayout();
    void typedFactorZoomsAndFocusReturnsToThePlan();
    void zoomFactorTexts();
    void keysScrollAndZoomThePlan();
    void middleButtonAndSpaceDragWithAnyTool();
    void moverToolDragsThePlan();
    void resizesAreDrawnOnceTheTimerFires();
    void emptyPictureDrawsNothingAndDoesNotFail();
    void namesSignalsAndMouseToolsStayInStep();
    void nodesOnTheEdgeOfTheViewAreDrawn();
    void terrainBitmapsAreReportedOnceAndThePlanStillDraws();
    void acceptedColourMapIsTheBackground();

private:
    FAnlage* Open(const std::string& text, const QString& name = QStringLiteral("Plan.anl3")) {
        const QString path = dir_.filePath(name);
        test::WriteFile(path.toStdString(), text);
        return main->OpenFile(path.toStdString());
    }
    // Waits for the deferred drawing and returns what the plan shows.
    static QImage Settled(FAnlage* window) {
        auto* timer = window->findChild<QTimer*>("PaintTimer");
        if (!QTest::qWaitFor([timer] { return !timer->isActive(); }))
            return {};
        return window->Plan()->grab().toImage();
    }
    static QComboBox* ZoomBox(FAnlage* window) { return window->findChild<QComboBox*>("cbZoom"); }
    static void SelectZoom(FAnlage* window, int index) { ZoomBox(window)->setCurrentIndex(index); }

    QTemporaryDir dir_;
};

// Square layouts: in a wide picture the layout fills the height and is centred left to right,
// in a tall one it fills the width and is centred top to bottom.
void PlanWindowTest::squareLayoutInWideAndTallWindows() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(100, 100, -5000, 2000)));
    QVERIFY(window);
    window->World();
    const CPlanView& view = window->View();
    struct Case {
        QSize size;
        bool wide;
    };
    for (const Case& c : {Case{{1000, 420}, true}, Case{{420, 900}, false}}) {
        window->SubWindow()->resize(c.size);
        QVERIFY(!Settled(window).isNull());
        QCOMPARE(view.ClientWidth(), window->Plan()->width());
        QCOMPARE(view.ClientHeight(), window->Plan()->height());
        QCOMPARE(view.Zoom(), 1.0f);
        if (c.wide) {
            QVERIFY(Near(-view.Height(), 10000));
            QVERIFY(view.Width() > 10000);
            QVERIFY(Near(view.Width() / -view.Height(), double(view.ClientWidth()) / view.ClientHeight()));
        } else {
            QVERIFY(Near(view.Width(), 10000));
            QVERIFY(-view.Height() > 10000);
        }
        QVERIFY(Near(view.Left() + view.Width() / 2, -5000 + 5000));
        QVERIFY(Near(view.Top() + view.Height() / 2, 2000 + 5000));
        // Nothing to scroll at the first step.
        QVERIFY(!window->findChild<QScrollBar*>("scrHor")->isEnabled());
        QVERIFY(!window->findChild<QScrollBar*>("scrVert")->isEnabled());
    }
}

void PlanWindowTest::zoomStepsAsTheZoomBoxShowsThem() {
    struct Case {
        int metres;
        QStringList steps;
    };
    const Case cases[] = {
        {74, {"1"}},                                           // below 75 m: one step
        {76, {"1", "2"}},                                      // 1.52 steps round to 2
        {5000, {"1", "2", "4", "8", "16", "32", "64", "128"}}, // 5 km: up to the first power >= 100
    };
    int n = 0;
    for (const Case& c : cases) {
        FAnlage* window = Open(test::PlanLayout(test::TerrainText(c.metres, c.metres / 2)),
                               QStringLiteral("Steps%1.anl3").arg(++n));
        QVERIFY(window);
        QCOMPARE(ComboTexts(ZoomBox(window)), c.steps);
        // A layout without content opens whole, on the first step.
        QCOMPARE(ZoomBox(window)->currentIndex(), 0);
        QCOMPARE(window->View().Zoom(), 1.0f);
    }
}

void PlanWindowTest::zoomCommandsFollowTheSelectedStep() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(400, 300)));
    QVERIFY(window);
    const CPlanCommands& commands = window->Commands();
    auto zoomIn = [&] { return commands.Button("ZoomIn")->isEnabled(); };
    auto zoomOut = [&] { return commands.Button("ZoomOut")->isEnabled(); };
    auto inSync = [&] {
        return commands.MenuItem("popAnlZoomIn")->isEnabled() == zoomIn() &&
               commands.MenuItem("popAnlZoomOut")->isEnabled() == zoomOut();
    };
    QCOMPARE(ComboTexts(ZoomBox(window)), QStringList({"1", "2", "4", "8"}));
    SelectZoom(window, 3);
    QVERIFY(!zoomIn() && zoomOut() && inSync()); // on the last entry
    commands.MenuItem("popAnlZoomOut")->trigger();
    QCOMPARE(ZoomBox(window)->currentText(), QString("4"));
    QCOMPARE(window->View().Zoom(), 4.0f);
    QVERIFY(zoomIn() && zoomOut() && inSync());
    commands.Button("World")->trigger();
    QCOMPARE(ZoomBox(window)->currentIndex(), 0);
    QVERIFY(zoomIn() && !zoomOut() && inSync()); // on the first entry
    commands.Button("ZoomOut")->trigger();       // nothing before the first
    QCOMPARE(ZoomBox(window)->currentIndex(), 0);
    commands.Button("ZoomIn")->trigger();
    QCOMPARE(window->View().Zoom(), 2.0f);
    commands.MenuItem("mnuAnlWorld")->trigger();
    QCOMPARE(window->View().Zoom(), 1.0f);

    FAnlage* small = Open(test::PlanLayout(test::TerrainText(60, 60)), QStringLiteral("Klein.anl3"));
    QVERIFY(small);
    QVERIFY(!small->Commands().Button("ZoomIn")->isEnabled());
    QVERIFY(!small->Commands().Button("ZoomOut")->isEnabled());
    QVERIFY(small->Commands().Button("World")->isEnabled());
}

void PlanWindowTest::chosenStepOneRecentresLargerStepsKeepTheCentre() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(5000, 5000, 100000, -200000)));
    QVERIFY(window);
    const CPlanView& view = window->View();
    const double midX = 100000 + 250000, midY = -200000 + 250000;
    SelectZoom(window, 1);
    QVERIFY(!Settled(window).isNull());
    auto* scrHor = window->findChild<QScrollBar*>("scrHor");
    auto* scrVert = window->findChild<QScrollBar*>("scrVert");
    scrHor->setValue(scrHor->maximum() / 4);
    scrVert->setValue(scrVert->maximum());
    const double x = view.CentreX(), y = view.CentreY();
    QVERIFY(!Near(x, midX) && !Near(y, midY));
    SelectZoom(window, 2); // 2 -> 4 keeps the centre
    QCOMPARE(view.Zoom(), 4.0f);
    QCOMPARE(view.CentreX(), x);
    QCOMPARE(view.CentreY(), y);
    SelectZoom(window, 0); // 1 again: the middle of the layout
    QCOMPARE(view.CentreX(), midX);
    QCOMPARE(view.CentreY(), midY);
}

void PlanWindowTest::scrollBarsCountWorldUnits() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(1000, 600, -30000, -20000)));
    QVERIFY(window);
    SelectZoom(window, 2);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    auto* scrHor = window->findChild<QScrollBar*>("scrHor");
    auto* scrVert = window->findChild<QScrollBar*>("scrVert");
    QVERIFY(scrHor->isEnabled() && scrVert->isEnabled());
    QCOMPARE(scrHor->maximum(), int(std::lround(view.ScrollRangeX())));
    QCOMPARE(scrVert->maximum(), int(std::lround(view.ScrollRangeY())));
    QCOMPARE(scrHor->pageStep(), int(std::lround(view.Width())));
    // Centred at first; the ends of the bars show the edges of the layout.
    QVERIFY(std::abs(scrHor->value() - scrHor->maximum() / 2) <= 1);
    scrHor->setValue(0);
    scrVert->setValue(0);
    QVERIFY(Near(view.Left(), -30000));
    QVERIFY(Near(view.Top(), -20000 + 60000));
    scrHor->setValue(scrHor->maximum());
    scrVert->setValue(scrVert->maximum());
    QVERIFY(std::fabs(view.Left() + view.Width() - (-30000 + 100000)) <= 1);
    QVERIFY(std::fabs(view.Top() + view.Height() - (-20000)) <= 1);
}

void PlanWindowTest::coordinateLineFollowsTheMouse() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(100, 100)));
    QVERIFY(window);
    QVERIFY(!Settled(window).isNull());
    auto* coord = window->findChild<QLabel*>("lblCoord");
    QVERIFY(coord->text().isEmpty());
    CPlanWidget* plan = window->Plan();
    const QPoint at(plan->width() / 4, plan->height() / 3);
    SendMouse(plan, QEvent::MouseMove, at);
    const CPlanView& view = window->View();
    QCOMPARE(coord->text(), CoordinateText(view.ToWorldX(at.x()), view.ToWorldY(at.y())));
    QVERIFY(coord->text().startsWith("X: ") && coord->text().contains(" m, Y: "));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(plan, &leave);
    QVERIFY(coord->text().isEmpty());
}

void PlanWindowTest::coordinateTextUsesTheLocale() {
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    struct Case {
        double x, y;
        QLocale locale;
        QString text;
    };
    const Case cases[] = {
        {123456789, -50, german, "X: 1.234.567,89 m, Y: -0,50 m"},
        {123456789, -50, english, "X: 1,234,567.89 m, Y: -0.50 m"},
        {0, 99999.4, german, "X: 0,00 m, Y: 999,99 m"},
        {-0.2, 100, german, "X: 0,00 m, Y: 1,00 m"}, // no "-0,00"
        {-1234567, 1, german, "X: -12.345,67 m, Y: 0,01 m"},
    };
    for (const Case& c : cases)
        QCOMPARE(CoordinateText(c.x, c.y, c.locale), c.text);
    // The C locale would leave out the thousands separator; the format asks for it.
    QCOMPARE(CoordinateText(123456789, 0, QLocale::c()), QString("X: 1,234,567.89 m, Y: 0.00 m"));
}

void PlanWindowTest::wheelZoomsAboutTheMouse() {
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
void PlanWindowTest::shiftWheelScrollsSideways() {
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
// A 1 km layout whose goods lie in a corner opens on them: they fill the picture, centred.
void PlanWindowTest::opensFittedToTheContent() {
    FAnlage* window =
        Open(test::PlanLayout(test::TerrainText(1000, 1000), {{70000, 80000, 0}, {76000, 83000, 0}}));
    QVERIFY(window);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    QVERIFY(view.Zoom() > 8);
    QVERIFY(Near(view.CentreX(), 73000) && Near(view.CentreY(), 81500));
    QVERIFY(view.Left() < 70000 && view.Left() + view.Width() > 76000);
    QVERIFY(view.Top() > 83000 && view.Top() + view.Height() < 80000);
    QVERIFY(view.Width() < 6000 * 1.3 || -view.Height() < 3000 * 1.3);
    for (const CNodeGood* good : test::Goods(window->Anlage()))
        QVERIFY(good->OnPlan());
    // Until the user changes the view, it stays fitted when the window changes its shape.
    QMdiSubWindow* sub = window->SubWindow();
    sub->resize(sub->width() / 2, sub->height());
    QVERIFY(!Settled(window).isNull());
    QVERIFY(Near(view.CentreX(), 73000) && Near(view.CentreY(), 81500));
    QVERIFY(view.Left() < 70000 && view.Left() + view.Width() > 76000);
    window->Plan()->setFocus();
    QTest::keyClick(window->Plan(), Qt::Key_Right);
    const double centre = view.CentreX();
    QVERIFY(centre > 73000);
    sub->resize(sub->width() * 2, sub->height());
    QVERIFY(!Settled(window).isNull());
    QCOMPARE(view.CentreX(), centre);
}

// Ctrl+0 shows the whole layout rectangle, Ctrl+9 ("Auf Inhalt zoomen", toolbar, menu and
// popup) the content again.
void PlanWindowTest::zoomToContentAndWholeLayout() {
    FAnlage* window =
        Open(test::PlanLayout(test::TerrainText(1000, 500), {{10000, 10000, 0}, {14000, 12000, 0}}));
    QVERIFY(window);
    QVERIFY(!Settled(window).isNull());
    const CPlanView& view = window->View();
    const float fitted = view.Zoom();
    QVERIFY(fitted > 1);
    const CPlanCommands& commands = window->Commands();
    QVERIFY(commands.Button("Content")->isEnabled());
    QCOMPARE(commands.Button("Content")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_9));
    window->Plan()->setFocus();
    QTest::keyClick(window->Plan(), Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(view.Zoom(), 1.0f);
    QCOMPARE(ZoomBox(window)->currentIndex(), 0);
    QTest::keyClick(window->Plan(), Qt::Key_9, Qt::ControlModifier);
    QCOMPARE(view.Zoom(), fitted);
    QVERIFY(Near(view.CentreX(), 12000));
    for (const char* item : {"mnuAnlContent", "popAnlContent"}) {
        window->World();
        QCOMPARE(view.Zoom(), 1.0f);
        commands.MenuItem(item)->trigger();
        QCOMPARE(view.Zoom(), fitted);
    }
    QVERIFY(commands.MenuItem("mnuAnlContent")->text().contains(QStringLiteral("Inhalt")));
}

void PlanWindowTest::typedFactorZoomsAndFocusReturnsToThePlan() {
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

void PlanWindowTest::zoomFactorTexts() {
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
void PlanWindowTest::keysScrollAndZoomThePlan() {
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
void PlanWindowTest::middleButtonAndSpaceDragWithAnyTool() {
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

void PlanWindowTest::moverToolDragsThePlan() {
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

void PlanWindowTest::resizesAreDrawnOnceTheTimerFires() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(100, 100)));
    QVERIFY(window);
    QVERIFY(!Settled(window).isNull());
    CPlanWidget* plan = window->Plan();
    auto* timer = window->findChild<QTimer*>("PaintTimer");
    const QSize before = plan->Picture().size();
    window->SubWindow()->resize(window->SubWindow()->size() + QSize(40, 30));
    window->SubWindow()->resize(window->SubWindow()->size() + QSize(40, 30));
    QVERIFY(timer->isActive());
    plan->grab(); // a paint while the timer runs shows the old picture
    QCOMPARE(plan->Picture().size(), before);
    QVERIFY(QTest::qWaitFor([timer] { return !timer->isActive(); }));
    plan->grab();
    QCOMPARE(plan->Picture().size(), plan->size());
    QCOMPARE(window->View().ClientWidth(), plan->width());
}

// A picture without pixels (the layout lays it out again at the next event round, so
// everything here runs before that).
void PlanWindowTest::emptyPictureDrawsNothingAndDoesNotFail() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(1000, 1000)));
    QVERIFY(window);
    QVERIFY(!Settled(window).isNull());
    CPlanWidget* plan = window->Plan();
    plan->resize(0, 0);
    QCOMPARE(plan->size(), QSize(0, 0));
    QVERIFY(!plan->Render());
    QVERIFY(!window->View().Scaled());
    window->ZoomOut();
    window->World();
    QVERIFY(!window->View().Scaled());
    QVERIFY(!window->findChild<QScrollBar*>("scrHor")->isEnabled());
    SendWheel(plan, {0, 0}, 120);
    SendMouse(plan, QEvent::MouseMove, {0, 0});
    QVERIFY(window->findChild<QLabel*>("lblCoord")->text().isEmpty());
    plan->grab();
    // A minimised window zooms without drawing and draws again when it is shown.
    window->SubWindow()->showMinimized();
    window->ZoomIn();
    window->SubWindow()->showNormal();
    QVERIFY(!Settled(window).isNull());
    QVERIFY(plan->Drawn());
    QCOMPARE(window->View().Zoom(), 2.0f);
    QVERIFY(port->errors.empty());
}

void PlanWindowTest::namesSignalsAndMouseToolsStayInStep() {
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(100, 100)));
    QVERIFY(window);
    const CPlanCommands& commands = window->Commands();
    QVERIFY(!commands.Button("Names")->isChecked() && !commands.MenuItem("mnuAnlNames")->isChecked());
    commands.MenuItem("mnuAnlNames")->trigger();
    QVERIFY(window->Plan()->Painter().WithNames);
    QVERIFY(commands.Button("Names")->isChecked());
    commands.Button("Names")->trigger();
    QVERIFY(!window->Plan()->Painter().WithNames);
    QVERIFY(!commands.MenuItem("mnuAnlNames")->isChecked());
    commands.Button("Signals")->trigger();
    QVERIFY(window->Plan()->Painter().WithSignals);
    QVERIFY(commands.MenuItem("mnuAnlSignals")->isChecked());
    // Exactly one mouse tool is pressed.
    QVERIFY(commands.Button("MousePointer")->isChecked() && !commands.Button("MouseMover")->isChecked());
    commands.Button("MouseMover")->trigger();
    QVERIFY(!commands.Button("MousePointer")->isChecked() && commands.Button("MouseMover")->isChecked());
    QCOMPARE(window->Plan()->cursor().shape(), Qt::OpenHandCursor);
    commands.Button("MouseMover")->trigger(); // pressing the pressed one keeps it
    QVERIFY(commands.Button("MouseMover")->isChecked());
    // Every key is there, and the window's menu is in the main window's menu bar.
    for (const char* key : {"Open", "Save", "SaveAs", "ZoomIn", "ZoomOut", "World", "Names", "Signals",
                            "HeightFilter", "MousePointer", "MouseMover"})
        QVERIFY2(commands.Button(key), key);
    QCOMPARE(window->Menus().back()->objectName(), QString("mnuAnl"));
}

// At step 2 a square 100 m layout in a square picture shows 25..75 m on both axes; goods are
// culled without a margin, so those exactly on an edge are drawn and those a hair outside not.
void PlanWindowTest::nodesOnTheEdgeOfTheViewAreDrawn() {
    const std::vector<test::GoodAt> goods = {
        {2500, 5000, 0},   {7500, 5000, 0},   {5000, 7500, 0},   {5000, 2500, 0},
        {2499.9, 5000, 0}, {7500.1, 5000, 0}, {5000, 7500.1, 0}, {5000, 2499.9, 0},
    };
    const QString path = dir_.filePath("Rand.anl3");
    test::WriteFile(path.toStdString(), test::PlanLayout(test::TerrainText(100, 100), goods));
    test::RecordingScope scope;
    CAnlage anlage;
    QVERIFY(anlage.Load(path.toStdString()));
    CPlanView view;
    QVERIFY(CPlanPainter::InitView(view, anlage));
    QCOMPARE(view.Zoom(), 2.0f);
    CViewOptions options;
    CPlanPainter painter(anlage, view, options);
    QImage image(100, 100, QImage::Format_RGB32);
    QPainter qp(&image);
    CQtCanvas canvas(qp, image.width(), image.height());
    QVERIFY(painter.DrawAll(canvas));
    QCOMPARE(view.Left(), 2500.0);
    QCOMPARE(view.Top(), 7500.0);
    const std::vector<CNodeGood*> nodes = test::Goods(anlage);
    QCOMPARE(nodes.size(), goods.size());
    for (size_t i = 0; i < nodes.size(); ++i)
        QVERIFY2(nodes[i]->OnPlan() == (i < 4), qPrintable(QString("good %1").arg(i)));
}

void PlanWindowTest::terrainBitmapsAreReportedOnceAndThePlanStillDraws() {
    test::WriteFile(dir_.filePath("KaputtH.bmp").toStdString(), "BM kein Bild");
    QVERIFY(test::WriteBitmap(dir_.filePath("KaputtT.bmp"), 10, 12, Qt::green));
    QVERIFY(test::WriteBitmap(dir_.filePath("KaputtB.bmp"), 100, 80, Qt::blue));
    const std::string files = "FarbenFile=\"\\KaputtF.bmp\" HoehenFile=\"\\KaputtH.bmp\" "
                              "TexturenFile=\"\\KaputtT.bmp\" TextureBinFile=\"\\KaputtB.bmp\"";
    FAnlage* window = Open(test::PlanLayout(test::TerrainText(100, 80, 0, 0, files), {{5000, 4000, 0}}));
    QVERIFY(window);
    const std::vector<std::string> expected = {
        "FarbenFile 'KaputtF.bmp' nicht vorhanden",
        FormatMessage("HoehenFile 'KaputtH.bmp' ist keine gültige BMP-Datei;%n"
                      "sie wird während dieser Sitzung ignoriert."),
        FormatMessage(
            "TexturenFile 'KaputtT.bmp' hat die falsche Größe 10 x 12;%nerwartet werden 100 x 80 Pixel."),
    };
    // One window, the parse log, holds them as hints; no message box comes up.
    QVERIFY(port->infos.empty());
    QVERIFY(port->errors.empty());
    QCOMPARE(port->ui.ParseLog().Hints(), expected);
    FParseLogWindow* log = port->ui.ParseLogWindow();
    QVERIFY(log && log->isVisible() && log->Finished());
    for (const std::string& hint : expected)
        for (const QString& line : ToQt(hint).split(QLatin1Char('\n')))
            QVERIFY2(log->LogText().contains(line.trimmed()), qPrintable(line));
    QVERIFY(!log->LogText().endsWith(QLatin1Char('\n')));
    // The status line tells that the colour map is missing, the hint in its tooltip.
    auto* notice = window->findChild<QLabel*>("lblBitmap");
    QCOMPARE(notice->text(), QString("Farbkarte fehlt"));
    QCOMPARE(notice->toolTip(), ToQt(expected.front()));
    const CTerrainBitmaps& bitmaps = window->TerrainBitmaps();
    QVERIFY(!bitmaps.Accepted(CTerrainBitmaps::FileF) && !bitmaps.Accepted(CTerrainBitmaps::FileT));
    QVERIFY(bitmaps.Accepted(CTerrainBitmaps::FileB));
    // The plan draws in its plain colour, with the good on it; drawing again reports nothing.
    window->World();
    const QImage picture = Settled(window);
    QVERIFY(window->Plan()->Drawn());
    QCOMPARE(picture.pixelColor(2, 2), ColorFromBgr(main->Options().BgColor()));
    QVERIFY(test::Goods(window->Anlage()).front()->OnPlan());
    window->ZoomIn();
    window->RepaintPlan();
    QVERIFY(!Settled(window).isNull());
    QCOMPARE(port->ui.ParseLog().Hints().size(), expected.size());
    QVERIFY(port->infos.empty());
}

void PlanWindowTest::acceptedColourMapIsTheBackground() {
    QVERIFY(test::WriteBitmap(dir_.filePath("FarbeF.bmp"), 100, 100, QColor(200, 30, 40)));
    FAnlage* window =
        Open(test::PlanLayout(test::TerrainText(100, 100, 0, 0, "FarbenFile=\"\\FarbeF.bmp\"")));
    QVERIFY(window);
    QVERIFY(port->ui.ParseLog().Hints().empty());
    QVERIFY(window->findChild<QLabel*>("lblBitmap")->text().isEmpty());
    QVERIFY(window->TerrainBitmaps().Accepted(CTerrainBitmaps::FileF));
    const QImage picture = Settled(window);
    QCOMPARE(picture.pixelColor(picture.width() / 2, picture.height() / 2), QColor(200, 30, 40));
}

QTEST_MAIN(PlanWindowTest)
#include "PlanWindowTest.moc"
