#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace kavrin {

class CEditHistory;
class CPlanEditor;
class CSelection;
class FAnlage;
struct EepInstallation;

// The deletions of a document window: the selection (mnuSelDelete, the Entf key, in the
// Bearbeiten menu and the plan's popup) through FSelDelete, and signals (mnuAnlSignalsDel) and
// contacts (mnuAnlContactsDel) from lists in the Anlage menu. Each deletion is one step of the
// undo history; afterwards the plan and the status follow, and contacts the clean-up removed
// are listed in one message.
class CDeleteCommands : public QObject {
    Q_OBJECT
public:
    CDeleteCommands(FAnlage& window, CSelection& selection, CEditHistory& history, CPlanEditor& editor);

    void CreateCommands(QMenu* editMenu, QMenu* anlageMenu, QMenu* popup);
    void DeleteSelection();
    void ShowSignalsDel();
    void ShowContactsDel();

private:
    void Deleted(bool done, const std::vector<std::string>& reports);
    void UpdateCommands();

    FAnlage& window_;
    CSelection& selection_;
    CEditHistory& history_;
    CPlanEditor& editor_;
    QAction* mnuSelDelete_ = nullptr;
    QAction* mnuAnlContactsDel_ = nullptr;
};

} // namespace kavrin
