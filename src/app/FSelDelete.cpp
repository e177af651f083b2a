#include "app/FSelDelete.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"
#include "nodes/CObjectTexte.h"
#include "plan/CSelection.h"

namespace kavrin {

namespace {
QLabel* NamedLabel(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    return label;
}
} // namespace

FSelDelete::FSelDelete(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FSelDelete"));
    setWindowTitle(ToQt(FormatMessage("Auswahl löschen")));
    txtAnlage_ = new QLineEdit(this);
    txtAnlage_->setObjectName(QStringLiteral("txtAnlage"));
    txtAnlage_->setReadOnly(true);
    fraSelected_ = new QGroupBox(ToQt(FormatMessage("Ausgewählt sind")), this);
    fraSelected_->setObjectName(QStringLiteral("fraSelected"));
    lblCountGleise_ = NamedLabel("lblCountGleise", fraSelected_);
    lblCountImmos_ = NamedLabel("lblCountImmos", fraSelected_);
    lblCountGoods_ = NamedLabel("lblCountGoods", fraSelected_);
    auto* counts = new QVBoxLayout(fraSelected_);
    counts->addWidget(lblCountGleise_);
    counts->addWidget(lblCountImmos_);
    counts->addWidget(lblCountGoods_);
    lblZugverband_ = NamedLabel("lblZugverband", this);
    lblZugverband_->setText(
        ToQt(FormatMessage("Diese Zugverbände stehen auf den Gleisen und werden mit gelöscht:")));
    lbRollies_ = new QListWidget(this);
    lbRollies_->setObjectName(QStringLiteral("lbRollies"));
    lbRollies_->addItem(ToQt(FormatMessage(">>>>>  Keine Zugverbände in der Auswahl")));
    lblLocked_ = NamedLabel("lblLocked", this);
    lblLocked_->setWordWrap(true);
    lblLocked_->hide();
    lblQuery_ = NamedLabel("lblQuery", this);
    QFont bold = lblQuery_->font();
    bold.setBold(true);
    lblQuery_->setFont(bold);

    auto* buttons = new QDialogButtonBox(this);
    cmdOk_ = buttons->addButton(ToQt(FormatMessage("&Löschen")), QDialogButtonBox::AcceptRole);
    cmdOk_->setObjectName(QStringLiteral("cmdOk"));
    cmdCancel_ = buttons->addButton(ToQt(FormatMessage("Abbrechen")), QDialogButtonBox::RejectRole);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel_->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &FSelDelete::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &FSelDelete::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtAnlage_);
    layout->addWidget(fraSelected_);
    layout->addWidget(lblZugverband_);
    layout->addWidget(lbRollies_);
    layout->addWidget(lblLocked_);
    layout->addWidget(lblQuery_);
    layout->addWidget(buttons);
}

void FSelDelete::Init(const std::string& anlage, const CSelection& selection, int32_t locked) {
    txtAnlage_->setText(ToQt(anlage));
    lblCountGleise_->setText(
        ToQt(FormatMessage(" %1 Gleise, Strassen etc.", WholeNumberText(selection.CountGleise()))));
    lblCountImmos_->setText(
        ToQt(FormatMessage(" %1 Immos, Bäume etc.", WholeNumberText(selection.CountImmos()))));
    lblCountGoods_->setText(ToQt(FormatMessage(" %1 Ladegüter", WholeNumberText(selection.CountGoods()))));
    const bool many = selection.Count() > 1;
    lblQuery_->setText(ToQt(FormatMessage("Wollen Sie %1diese%2 Objekt%3 wirklich löschen ?",
                                          many ? "all " : "", many ? "" : "s", many ? "e" : "")));
    lblLocked_->setVisible(locked > 0);
    lblLocked_->setText(
        ToQt(FormatMessage(locked == 1 ? "%1 Objekt der Auswahl ist in EEP gesperrt und bleibt erhalten."
                                       : "%1 Objekte der Auswahl sind in EEP gesperrt und bleiben erhalten.",
                           WholeNumberText(locked))));
}

void FSelDelete::RegisterRolli(int32_t pool, const std::string& name, int32_t vehicles) {
    if (!anyRolli_)
        lbRollies_->clear();
    else if (pool != lastPool_)
        lbRollies_->addItem(ToQt(FormatMessage("%1 %2 %1", "----------", CObjectTexte::Fuhrpark(pool))));
    anyRolli_ = true;
    lastPool_ = pool;
    lbRollies_->addItem(ToQt(FormatMessage("%1 (%2 Stück)", name, WholeNumberText(vehicles))));
}

void FSelDelete::accept() {
    cancelled_ = false;
    QDialog::accept();
}

} // namespace kavrin
