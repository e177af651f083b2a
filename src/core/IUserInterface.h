#pragma once

#include <string>

namespace kavrin {

class FParseLog;

// Everything the Qt-free code needs from whoever talks to the user: the GUI answers with
// message boxes and the parse-log window, the command-line tool and the tests with texts.
class IUserInterface {
public:
    virtual ~IUserInterface() = default;

    virtual void ErrorBox(const std::string& text) = 0;
    // A notice that needs no decision (a terrain bitmap that is ignored, for example).
    virtual void InfoBox(const std::string& text) { ErrorBox(text); }
    // Yes/No question; true only for Yes.
    virtual bool Ask(const std::string& text) = 0;
    // The parse log that collects hints while a layout loads (and holds the cancel flag).
    virtual FParseLog& ParseLog() = 0;
    // Lets the user interface handle pending events (the GUI throttles this itself).
    virtual void ProcessPendingEvents() = 0;
    virtual void SetWaitCursor(bool on) = 0;
    // Short status of the document being loaded or closed ("wird aufgebaut ...").
    virtual void ShowStatus(const std::string& text) = 0;
};

// The process-wide port. Without an installed one, a silent recording port answers No.
IUserInterface& UI();
// Installs a port; returns the previous one. The caller keeps ownership.
IUserInterface* SetUI(IUserInterface* ui);

} // namespace kavrin
