#include "app/FRenumKeyIds.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"
#include "edit/CKeyIdRenumbering.h"

namespace kavrin {

FRenumKeyIds::FRenumKeyIds(const CKeyIdRenumbering& renumbering, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FRenumKeyIds"));
    setWindowTitle(ToQt(FormatMessage("Key-IDs neu nummerieren")));

    lblWarning_ = new QLabel(ToQt(CKeyIdRenumbering::WarningText()), this);
    lblWarning_->setObjectName(QStringLiteral("lblWarning"));
    lblWarning_->setWordWrap(true);
    auto* lblDangling = new QLabel(ToQt(renumbering.DanglingText()), this);
    lblDangling->setObjectName(QStringLiteral("lblDangling"));
    lblDangling->setWordWrap(true);
    lblDangling->setVisible(renumbering.DanglingReferences() > 0);
    auto* lblTable = new QLabel(ToQt(FormatMessage("%1 Key-IDs ändern sich (alt → neu):",
                                                   WholeNumberText(renumbering.ChangedCount()))),
                                this);
    txtTable_ = new QPlainTextEdit(ToQt(renumbering.TableText()), this);
    txtTable_->setObjectName(QStringLiteral("txtTable"));
    txtTable_->setReadOnly(true);
    txtTable_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtTable_->setMinimumSize(320, 220);
    cmdCopy_ = new QPushButton(ToQt(FormatMessage("Tabelle in die &Zwischenablage kopieren")), this);
    cmdCopy_->setObjectName(QStringLiteral("cmdCopy"));
    connect(cmdCopy_, &QPushButton::clicked, this, &FRenumKeyIds::CopyTable);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOk"));
    ok->setText(ToQt(FormatMessage("&Nummerieren")));
    QPushButton* cancel = buttons->button(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setText(ToQt(FormatMessage("Abbrechen")));
    // Renumbering is what the user is warned about: it is not the default answer.
    cancel->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &FRenumKeyIds::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &FRenumKeyIds::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblWarning_);
    layout->addWidget(lblDangling);
    layout->addSpacing(8);
    layout->addWidget(lblTable);
    layout->addWidget(txtTable_, 1);
    layout->addWidget(cmdCopy_, 0, Qt::AlignLeft);
    layout->addWidget(buttons);
}

void FRenumKeyIds::CopyTable() {
    QGuiApplication::clipboard()->setText(txtTable_->toPlainText());
}

} // namespace kavrin
