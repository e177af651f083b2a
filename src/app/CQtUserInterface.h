#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <functional>
#include <string>

#include "app/FParseLogWindow.h"
#include "core/IUserInterface.h"
#include "document/FParseLog.h"

namespace kavrin {

// The user-interface port of the desktop program: message boxes, the parse-log window, the
// status label of the document being loaded or closed, and the wait cursor.
class CQtUserInterface : public IUserInterface {
public:
    CQtUserInterface();
    ~CQtUserInterface() override;
    CQtUserInterface(const CQtUserInterface&) = delete;
    CQtUserInterface& operator=(const CQtUserInterface&) = delete;

    void ErrorBox(const std::string& text) override;
    // A notice only: the information icon, not the error one.
    void InfoBox(const std::string& text) override;
    bool Ask(const std::string& text) override;
    // The Yes/No question with a "Nicht mehr fragen" check box; `dontAskAgain` tells whether it
    // was ticked.
    bool AskWithDontAskAgain(const std::string& text, bool& dontAskAgain);
    FParseLog& ParseLog() override { return parseLog_; }
    // Lets Qt handle events, at most every `EventInterval` milliseconds: a load calls this once
    // per element, and millions of event rounds would cost more than the load itself.
    void ProcessPendingEvents() override;
    // The hourglass stands over the main window only: the parse-log window and message boxes
    // that come up during a load keep the normal pointer. Calls nest.
    void SetWaitCursor(bool on) override;
    void ShowStatus(const std::string& text) override;

    // The window that owns message boxes and the parse-log window, and shows the wait cursor.
    void SetMainWindow(QWidget* window) { mainWindow_ = window; }
    // Where ShowStatus writes (the status label of the document window being loaded or closed).
    void SetStatusLabel(QLabel* label) { statusLabel_ = label; }

    // A load begins: a fresh parse-log window collects its entries; it appears with the first
    // entry, or when the load takes longer than `ShowDelay`, so that it can be cancelled.
    void BeginLoad(const std::string& path);
    // The load has ended: the window goes into its final state, or away when nothing was logged.
    void EndLoad();
    FParseLogWindow* ParseLogWindow() const { return window_; }

    // Tuning and test hooks. A hook, when set, answers instead of a message box.
    struct Hooks {
        std::function<void(const std::string&)> errorBox;
        std::function<void(const std::string&)> infoBox;
        std::function<bool(const std::string&)> ask;
        // For the question with the check box; without it `ask` answers and the box stays clear.
        std::function<bool(const std::string&, bool& dontAskAgain)> askDontAskAgain;
        std::function<void(long round)> eventRound; // called before every event round
    };
    void SetHooks(Hooks hooks) { hooks_ = std::move(hooks); }
    void SetEventInterval(int milliseconds) { eventInterval_ = milliseconds; }
    void SetShowDelay(int milliseconds) { showDelay_ = milliseconds; }

private:
    void OnLogEntry(const std::string& entry, bool isHint);
    FParseLogWindow* EnsureWindow();
    QWidget* DialogParent() const;

    FParseLog parseLog_;
    QPointer<QWidget> mainWindow_;
    QPointer<QLabel> statusLabel_;
    QPointer<QWidget> waitCursorWindow_;
    QPointer<FParseLogWindow> window_;
    QElapsedTimer eventTimer_;
    QElapsedTimer loadTimer_;
    Hooks hooks_;
    long eventRounds_ = 0;
    int waitCursorDepth_ = 0;
    bool waitCursorOverride_ = false;
    int eventInterval_ = 30;
    int showDelay_ = 400;
    bool loading_ = false;
};

} // namespace kavrin
