#pragma once

#include <string>
#include <vector>

#include "core/IUserInterface.h"
#include "document/FParseLog.h"

namespace kavrin {

// A user interface without a user: records every text and answers questions with a preset.
// Used by the tests, and as the process-wide default until a real one is installed.
class CRecordingUserInterface : public IUserInterface {
public:
    void ErrorBox(const std::string& text) override { errors.push_back(text); }
    bool Ask(const std::string& text) override {
        questions.push_back(text);
        return answer;
    }
    FParseLog& ParseLog() override { return parseLog; }
    void ProcessPendingEvents() override {
        ++eventRounds;
        if (cancelAfterRounds > 0 && eventRounds >= cancelAfterRounds && !parseLog.Cancelled())
            parseLog.Cancel();
    }
    void SetWaitCursor(bool) override {}
    void ShowStatus(const std::string& text) override { statuses.push_back(text); }

    std::vector<std::string> errors;
    std::vector<std::string> questions;
    std::vector<std::string> statuses;
    FParseLog parseLog;
    bool answer = false;
    long eventRounds = 0;
    long cancelAfterRounds = 0; // simulates the cancel button after so many event rounds
};

} // namespace kavrin
