#pragma once

#include <QObject>
#include <string_view>

class QLineEdit;

namespace kavrin {

// Keeps the number boxes of the dialogs to what can form a number (digits, a sign and a decimal
// comma or point: users type either, whatever their locale) and tests what was typed or pasted.
// There is no digit grouping: "1.500" is one and a half. Every text it lets through converts
// with TextToDouble.
class CInputChecker : public QObject {
    Q_OBJECT
public:
    explicit CInputChecker(QObject* parent = nullptr);

    // Filters the key presses of a box from now on.
    void Watch(QLineEdit* box);

    // Whether a typed character can be part of a number.
    static bool AcceptsChar(char32_t c);
    // The number test: digits with at most one comma or point, at least one digit; no sign, no
    // exponent, no grouping. An empty text passes: an empty box stands for 0 (or for a limit
    // not in use).
    static bool IsNumber(std::string_view text);
    // The signed-number test: the same with an optional sign in front.
    static bool IsSignedNumber(std::string_view text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kavrin
