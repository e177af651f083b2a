#include "app/FHelpText.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

FHelpText::FHelpText(const std::string& title, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FHelpText"));
    setWindowTitle(ToQt(title));
    setAttribute(Qt::WA_DeleteOnClose);
    text_ = new QTextBrowser(this);
    text_->setObjectName(QStringLiteral("txtHelp"));
    text_->setOpenExternalLinks(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(ToQt(FormatMessage("Schließen")));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_, 1);
    layout->addWidget(buttons);
    resize(760, 620);
}

bool FHelpText::ShowFile(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QString content = QString::fromUtf8(file.readAll());
    if (path.size() > 5 && path.compare(path.size() - 5, 5, ".html") == 0) {
        // Relative links and pictures are looked for beside the file.
        text_->document()->setBaseUrl(QUrl::fromLocalFile(QFileInfo(file).absolutePath() + '/'));
        text_->setHtml(content);
    } else {
        text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        text_->setPlainText(content);
    }
    return true;
}

QString FHelpText::Text() const {
    return text_->toPlainText();
}

} // namespace kavrin
