#include "app/FParseLogWindow.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTextCursor>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/FParseLog.h"

namespace kavrin {

namespace {
const QString kSeparator = QString(30, QLatin1Char('='));
}

FParseLogWindow::FParseLogWindow(FParseLog& model, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName(QStringLiteral("FParseLog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(ToQt(FormatMessage("Einlesen der Anlage")));

    auto* fileLabel = new QLabel(ToQt(FormatMessage("Datei:")), this);
    txtFile_ = new QLineEdit(this);
    txtFile_->setObjectName(QStringLiteral("txtFile"));
    txtFile_->setReadOnly(true);
    auto* fileRow = new QHBoxLayout;
    fileRow->addWidget(fileLabel);
    fileRow->addWidget(txtFile_, 1);

    // Loading has no known end; the bar only shows that Kavrin is still at work.
    prgLoad_ = new QProgressBar(this);
    prgLoad_->setObjectName(QStringLiteral("prgLoad"));
    prgLoad_->setRange(0, 0);
    prgLoad_->setTextVisible(false);
    prgLoad_->setMaximumHeight(10);

    fraHints_ = new QFrame(this);
    fraHints_->setObjectName(QStringLiteral("fraHints"));
    lblHinweis_ = new QLabel(ToQt(FormatMessage("Beim Einlesen der Anlage sind Hinweise aufgetreten. "
                                                "Bitte prüfen Sie die Anlage, bevor Sie sie speichern.")),
                             fraHints_);
    lblHinweis_->setObjectName(QStringLiteral("lblHinweis"));
    lblHinweis_->setWordWrap(true);
    lblHinweis_->setStyleSheet(QStringLiteral("color: #8a3b00; font-weight: bold;"));
    txErrLog_ = new QPlainTextEdit(fraHints_);
    txErrLog_->setObjectName(QStringLiteral("txErrLog"));
    txErrLog_->setReadOnly(true);
    txErrLog_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txErrLog_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* hintLayout = new QVBoxLayout(fraHints_);
    hintLayout->setContentsMargins(0, 0, 0, 0);
    hintLayout->addWidget(lblHinweis_);
    hintLayout->addWidget(txErrLog_, 1);

    cmdClipbrd_ = new QPushButton(ToQt(FormatMessage("In die &Zwischenablage")), this);
    cmdClipbrd_->setObjectName(QStringLiteral("cmdClipbrd"));
    cmdCancel_ = new QPushButton(ToQt(FormatMessage("&Abbrechen")), this);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdOk_ = new QPushButton(ToQt(FormatMessage("OK")), this);
    cmdOk_->setObjectName(QStringLiteral("cmdOk"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdClipbrd_);
    buttons->addStretch(1);
    buttons->addWidget(cmdCancel_);
    buttons->addWidget(cmdOk_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fileRow);
    layout->addWidget(prgLoad_);
    layout->addWidget(fraHints_, 1);
    layout->addLayout(buttons);

    connect(cmdOk_, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdCancel_, &QPushButton::clicked, this, &FParseLogWindow::CmdCancelClick);
    connect(cmdClipbrd_, &QPushButton::clicked, this, &FParseLogWindow::CmdClipbrdClick);

    Start({});
}

void FParseLogWindow::Start(const std::string& fileName) {
    txtFile_->setText(ToQt(fileName));
    txErrLog_->clear();
    fraHints_->hide();
    lblHinweis_->hide();
    prgLoad_->show();
    cmdClipbrd_->setEnabled(false);
    cmdCancel_->setEnabled(true);
    cmdOk_->setEnabled(false);
    clipboardText_.clear();
    finished_ = false;
    resize(560, sizeHint().height());
}

void FParseLogWindow::ShowHintFrame() {
    if (!fraHints_->isHidden())
        return;
    fraHints_->show();
    resize(qMax(width(), 680), qMax(height(), 420));
}

void FParseLogWindow::ErrLog(const std::string& text, bool isHint) {
    ShowHintFrame();
    if (isHint)
        lblHinweis_->show();
    QTextCursor cursor(txErrLog_->document());
    cursor.movePosition(QTextCursor::End);
    for (const QString& line : ToQt(text).split(QLatin1Char('\n')))
        cursor.insertText(line + QLatin1Char('\n'));
    cursor.insertText(kSeparator + QLatin1Char('\n'));
    txErrLog_->ensureCursorVisible();
}

void FParseLogWindow::FinalState() {
    QTextCursor cursor(txErrLog_->document());
    cursor.movePosition(QTextCursor::End);
    if (cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor) &&
        cursor.selectedText() == QChar::ParagraphSeparator)
        cursor.removeSelectedText();
    clipboardText_ = QString::fromStdString(model_.ClipboardText());
    finished_ = true;
    prgLoad_->hide();
    cmdOk_->setEnabled(true);
    cmdCancel_->setEnabled(false);
    cmdClipbrd_->setEnabled(true);
    cmdOk_->setDefault(true);
    cmdOk_->setFocus();
}

QString FParseLogWindow::LogText() const {
    return txErrLog_->toPlainText();
}

void FParseLogWindow::CmdCancelClick() {
    if (finished_ || model_.Cancelled())
        return;
    if (Ask(FormatMessage("Einlesen der Anlage wirklich abbrechen?")))
        model_.Cancel();
}

void FParseLogWindow::CmdClipbrdClick() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(clipboardText_);
}

// Closing the window while the layout still loads is the cancel button.
void FParseLogWindow::closeEvent(QCloseEvent* event) {
    if (finished_ || !cmdCancel_->isEnabled()) {
        event->accept();
        return;
    }
    event->ignore();
    CmdCancelClick();
}

void FParseLogWindow::reject() {
    close();
}

} // namespace kavrin
