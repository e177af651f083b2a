// Errors inside the editor's event handlers, offscreen: the application catches what escapes a
// command, a timer or a paint, reports it through the common error report once the event is
// over, and every window goes on; a failing paint is reported once, not at every repaint.

#include <QEvent>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "AppTestSupport.h"
#include "TestSupport.h"
#include "app/CPlanWidget.h"
#include "app/CSafeApplication.h"
#include "app/FAnlage.h"
#include "app/FMain.h"
#include "core/CError.h"
#include "document/CAnlage.h"

using namespace kavrin;

namespace {

const std::string kSample = test::SamplePath("Demo-Linien.anl3");

// Throws from every paint of the widget it watches while armed.
class FailingPaint : public QObject {
public:
    bool armed = true;
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Paint || !armed)
            return false;
        ++paints;
        throw CError(9, "Index außerhalb des gültigen Bereichs");
    }
};

int ErrorsNaming(const std::vector<std::string>& errors, const std::string& part) {
    int count = 0;
    for (const std::string& error : errors)
        count += error.find(part) != std::string::npos ? 1 : 0;
    return count;
}

} // namespace

class RobustnessTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }

    void anErrorInsideACommandLeavesEveryWindowAlive() {
        FAnlage* window = main->OpenFile(kSample);
        QVERIFY(window);
        auto* command = new QPushButton(QStringLiteral("Fehler"), window);
        command->show();
        connect(command, &QPushButton::clicked, [] { throw CError(13, "Typen unverträglich"); });
        QTest::mouseClick(command, Qt::LeftButton);
        QTRY_COMPARE(ErrorsNaming(port->errors, "Fehler 13: Typen unverträglich"), 1);
        QVERIFY(port->errors.back().find("Prozedur: QPushButton.MouseButtonRelease") != std::string::npos);
        // The window and its layout are still there and still work.
        QCOMPARE(main->Anlagen().size(), size_t(1));
        QVERIFY(window->isVisible());
        window->ZoomIn();
        QVERIFY(window->Anlage().RootNode());
        std::string copy = folder->File("Kopie.anl3");
        QVERIFY(window->Anlage().Save(copy));
        QVERIFY(test::ReadFile(copy).size() > 1000);
    }

    void anErrorInsideATimerIsReportedAndTheTimersGoOn() {
        int ticks = 0;
        QTimer timer;
        timer.setInterval(1);
        connect(&timer, &QTimer::timeout, [&ticks] {
            if (++ticks == 1)
                throw std::runtime_error("Zeitgeber");
        });
        timer.start();
        QTRY_VERIFY(ticks >= 3);
        QCOMPARE(ErrorsNaming(port->errors, "Interner Fehler: Zeitgeber"), 1);
    }

    void aFailingPaintIsReportedOnceNotAtEveryRepaint() {
        FAnlage* window = main->OpenFile(kSample);
        QVERIFY(window);
        FailingPaint failing;
        window->Plan()->installEventFilter(&failing);
        for (int i = 0; i < 5; ++i) {
            window->Plan()->repaint();
            QTest::qWait(5);
        }
        QVERIFY(failing.paints >= 5);
        QTRY_COMPARE(ErrorsNaming(port->errors, "Prozedur: CPlanWidget.Paint"), 1);
        QTest::qWait(20);
        QCOMPARE(ErrorsNaming(port->errors, "Prozedur: CPlanWidget.Paint"), 1);
        failing.armed = false;
        window->Plan()->repaint();
        QTest::qWait(20);
        QCOMPARE(ErrorsNaming(port->errors, "Prozedur:"), 1);
        QCOMPARE(main->Anlagen().size(), size_t(1));
    }
};

int main(int argc, char** argv) {
    CSafeApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    RobustnessTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "RobustnessTest.moc"
