#include "document/FParseLog.h"

#include "core/IUserInterface.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
const std::string kSeparator(30, '=');

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (true) {
        size_t end = text.find('\n', start);
        std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(std::move(line));
        if (end == std::string::npos)
            return lines;
        start = end + 1;
    }
}
} // namespace

void FParseLog::Open(const std::string& fileName) {
    fileName_ = fileName;
    text_.clear();
    hints_.clear();
    shitHappend_ = false;
    cancelled_ = false;
    finished_ = false;
}

void FParseLog::ErrLog(const std::string& text, bool isHint) {
    if (isHint) {
        shitHappend_ = true;
        hints_.push_back(text);
    }
    for (const std::string& line : SplitLines(text)) {
        text_ += line;
        text_ += kLineBreak;
    }
    text_ += kSeparator;
    text_ += kLineBreak;
    if (listener_)
        listener_(text, isHint);
}

void FParseLog::Cancel() {
    cancelled_ = true;
    ErrLog(FormatMessage("Sie haben das Einlesen der Anlage abgebrochen!"), false);
}

void FParseLog::FinalState() {
    if (text_.size() >= 2 && text_.compare(text_.size() - 2, 2, kLineBreak) == 0)
        text_.resize(text_.size() - 2);
    finished_ = true;
}

std::string FParseLog::ClipboardText() const {
    return FormatMessage("Kavrin gibt folgende Hinweise beim Laden der EEP-Anlage%n%1%m%2", fileName_, text_);
}

void FParseLog::SetListener(std::function<void(const std::string&, bool)> listener) {
    listener_ = std::move(listener);
}

} // namespace kavrin

namespace kavrin {

void AddParseHint(const std::string& text) {
    UI().ParseLog().ErrLog(text, true);
}

} // namespace kavrin
