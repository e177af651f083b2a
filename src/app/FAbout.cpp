#include "app/FAbout.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "app/CAppIcon.h"
#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

FAbout::FAbout(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FAbout"));
    setWindowTitle(ToQt(FormatMessage("Info über %1", kProgramName)));

    auto* icon = new QLabel(this);
    icon->setPixmap(CAppIcon::Pixmap(96));
    icon->setAlignment(Qt::AlignTop);

    auto* name = new QLabel(ToQt(kProgramName), this);
    name->setObjectName(QStringLiteral("lblName"));
    QFont big = name->font();
    big.setPointSizeF(big.pointSizeF() * 2.0);
    big.setBold(true);
    name->setFont(big);

    auto* version = new QLabel(ToQt(FormatMessage("Version %1", KAVRIN_VERSION)), this);
    version->setObjectName(QStringLiteral("lblVersion"));
    auto* purpose = new QLabel(ToQt(FormatMessage("Editor für die Anlagen-Dateien (*.anl3) des Modellbahn-"
                                                  "Simulators EEP:%nAnlagen öffnen, prüfen, bearbeiten und "
                                                  "wieder so speichern, dass EEP sie lädt.")),
                               this);
    purpose->setWordWrap(true);
    auto* build = new QLabel(ToQt(FormatMessage("Erstellt mit Qt %1", qVersion())), this);
    build->setStyleSheet(QStringLiteral("color: palette(mid);"));

    auto* text = new QVBoxLayout;
    text->addWidget(name);
    text->addWidget(version);
    text->addSpacing(8);
    text->addWidget(purpose);
    text->addStretch(1);
    text->addWidget(build);

    auto* top = new QHBoxLayout;
    top->addWidget(icon);
    top->addSpacing(12);
    top->addLayout(text, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(buttons);
    setMinimumWidth(440);
}

} // namespace kavrin
