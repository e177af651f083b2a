#pragma once

#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <string>

#include "AppTestSupport.h"
#include "app/CPlanWidget.h"
#include "app/FAnlage.h"

namespace kavrin::test {

inline bool Near(double a, double b, double tolerance = 1e-6) {
    return std::fabs(a - b) <= tolerance * std::max(1.0, std::fabs(b));
}

inline void SendMouse(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::NoButton) {
    Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

inline void SendWheel(QWidget* widget, QPoint at, int delta,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

// The main window with layouts written into a folder of the test's own and opened in plan
// windows.
class PlanWindowFixture : public MainWindowFixture {
protected:
    FAnlage* Open(const std::string& text, const QString& name = QStringLiteral("Plan.anl3")) {
        const QString path = dir_.filePath(name);
        WriteFile(path.toStdString(), text);
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

} // namespace kavrin::test
