#pragma once

#include <iosfwd>

#include "core/IUserInterface.h"
#include "document/FParseLog.h"

namespace kavrin {

// The command-line tool's user interface: hints go to standard output as they arrive, error
// boxes to standard error, questions are answered with a preset.
class CConsoleUserInterface : public IUserInterface {
public:
    CConsoleUserInterface(std::ostream& out, std::ostream& err, bool answer = false);

    void ErrorBox(const std::string& text) override;
    // A notice, not a failure: it does not count as an error.
    void InfoBox(const std::string& text) override;
    bool Ask(const std::string& text) override;
    FParseLog& ParseLog() override { return parseLog_; }
    void ProcessPendingEvents() override {}
    void SetWaitCursor(bool) override {}
    void ShowStatus(const std::string&) override {}

    void SetHintsShown(bool shown) { hintsShown_ = shown; }
    int ErrorCount() const { return errors_; }

private:
    std::ostream& out_;
    std::ostream& err_;
    bool answer_;
    bool hintsShown_ = true;
    int errors_ = 0;
    FParseLog parseLog_;
};

// Line breaks of message texts ("\r\n") as the console wants them.
std::string ConsoleText(const std::string& text);

} // namespace kavrin
