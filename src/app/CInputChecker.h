#pragma once

#include <QObject>
#include <string_view>

class QLineEdit;

namespace kavrin {

// Keeps the number boxes of the dialogs to what can form a number in the user's notation
// (digits, a sign and the decimal separator) and tests what was typed or pasted. The decimal
// separator is the one TextToDouble reads, so that every text it lets through converts.
class CInputChecker : public QObject {
    Q_OBJECT
public:
    explicit CInputChecker(QObject* parent = nullptr);

    // Filters the key presses of a box from now on.
    void Watch(QLineEdit* box);

    // Whether a typed character can be part of a number.
    static bool AcceptsChar(char32_t c);
    // The number test: an optional sign, digits with at most one decimal separator, at least one
    // digit. An empty text passes: an empty box stands for 0 (or for a limit not in use).
    static bool IsNumber(std::string_view text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kavrin
