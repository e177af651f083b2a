#include "app/CDeleteCommands.h"

#include <QAction>
#include <QMenu>

#include "app/CPlanEditor.h"
#include "app/FAnlage.h"
#include "app/FContactsDel.h"
#include "app/FSelDelete.h"
#include "app/FSignalsDel.h"
#include "app/modMain.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CDeleteEdit.h"
#include "edit/CEditHistory.h"
#include "edit/CSignalStock.h"
#include "nodes/CObjectTexte.h"
#include "plan/CSelection.h"

namespace kavrin {

CDeleteCommands::CDeleteCommands(FAnlage& window, CSelection& selection, CEditHistory& history,
                                 CPlanEditor& editor)
    : QObject(&window), window_(window), selection_(selection), history_(history), editor_(editor) {
    connect(&editor_, &CPlanEditor::selectionChanged, this, &CDeleteCommands::UpdateCommands);
}

void CDeleteCommands::CreateCommands(QMenu* editMenu, QMenu* anlageMenu, QMenu* popup) {
    mnuSelDelete_ = new QAction(ToQt(FormatMessage("Auswahl &löschen…")), this);
    mnuSelDelete_->setObjectName(QStringLiteral("mnuSelDelete"));
    mnuSelDelete_->setShortcut(QKeySequence::Delete);
    connect(mnuSelDelete_, &QAction::triggered, this, &CDeleteCommands::DeleteSelection);
    // After the selection's own commands, before the separator that closes them.
    QList<QAction*> items = editMenu->actions();
    QAction* before = nullptr;
    for (QAction* item : items)
        if (item->objectName() == QLatin1String("mnuSelLoesen")) {
            int at = static_cast<int>(items.indexOf(item));
            before = at + 1 < items.size() ? items[at + 1] : nullptr;
        }
    editMenu->insertAction(before, mnuSelDelete_);
    popup->addAction(mnuSelDelete_);

    anlageMenu->addSeparator();
    QAction* signalsDel = anlageMenu->addAction(ToQt(FormatMessage("&Signale löschen…")));
    signalsDel->setObjectName(QStringLiteral("mnuAnlSignalsDel"));
    connect(signalsDel, &QAction::triggered, this, &CDeleteCommands::ShowSignalsDel);
    mnuAnlContactsDel_ =
        anlageMenu->addAction(ToQt(FormatMessage("&Kontakte der ausgewählten Gleise löschen…")));
    mnuAnlContactsDel_->setObjectName(QStringLiteral("mnuAnlContactsDel"));
    connect(mnuAnlContactsDel_, &QAction::triggered, this, &CDeleteCommands::ShowContactsDel);
    UpdateCommands();
}

void CDeleteCommands::UpdateCommands() {
    if (mnuSelDelete_)
        mnuSelDelete_->setEnabled(!selection_.Empty());
    if (mnuAnlContactsDel_)
        mnuAnlContactsDel_->setEnabled(selection_.CountGleise() > 0);
}

void CDeleteCommands::DeleteSelection() {
    if (selection_.Empty())
        return;
    FSelDelete dialog(&window_);
    dialog.Init(window_.Anlage().FilePath(), selection_, CDeleteEdit::LockedCount(selection_));
    for (const CDeleteEdit::Train& train : CDeleteEdit::AffectedTrains(window_.Anlage()))
        dialog.RegisterRolli(train.pool, train.name, train.vehicles);
    dialog.exec();
    window_.ReturnFocusToPlan();
    if (dialog.Cancelled())
        return;
    CDeleteEdit::Result result = CDeleteEdit(window_.Anlage(), selection_, history_).DeleteSelection();
    Deleted(result.done, result.reports);
}

void CDeleteCommands::ShowSignalsDel() {
    FSignalsDel dialog(&window_);
    const EepInstallation& installation = Installation();
    CSignalStock stock(installation.noResourceDirectory ? std::string() : installation.resourceDirectory);
    dialog.SignalsUsed(stock, ResourcenPakExists());
    dialog.Init(
        window_.Anlage().FilePath(),
        [this, &stock] {
            std::vector<FListDelete::Line> lines;
            for (const auto& [name, count] : CDeleteEdit::SignalsUsed(window_.Anlage()))
                lines.push_back(
                    {name, name, count, name != CDeleteEdit::kSignalOhneNamen && !stock.Known(name)});
            return lines;
        },
        [this](const std::vector<std::string>& names) {
            CDeleteEdit::Result result =
                CDeleteEdit(window_.Anlage(), selection_, history_).DeleteSignals(names);
            Deleted(result.done, result.reports);
            return result.done;
        });
    dialog.exec();
    window_.ReturnFocusToPlan();
}

void CDeleteCommands::ShowContactsDel() {
    if (selection_.CountGleise() == 0)
        return;
    FContactsDel dialog(&window_);
    dialog.Init(
        window_.Anlage().FilePath(),
        [this] {
            std::vector<FListDelete::Line> lines;
            for (const auto& [kind, count] : CDeleteEdit::ContactsUsed(selection_))
                lines.push_back({std::to_string(kind), CObjectTexte::KontaktGruppe(kind), count, false});
            return lines;
        },
        [this](const std::vector<std::string>& keys) {
            std::vector<int32_t> kinds;
            for (const std::string& key : keys)
                kinds.push_back(TextToLong(key));
            CDeleteEdit::Result result =
                CDeleteEdit(window_.Anlage(), selection_, history_).DeleteContacts(kinds);
            Deleted(result.done, result.reports);
            return result.done;
        });
    dialog.exec();
    window_.ReturnFocusToPlan();
}

// The contacts the clean-up removed are told in one list, after the plan shows the result.
void CDeleteCommands::Deleted(bool done, const std::vector<std::string>& reports) {
    editor_.EditedElsewhere();
    if (!done || reports.empty())
        return;
    const std::string gap = FormatMessage("%m");
    std::string list = FormatMessage("Beim Aufräumen wurden Kontakte entfernt:");
    for (const std::string& report : reports)
        list += gap + report;
    InfoBox(list);
}

} // namespace kavrin
