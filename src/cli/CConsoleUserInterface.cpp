#include "cli/CConsoleUserInterface.h"

#include <ostream>

namespace kavrin {

std::string ConsoleText(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        if (c != '\r')
            out += c;
    return out;
}

CConsoleUserInterface::CConsoleUserInterface(std::ostream& out, std::ostream& err, bool answer)
    : out_(out), err_(err), answer_(answer) {
    parseLog_.SetListener([this](const std::string& entry, bool isHint) {
        if (hintsShown_)
            out_ << (isHint ? "Hinweis: " : "") << ConsoleText(entry) << '\n';
    });
}

void CConsoleUserInterface::ErrorBox(const std::string& text) {
    ++errors_;
    err_ << "Fehler: " << ConsoleText(text) << '\n';
}

void CConsoleUserInterface::InfoBox(const std::string& text) {
    err_ << "Hinweis: " << ConsoleText(text) << '\n';
}

bool CConsoleUserInterface::Ask(const std::string& text) {
    out_ << ConsoleText(text) << (answer_ ? " -> Ja" : " -> Nein") << '\n';
    return answer_;
}

} // namespace kavrin
