// The plan of a document window, offscreen: fitting the layout to the picture and to its
// content, the zoom steps and commands, the scroll bars, the coordinate line, deferred drawing
// after resizes, culling at the edges, and the terrain bitmaps.

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
#include "PlanWindowFixture.h"
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
using kavrin::test::Near;
using kavrin::test::SendMouse;
using kavrin::test::SendWheel;

namespace {

QStringList ComboTexts(const QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

} // namespace

class PlanWindowTest : public QObject, public test::PlanWindowFixture {
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
    void opensFittedToTheContent();
    void zoomToContentAndWholeLayout();
    void resizesAreDrawnOnceTheTimerFires();
    void emptyPictureDrawsNothingAndDoesNotFail();
    void namesSignalsAndMouseToolsStayInStep();
    void nodesOnTheEdgeOfTheViewAreDrawn();
    void terrainBitmapsAreReportedOnceAndThePlanStillDraws();
    void acceptedColourMapIsTheBackground();
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
