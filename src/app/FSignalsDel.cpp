#include "app/FSignalsDel.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"
#include "edit/CSignalStock.h"

namespace kavrin {

FSignalsDel::FSignalsDel(QWidget* parent)
    : FListDelete("FSignalsDel", FormatMessage("Signale löschen"), FormatMessage("&Signale der Anlage:"),
                  "ein Signal", "%1 Signale", "FSignalsDel", parent) {
    fraHinweisDel_ = new QGroupBox(ToQt(FormatMessage("Hinweis")), this);
    fraHinweisDel_->setObjectName(QStringLiteral("fraHinweisDel"));
    lblHinweisDel_ =
        new QLabel(ToQt(FormatMessage(
                       "Wenn ein Signal gelöscht wird, werden auch alle Kontakte gelöscht, die das Signal "
                       "schalten.%mEbenso werden in den Fahrplänen alle Einträge entfernt, die sich auf das "
                       "Signal beziehen.")),
                   fraHinweisDel_);
    lblHinweisDel_->setObjectName(QStringLiteral("lblHinweisDel"));
    lblHinweisDel_->setWordWrap(true);
    auto* note = new QVBoxLayout(fraHinweisDel_);
    note->addWidget(lblHinweisDel_);
    lblUnknown_ = new QLabel(this);
    lblUnknown_->setObjectName(QStringLiteral("lblUnknown"));
    lblUnknown_->hide();
    lblResPak_ = new QLabel(this);
    lblResPak_->setObjectName(QStringLiteral("lblResPak"));
    lblResPak_->setWordWrap(true);
    lblResPak_->hide();
    Layout()->insertWidget(Layout()->count() - 1, fraHinweisDel_);
    Layout()->insertWidget(Layout()->count() - 1, lblUnknown_);
    Layout()->insertWidget(Layout()->count() - 1, lblResPak_);
}

void FSignalsDel::SignalsUsed(const CSignalStock& stock, bool resourcenPak) {
    if (stock.FolderUnreadable()) {
        Hinweis()->setText(ToQt(FormatMessage("Das Signal-Verzeichnis %1 fehlt oder ist nicht lesbar;%n"
                                              "ob ein Signal im Bestand ist, wird nicht geprüft.",
                                              stock.Folder())));
        Hinweis()->show();
    }
    if (stock.Checked() && resourcenPak) {
        lblResPak_->setText(ToQt(FormatMessage("Da die Datei %1 nicht integriert worden ist, werden evtl. "
                                               "Signale zu Unrecht als 'nicht im Bestand' "
                                               "deklariert.%mFragen Sie in den EEP-Foren nach, ob ein Signal "
                                               "im Archiv steckt, und lesen Sie dazu "
                                               "die Kurzanleitung von Kavrin.",
                                               "RESOURCEN.PAK")));
        lblResPak_->show();
    }
}

void FSignalsDel::FillList() {
    FListDelete::FillList();
    int32_t unknown = 0;
    for (const Line& line : Lines())
        if (line.unknown)
            ++unknown;
    lblUnknown_->setVisible(unknown > 0);
    lblUnknown_->setText(ToQt(FormatMessage(unknown == 1 ? "%1 Signal-Modell ist nicht im Bestand."
                                                         : "%1 Signal-Modelle sind nicht im Bestand.",
                                            WholeNumberText(unknown))));
}

} // namespace kavrin
