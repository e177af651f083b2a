#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kavrin {

// The parse log: collects the hints and messages of a load and holds the load-cancelled flag.
// A window (GUI) or the console shows it; it knows nothing about either.
class FParseLog {
public:
    // Starts a new load: clears the cancel flag, the hint flag and the text.
    void Open(const std::string& fileName);
    // Adds an entry: every line, then a separator line of 30 "=".
    void ErrLog(const std::string& text, bool isHint);
    // Asked from the cancel button: logs the cancellation and sets the flag.
    void Cancel();
    // Loading has ended: the last line break goes away.
    void FinalState();

    bool ShitHappend() const { return shitHappend_; }
    void SetShitHappend(bool value) { shitHappend_ = value; }
    bool SomethingHappened() const { return !text_.empty(); }
    bool Cancelled() const { return cancelled_; }
    bool Finished() const { return finished_; }
    const std::string& FileName() const { return fileName_; }
    const std::string& LogText() const { return text_; }
    const std::vector<std::string>& Hints() const { return hints_; }

    // The text that "copy to clipboard" puts there.
    std::string ClipboardText() const;

    // Called with every entry as it arrives (the window or the console shows it).
    void SetListener(std::function<void(const std::string& entry, bool isHint)> listener);

private:
    std::string fileName_;
    std::string text_;
    std::vector<std::string> hints_;
    bool shitHappend_ = false;
    bool cancelled_ = false;
    bool finished_ = false;
    std::function<void(const std::string&, bool)> listener_;
};

} // namespace kavrin
