#pragma once

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include <QTest>
#include <memory>

#include "TestSupport.h"
#include "app/CQtUserInterface.h"
#include "app/FMain.h"
#include "core/IUserInterface.h"

namespace kavrin::test {

// The texts of the labels in `dialog` that promise a shortcut key ("&Winkel") but lead nowhere:
// without a buddy the label shows the ampersand and Alt+key does nothing.
inline QStringList MnemonicLabelsWithoutBuddy(const QWidget& dialog) {
    QStringList found;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        const QString text = QString(label->text()).replace(QStringLiteral("&&"), QString());
        if (text.contains(QLatin1Char('&')) && label->textFormat() != Qt::RichText && !label->buddy())
            found << label->text();
    }
    return found;
}

// The desktop port, installed for one test, with its message boxes answered by the test:
// error and information texts and questions are recorded, questions answered from `answers` (then `answer`).
class QtPort {
public:
    QtPort() : previous_(SetUI(&ui)) {
        hooks.errorBox = [this](const std::string& text) { errors.push_back(text); };
        hooks.infoBox = [this](const std::string& text) { infos.push_back(text); };
        hooks.ask = [this](const std::string& text) {
            questions.push_back(text);
            if (answers.empty())
                return answer;
            bool next = answers.front();
            answers.pop_front();
            return next;
        };
        ui.SetHooks(hooks);
    }
    ~QtPort() { SetUI(previous_); }
    QtPort(const QtPort&) = delete;
    QtPort& operator=(const QtPort&) = delete;

    CQtUserInterface ui;
    // The recording hooks; a test that adds one of its own starts from these.
    CQtUserInterface::Hooks hooks;
    std::vector<std::string> errors;
    std::vector<std::string> infos;
    std::vector<std::string> questions;
    std::deque<bool> answers;
    bool answer = false;

private:
    IUserInterface* previous_;
};

// The user's settings store, moved into a folder of the test's own and emptied.
class SettingsSandbox {
public:
    SettingsSandbox() {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.path());
        Clear();
    }
    void Clear() { Store().clear(); }
    // The text stored under section/key, or "(fehlt)".
    std::string Raw(const char* section, const std::string& key) {
        QVariant value = Store().value(QString::fromLatin1(section) + '/' + QString::fromStdString(key));
        return value.isValid() ? value.toString().toStdString() : "(fehlt)";
    }
    // Writes the store's file by hand, as a user with an editor would.
    void WriteByHand(const std::string& text) {
        QString file = Store().fileName();
        Store().clear();
        QFile out(file);
        if (out.open(QIODevice::WriteOnly))
            out.write(QByteArray::fromStdString(text));
    }
    void Put(const char* section, const std::string& key, const QString& value) {
        Store().setValue(QString::fromLatin1(section) + '/' + QString::fromStdString(key), value);
    }

private:
    static QSettings Store() {
        return QSettings(QSettings::IniFormat, QSettings::UserScope, "Kavrin", "Kavrin");
    }
    QTemporaryDir folder_;
};

// Runs `open`, which shows a modal window; `inspect` gets it when it is a `Dialog`. Whatever
// modal window `inspect` leaves open is then cancelled, so that a test never hangs.
template <typename Dialog>
bool WithModal(const std::function<void()>& open, const std::function<void(Dialog*)>& inspect) {
    bool seen = false;
    QTimer timer;
    timer.setInterval(10);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        QPointer<QWidget> modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        timer.stop();
        if (auto* dialog = qobject_cast<Dialog*>(modal.data())) {
            seen = true;
            inspect(dialog);
        }
        if (modal && modal->isVisible()) {
            if (auto* dialog = qobject_cast<QDialog*>(modal.data()))
                dialog->reject();
            else
                modal->close();
        }
    });
    timer.start();
    open();
    return seen;
}

// A shown main window with sandboxed settings, a temporary folder and a recording Qt port;
// window tests derive from it and call Start() in init() and Stop() in cleanup().
class MainWindowFixture {
protected:
    bool Start() {
        settings = std::make_unique<SettingsSandbox>();
        folder = std::make_unique<TempDir>();
        port = std::make_unique<QtPort>();
        main = std::make_unique<FMain>(port->ui);
        port->ui.SetMainWindow(main.get());
        main->show();
        return QTest::qWaitForWindowExposed(main.get());
    }
    void Stop() {
        main.reset();
        port.reset();
        folder.reset();
        settings.reset();
    }

    std::unique_ptr<SettingsSandbox> settings;
    std::unique_ptr<TempDir> folder;
    std::unique_ptr<QtPort> port;
    std::unique_ptr<FMain> main;
};

} // namespace kavrin::test
