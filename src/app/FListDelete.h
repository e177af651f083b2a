#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace kavrin {

// What FSignalsDel and FContactsDel share: the layout (txtAnlage), the list of what can be
// deleted with its number of uses (lbDel, lines "%1 -- (%2)", several chosen at once) under its
// title (lblLbTitle), a note (lblHinweis), cmdSelAll and cmdSelNone, cmdDelete (asks, deletes the
// chosen lines, lists anew) and cmdDone. The deletion itself is the owner's.
class FListDelete : public QDialog {
    Q_OBJECT
public:
    struct Line {
        std::string key;  // what the deletion is handed
        std::string text; // the name shown
        int32_t count = 0;
        bool unknown = false; // marked "nicht im Bestand"
    };
    using Lister = std::function<std::vector<Line>()>;
    // Deletes the chosen keys; false when nothing was deleted.
    using Deleter = std::function<bool(const std::vector<std::string>& keys)>;

    void Init(const std::string& anlage, Lister lister, Deleter deleter);
    // The keys of the chosen lines.
    std::vector<std::string> Chosen() const;

protected:
    // `one` and `many` name a single object and a number of them in the question ("ein Signal",
    // "%1 Signale"); `source` is the procedure name of the error report.
    FListDelete(const char* objectName, const std::string& title, const std::string& listTitle,
                const char* one, const char* many, const char* source, QWidget* parent);
    QVBoxLayout* Layout() const { return layout_; }
    QLabel* Hinweis() const { return lblHinweis_; }
    // Fills the list anew from the lister.
    virtual void FillList();
    const std::vector<Line>& Lines() const { return lines_; }

private:
    void cmdDelete_Click();
    void UpdateButtons();

    QLineEdit* txtAnlage_ = nullptr;
    QLabel* lblLbTitle_ = nullptr;
    QListWidget* lbDel_ = nullptr;
    QLabel* lblHinweis_ = nullptr;
    QPushButton* cmdSelAll_ = nullptr;
    QPushButton* cmdSelNone_ = nullptr;
    QPushButton* cmdDelete_ = nullptr;
    QPushButton* cmdDone_ = nullptr;
    QVBoxLayout* layout_ = nullptr;
    const char* one_;
    const char* many_;
    const char* source_;
    Lister lister_;
    Deleter deleter_;
    std::vector<Line> lines_;
};

} // namespace kavrin
