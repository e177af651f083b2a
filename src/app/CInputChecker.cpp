#include "app/CInputChecker.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "core/modTools.h"

namespace kavrin {

namespace {
bool IsDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

// Keys that edit or move (backspace, tab, Ctrl+V ...) carry no printable text and always pass.
bool IsControl(char32_t c) {
    return c < 0x20 || c == 0x7F;
}
} // namespace

CInputChecker::CInputChecker(QObject* parent) : QObject(parent) {}

void CInputChecker::Watch(QLineEdit* box) {
    box->installEventFilter(this);
}

bool CInputChecker::AcceptsChar(char32_t c) {
    return IsDigit(c) || c == U'+' || c == U'-' || c == U',' || c == U'.';
}

bool CInputChecker::IsSignedNumber(std::string_view text) {
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        text.remove_prefix(1);
        if (text.empty())
            return false;
    }
    return IsNumber(text);
}

bool CInputChecker::IsNumber(std::string_view text) {
    size_t i = 0;
    int digits = 0;
    bool separatorSeen = false;
    for (; i < text.size(); ++i) {
        if (IsDigit(static_cast<unsigned char>(text[i])))
            ++digits;
        else if ((text[i] == ',' || text[i] == '.') && !separatorSeen)
            separatorSeen = true;
        else
            return false;
    }
    return digits > 0 || text.empty();
}

bool CInputChecker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const QString typed = static_cast<QKeyEvent*>(event)->text();
    for (char32_t c : typed.toUcs4())
        if (!IsControl(c) && !AcceptsChar(c))
            return true; // swallowed
    return false;
}

} // namespace kavrin
