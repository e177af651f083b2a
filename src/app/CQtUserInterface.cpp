#include "app/CQtUserInterface.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "app/FParseLogWindow.h"
#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

CQtUserInterface::CQtUserInterface() {
    parseLog_.SetListener([this](const std::string& entry, bool isHint) { OnLogEntry(entry, isHint); });
}

CQtUserInterface::~CQtUserInterface() {
    parseLog_.SetListener(nullptr);
    delete window_.data();
}

QWidget* CQtUserInterface::DialogParent() const {
    if (QWidget* active = QApplication::activeWindow())
        return active;
    return mainWindow_.data();
}

void CQtUserInterface::ErrorBox(const std::string& text) {
    if (hooks_.errorBox) {
        hooks_.errorBox(text);
        return;
    }
    QMessageBox box(QMessageBox::Critical, QString::fromUtf8(kProgramName), ToQt(text), QMessageBox::Ok,
                    DialogParent());
    box.exec();
}

void CQtUserInterface::InfoBox(const std::string& text) {
    if (hooks_.infoBox) {
        hooks_.infoBox(text);
        return;
    }
    QMessageBox box(QMessageBox::Information, QString::fromUtf8(kProgramName), ToQt(text), QMessageBox::Ok,
                    DialogParent());
    box.exec();
}

bool CQtUserInterface::Ask(const std::string& text) {
    if (hooks_.ask)
        return hooks_.ask(text);
    QMessageBox box(QMessageBox::Question, QString::fromUtf8(kProgramName), ToQt(text),
                    QMessageBox::Yes | QMessageBox::No, DialogParent());
    // German answers also where Qt's own translations are not installed.
    box.button(QMessageBox::Yes)->setText(ToQt(FormatMessage("&Ja")));
    box.button(QMessageBox::No)->setText(ToQt(FormatMessage("&Nein")));
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

bool CQtUserInterface::AskWithDontAskAgain(const std::string& text, bool& dontAskAgain) {
    if (hooks_.askDontAskAgain)
        return hooks_.askDontAskAgain(text, dontAskAgain);
    if (hooks_.ask)
        return hooks_.ask(text);
    QMessageBox box(QMessageBox::Question, QString::fromUtf8(kProgramName), ToQt(text),
                    QMessageBox::Yes | QMessageBox::No, DialogParent());
    box.button(QMessageBox::Yes)->setText(ToQt(FormatMessage("&Ja")));
    box.button(QMessageBox::No)->setText(ToQt(FormatMessage("&Nein")));
    box.setDefaultButton(QMessageBox::Yes);
    auto* check = new QCheckBox(ToQt(FormatMessage("Nicht mehr fragen")), &box);
    check->setObjectName(QStringLiteral("chkDontAskAgain"));
    box.setCheckBox(check);
    const bool yes = box.exec() == QMessageBox::Yes;
    dontAskAgain = check->isChecked();
    return yes;
}

void CQtUserInterface::ProcessPendingEvents() {
    if (hooks_.eventRound)
        hooks_.eventRound(++eventRounds_);
    if (loading_ && window_ && !window_->isVisible() && loadTimer_.elapsed() >= showDelay_)
        window_->show();
    if (eventTimer_.isValid() && eventTimer_.elapsed() < eventInterval_)
        return;
    QCoreApplication::processEvents();
    eventTimer_.start();
}

// The hourglass stands over the main window only: the parse-log window and message boxes that
// come up during a load keep the normal pointer, so that cancelling and answering feel normal.
void CQtUserInterface::SetWaitCursor(bool on) {
    if (on && waitCursorDepth_++ == 0) {
        waitCursorWindow_ = mainWindow_;
        waitCursorOverride_ = waitCursorWindow_.isNull();
        if (waitCursorOverride_)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            waitCursorWindow_->setCursor(Qt::WaitCursor);
    } else if (!on && waitCursorDepth_ > 0 && --waitCursorDepth_ == 0) {
        if (waitCursorOverride_)
            QApplication::restoreOverrideCursor();
        else if (waitCursorWindow_)
            waitCursorWindow_->unsetCursor();
    }
}

void CQtUserInterface::ShowStatus(const std::string& text) {
    if (statusLabel_)
        statusLabel_->setText(ToQt(text));
}

FParseLogWindow* CQtUserInterface::EnsureWindow() {
    if (!window_)
        window_ = new FParseLogWindow(parseLog_, mainWindow_.data());
    return window_;
}

void CQtUserInterface::BeginLoad(const std::string& path) {
    // A window still showing the hints of an earlier load stays open on its own.
    window_ = nullptr;
    EnsureWindow()->Start(path);
    loading_ = true;
    loadTimer_.start();
    eventRounds_ = 0;
}

void CQtUserInterface::EndLoad() {
    loading_ = false;
    if (!window_)
        return;
    window_->FinalState();
    if (parseLog_.SomethingHappened())
        return;
    window_->close();
    window_ = nullptr;
}

void CQtUserInterface::OnLogEntry(const std::string& entry, bool isHint) {
    FParseLogWindow* window = EnsureWindow();
    window->ErrLog(entry, isHint);
    if (!window->isVisible())
        window->show();
}

} // namespace kavrin
