#include "app/FOptSettings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/CSettingsStore.h"
#include "app/modMain.h"
#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

namespace {

QLabel* InfoLabel(const std::string& text, QWidget* parent) {
    auto* label = new QLabel(text.empty() ? ToQt(FormatMessage("(nicht gefunden)")) : ToQt(text), parent);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

} // namespace

FOptSettings::FOptSettings(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FOptSettings"));
    setWindowTitle(ToQt(FormatMessage("Einstellungen")));

    auto* folders = new QGroupBox(ToQt(FormatMessage("Anlagen")), this);
    txtPathAnlagen_ = new QLineEdit(folders);
    txtPathAnlagen_->setObjectName(QStringLiteral("txtPathAnlagen"));
    txtPathAnlagen_->setText(ToQt(LayoutsDirectory()));
    txtPathAnlagen_->setMinimumWidth(360);
    auto* browse = new QPushButton(ToQt(FormatMessage("&Durchsuchen ...")), folders);
    browse->setObjectName(QStringLiteral("cmdBrowse"));
    connect(browse, &QPushButton::clicked, this, &FOptSettings::Browse);
    auto* pathRow = new QHBoxLayout;
    pathRow->addWidget(txtPathAnlagen_, 1);
    pathRow->addWidget(browse);
    auto* pathLabel = new QLabel(ToQt(FormatMessage("&Verzeichnis der Anlagen:")), folders);
    pathLabel->setBuddy(txtPathAnlagen_);
    auto* folderForm = new QFormLayout(folders);
    folderForm->addRow(pathLabel, pathRow);

    const EepInstallation& installation = Installation();
    auto* eep = new QGroupBox(ToQt(FormatMessage("EEP-Installation")), this);
    auto* eepForm = new QFormLayout(eep);
    eepForm->addRow(ToQt(FormatMessage("EEP-Verzeichnis:")), InfoLabel(installation.eepDirectory, eep));
    eepForm->addRow(ToQt(FormatMessage("Resourcen:")), InfoLabel(installation.resourceDirectory, eep));
    chkAskResources_ =
        new QCheckBox(ToQt(FormatMessage("Beim &Start fragen, wenn die EEP-Resourcen fehlen")), eep);
    chkAskResources_->setObjectName(QStringLiteral("chkAskResources"));
    chkAskResources_->setChecked(AskAboutMissingResourceDirectory());
    eepForm->addRow(ToQt(FormatMessage("Höhen:")),
                    InfoLabel(FormatMessage("%1 m bis %2 m", installation.hoeheMin / 100.0,
                                            installation.hoeheMax / 100.0),
                              eep));
    eepForm->addRow(chkAskResources_);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setText(ToQt(FormatMessage("Abbrechen")));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(folders);
    layout->addWidget(eep);
    layout->addWidget(buttons);
}

void FOptSettings::Browse() {
    QString folder = QFileDialog::getExistingDirectory(this, ToQt(FormatMessage("Verzeichnis der Anlagen")),
                                                       txtPathAnlagen_->text());
    if (!folder.isEmpty())
        txtPathAnlagen_->setText(QDir::toNativeSeparators(folder));
}

// An empty folder gives the start folder back to the simulator's layouts.
void FOptSettings::accept() {
    std::string path = FromQt(txtPathAnlagen_->text().trimmed());
    if (path.empty()) {
        CSettingsStore::Delete("Settings", "PathAnlagen");
    } else if (!DirectoryExists(path)) {
        ErrorBox(FormatMessage("Das Verzeichnis%n%1%ngibt es nicht.", path));
        return;
    } else {
        CSettingsStore::Save("Settings", "PathAnlagen", path);
    }
    SetAskAboutMissingResourceDirectory(chkAskResources_->isChecked());
    QDialog::accept();
}

} // namespace kavrin
