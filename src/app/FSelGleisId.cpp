#include "app/FSelGleisId.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"
#include "nodes/CGleise.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CObjectTexte.h"
#include "nodes/LayoutLookup.h"
#include "plan/CViewOptions.h"

namespace kavrin {

FSelGleisId::FSelGleisId(const CAnlage& anlage, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FSelGleisId"));
    setWindowTitle(ToQt(FormatMessage("Gleise nach ID auswählen")));

    cbSystem_ = new QComboBox(this);
    cbSystem_->setObjectName(QStringLiteral("cbSystem"));
    // Only the track systems the plan draws: the others cannot be selected.
    for (const CNodeGleisSys* system : TrackSystems(anlage))
        if (system->Gleise().Count() > 0 && CViewOptions::TrackStyleOfSystem(system->Number()) > 0)
            cbSystem_->addItem(ToQt(FormatMessage("%1 (%2 Gleise)", CObjectTexte::GleisSystem(system->ID()),
                                                  WholeNumberText(system->Gleise().Count()))),
                               static_cast<int>(system->ID()));
    txtIds_ = new QLineEdit(this);
    txtIds_->setObjectName(QStringLiteral("txtIds"));
    txtIds_->setPlaceholderText(ToQt(FormatMessage("z. B. 12, 40..55, -3")));
    txtIds_->setMinimumWidth(260);
    chkAdd_ = new QCheckBox(ToQt(FormatMessage("zur bisherigen Auswahl &hinzufügen")), this);
    chkAdd_->setObjectName(QStringLiteral("chkAdd"));

    auto* form = new QFormLayout;
    form->addRow(ToQt(FormatMessage("&Gleissystem:")), cbSystem_);
    form->addRow(ToQt(FormatMessage("Gleis-&IDs:")), txtIds_);
    form->addRow(QString(), chkAdd_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOk"));
    buttons->button(QDialogButtonBox::Cancel)->setText(ToQt(FormatMessage("Abbrechen")));
    buttons->button(QDialogButtonBox::Ok)->setEnabled(cbSystem_->count() > 0);
    connect(buttons, &QDialogButtonBox::accepted, this, &FSelGleisId::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &FSelGleisId::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

int16_t FSelGleisId::SystemId() const {
    return static_cast<int16_t>(cbSystem_->currentData().toInt());
}

bool FSelGleisId::AddToSelection() const {
    return chkAdd_->isChecked();
}

void FSelGleisId::accept() {
    std::string error;
    if (cbSystem_->count() == 0 || !ids_.Parse(FromQt(txtIds_->text()), error)) {
        if (!error.empty())
            ErrorBox(error);
        txtIds_->setFocus();
        return;
    }
    QDialog::accept();
}

} // namespace kavrin
