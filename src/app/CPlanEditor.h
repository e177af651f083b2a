#pragma once

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "edit/CPlacementChange.h"

class QAction;
class QLabel;
class QMenu;
class QPainter;
class QToolBar;
class QUndoStack;

namespace kavrin {

class CEditHistory;
class CEditStep;
class CPlanPicker;
class CSelection;
class CViewOptions;
class FAnlage;
class FSelMove;
class FSelRotate;
class IPaint;

// The editing side of a document window: the selection made with the pointer tool (click,
// Ctrl+click toggles, Shift+click adds, rubber band likewise, a press on the selection drags it
// along), the selection and edit commands of the Bearbeiten menu and the plan's popup, the move
// and rotate dialogs with the rotation centre, the count of what is selected in the status
// strip, and undo and redo (Qt's undo stack over the layout's history). Edits go through the
// history, one step each; the window shows their result.
class CPlanEditor : public QObject {
    Q_OBJECT
public:
    CPlanEditor(FAnlage& window, CSelection& selection, CEditHistory& history, const CViewOptions& options);
    ~CPlanEditor() override;

    // Puts the commands into the Bearbeiten menu (before what it holds), the popup and the toolbar.
    void CreateCommands(QMenu* editMenu, QMenu* popup, QToolBar* toolBar);
    // A command by its object name (mnuEditUndo, mnuSelAll, ...).
    QAction* Command(const char* name) const;
    QLabel* SelectionLabel() const { return lblSelection_; }
    QUndoStack* UndoStack() const { return undoStack_; }
    // The dialogs while they exist (FormSelMove, FormSelRotate).
    FSelMove* FormSelMove() const;
    FSelRotate* FormSelRotate() const;
    bool RotCenterShown() const;

    // mnuSelAll, mnuSelInvert (what the plan shows, off screen as well), mnuSelNone.
    void SelectAll();
    void InvertSelection();
    void ClearSelection();
    // mnuSelGleisId: the dialog, then the tracks it names; what it could not take is named.
    void SelectGleisIds();
    // mnuSelLoesen.
    void CutSelection();
    // mnuAnlRenumKeyId: the warning with the table old -> new (FRenumKeyIds), then one step.
    void RenumberKeyIds();
    void ShowMoveDialog();
    void ShowRotateDialog();
    // mnuSelRotCenter: the next click on the plan sets the rotation centre.
    void PickRotCenter();
    // A found object is selected (alone) when the plan may select it.
    void SelectFound(IPaint* node);
    // The layout is about to close: the dialogs go, the selection lets go of its nodes.
    void CloseDialogs();
    // The layout was loaded anew (or saved): the undo stack starts from here.
    void LayoutLoaded();
    void LayoutSaved();

    // Another part of the window (the deletions) has edited through the history, which put the
    // step on the undo stack already: the selection's count and what depends on it follow.
    void EditedElsewhere();

    // The window's handlers of the dialogs' events; true when the selection was edited.
    bool FormSelMove_Move(double dx, double dy, double dz);
    bool FormSelRotate_Rotate(double angle, double cx, double cy);
    void FormSelRotate_RotCenter(double cx, double cy);
    void FormSelRotate_Unload();

signals:
    // The selection's membership may have changed (commands that need one follow it).
    void selectionChanged();

private:
    QAction* AddCommand(QList<QAction*>& items, const char* name, const char* text);
    void AddSeparator(QList<QAction*>& items);
    void ConnectPlan();
    void PlanClicked(QPointF position, Qt::KeyboardModifiers modifiers);
    void BandSelected(QRect band, Qt::KeyboardModifiers modifiers);
    bool GrabsSelection(QPointF position) const;
    void SelectionDropped(QPoint distance);
    void PaintDraggedSelection(QPainter& painter, QPoint offset) const;
    void PlanDrawn();
    bool Confirmed(const CPlacementChange::Transform& transform);
    bool MoveAsked(double dx, double dy, double dz);
    // A step the history has just kept becomes a step of the undo stack; the plan follows.
    void Recorded(const CEditStep& step);
    void AfterEdit();
    void SelectionChanged(bool redraw = true);
    void ShowSelectionCount();
    void UpdateCommands();
    void UpdateUndoTexts();
    void SetRotCenter(double x, double y, bool fromDialog);
    void HideRotCenter();

    FAnlage& window_;
    CSelection& selection_;
    CEditHistory& history_;
    const CViewOptions& options_;
    // Finds what is under the mouse; its grid is built anew after every edit.
    std::unique_ptr<CPlanPicker> picker_;
    QUndoStack* undoStack_ = nullptr;
    QLabel* lblSelection_ = nullptr;
    std::map<std::string, QAction*> commands_;
    QPointer<FSelMove> formSelMove_;
    QPointer<FSelRotate> formSelRotate_;
    // The selection as the last edit left it: kept whole, even where the plan hides members.
    uint64_t editedGeneration_ = UINT64_MAX;
    bool rotCenterSet_ = false;
    double rotCenterX_ = 0;
    double rotCenterY_ = 0;
};

} // namespace kavrin
