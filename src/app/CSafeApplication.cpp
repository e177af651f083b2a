#include "app/CSafeApplication.h"

#include <QEvent>
#include <QMetaEnum>
#include <QTimer>

#include "core/modTools.h"

namespace kavrin {

namespace {
// "FAnlage.Paint": the class that handled the event and the event.
std::string ProcedureOf(const QObject* receiver, int eventType) {
    QString className = QString::fromLatin1(receiver ? receiver->metaObject()->className() : "QObject");
    className.remove(QStringLiteral("kavrin::"));
    const char* event = QMetaEnum::fromType<QEvent::Type>().valueToKey(eventType);
    return className.toStdString() + "." + (event ? event : std::to_string(eventType));
}
} // namespace

CSafeApplication::CSafeApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool CSafeApplication::notify(QObject* receiver, QEvent* event) {
    const int type = event->type();
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        Report(receiver, type);
        return false;
    }
}

// The box is shown after the event, from the event loop: a box inside a paint would paint
// again, and the handler that failed has left its state half done.
void CSafeApplication::Report(QObject* receiver, int eventType) {
    ++caught_;
    CError failure = CError::FromCurrentException();
    std::string procedure = ProcedureOf(receiver, eventType);
    if (eventType == QEvent::Paint) {
        QString text = QString::fromStdString(procedure + ": " + failure.Description());
        if (paintFailures_.value(receiver) == text)
            return;
        if (!paintFailures_.contains(receiver))
            connect(receiver, &QObject::destroyed, this,
                    [this, receiver] { paintFailures_.remove(receiver); });
        paintFailures_.insert(receiver, text);
    }
    QTimer::singleShot(0, this, [procedure, failure] { ReportError(procedure, failure); });
}

} // namespace kavrin
