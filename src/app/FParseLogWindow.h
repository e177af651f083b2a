#pragma once

#include <QDialog>
#include <QString>

class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace kavrin {

class FParseLog;

// The window of the parse log: the file being loaded, the hints as they arrive, and the
// buttons to cancel the load, copy the hints to the clipboard and close the window.
// Controls: txtFile, txErrLog, lblHinweis, cmdOk, cmdCancel, cmdClipbrd.
class FParseLogWindow : public QDialog {
    Q_OBJECT
public:
    FParseLogWindow(FParseLog& model, QWidget* parent);

    // A load begins: empty log, cancel possible, nothing to copy yet.
    void Start(const std::string& fileName);
    // One entry of the model: every line, then the separator line.
    void ErrLog(const std::string& text, bool isHint);
    // The load has ended: OK, copy to the clipboard; cancelling is over.
    void FinalState();

    bool Finished() const { return finished_; }
    QString LogText() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void CmdCancelClick();
    void CmdClipbrdClick();
    void ShowHintFrame();

    FParseLog& model_;
    QLineEdit* txtFile_;
    QProgressBar* prgLoad_;
    QFrame* fraHints_;
    QLabel* lblHinweis_;
    QPlainTextEdit* txErrLog_;
    QPushButton* cmdOk_;
    QPushButton* cmdCancel_;
    QPushButton* cmdClipbrd_;
    QString clipboardText_;
    bool finished_ = false;
};

} // namespace kavrin
