#pragma once

#include <QApplication>
#include <QHash>
#include <QString>

namespace kavrin {

// The editor's application object. An error that escapes whatever handles an event (a command,
// a window action, a paint, a timer) is caught here, reported through the common error report
// once the event is over, and the program goes on: a single fault must not end every open
// layout with its unsaved work. A failing paint is reported once per widget, not at every
// repaint.
class CSafeApplication : public QApplication {
    Q_OBJECT
public:
    CSafeApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // How many errors were caught so far (reported or, for repeated paints, not).
    int CaughtErrors() const { return caught_; }

private:
    void Report(QObject* receiver, int eventType);

    int caught_ = 0;
    // The last paint failure reported per widget.
    QHash<QObject*, QString> paintFailures_;
};

} // namespace kavrin
