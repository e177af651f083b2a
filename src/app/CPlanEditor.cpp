#include "app/CPlanEditor.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <QToolBar>
#include <QUndoStack>
#include <cmath>

#include "app/CPlanCommands.h"
#include "app/CPlanWidget.h"
#include "app/CQtCanvas.h"
#include "app/CUndoStep.h"
#include "app/FAnlage.h"
#include "app/FRenumKeyIds.h"
#include "app/FSelGleisId.h"
#include "app/FSelMove.h"
#include "app/FSelRotate.h"
#include "app/modEditIcons.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CDeleteEdit.h"
#include "edit/CEditHistory.h"
#include "edit/CEditStep.h"
#include "edit/CKeyIdRenumbering.h"
#include "edit/CSelectionEdit.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPaintTarget.h"
#include "plan/CPlanObjects.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanPicker.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
// How far from an object a click still takes it, in pixels.
constexpr double kPickTolerance = 4;
// What a click, a rubber band and a drag consider: what the last drawing showed.
constexpr int kShownMode = 0;
// What the commands consider: the kinds shown, inside the height band, also off screen.
constexpr int kVisibleMode = 2;

CPlanObjects::How HowOf(Qt::KeyboardModifiers modifiers) {
    if (modifiers & Qt::ControlModifier)
        return CPlanObjects::How::Toggle;
    if (modifiers & Qt::ShiftModifier)
        return CPlanObjects::How::Add;
    return CPlanObjects::How::Replace;
}
} // namespace

CPlanEditor::CPlanEditor(FAnlage& window, CSelection& selection, CEditHistory& history,
                         const CViewOptions& options)
    : QObject(&window), window_(window), selection_(selection), history_(history), options_(options),
      picker_(std::make_unique<CPlanPicker>(window.Anlage())) {
    undoStack_ = new QUndoStack(this);
    lblSelection_ = new QLabel(&window);
    lblSelection_->setObjectName(QStringLiteral("lblSelection"));
    lblSelection_->setAlignment(Qt::AlignCenter);
    connect(undoStack_, &QUndoStack::indexChanged, this, &CPlanEditor::UpdateUndoTexts);
    history_.SetRecordListener([this](const CEditStep& step) { Recorded(step); });
    ConnectPlan();
}

// The history goes with the window before the editor (a child object) does; it never calls
// the listener on its way.
CPlanEditor::~CPlanEditor() = default;

QAction* CPlanEditor::AddCommand(QList<QAction*>& items, const char* name, const char* text) {
    auto* action = new QAction(ToQt(FormatMessage(text)), this);
    action->setObjectName(QLatin1String(name));
    items.append(action);
    commands_[name] = action;
    return action;
}

void CPlanEditor::AddSeparator(QList<QAction*>& items) {
    auto* separator = new QAction(this);
    separator->setSeparator(true);
    items.append(separator);
}

QAction* CPlanEditor::Command(const char* name) const {
    auto found = commands_.find(name);
    return found == commands_.end() ? nullptr : found->second;
}

// Shortcuts belong to the menu items: they act in the active layout's window only, as its
// menus alone stand in the menu bar.
void CPlanEditor::CreateCommands(QMenu* editMenu, QMenu* popup, QToolBar* toolBar) {
    QList<QAction*> items;
    QAction* undo = AddCommand(items, "mnuEditUndo", "&Rückgängig");
    undo->setShortcut(QKeySequence::Undo);
    undo->setIcon(EditToolIcon(QStringLiteral("Undo")));
    connect(undo, &QAction::triggered, undoStack_, &QUndoStack::undo);
    QAction* redo = AddCommand(items, "mnuEditRedo", "&Wiederholen");
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    redo->setIcon(EditToolIcon(QStringLiteral("Redo")));
    connect(redo, &QAction::triggered, undoStack_, &QUndoStack::redo);
    AddSeparator(items);
    AddCommand(items, "mnuSelAll", "&Alles auswählen")->setShortcut(QKeySequence::SelectAll);
    AddCommand(items, "mnuSelInvert", "Auswahl &umkehren");
    AddCommand(items, "mnuSelNone", "Auswahl auf&heben")
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
    AddCommand(items, "mnuSelGleisId", "&Gleise nach ID auswählen…");
    AddSeparator(items);
    AddCommand(items, "mnuSelMove", "&Verschieben…")->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    AddCommand(items, "mnuSelRotate", "&Drehen…")->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    AddCommand(items, "mnuSelRotCenter", "Dreh&punkt setzen")
        ->setIcon(EditToolIcon(QStringLiteral("RotCenter")));
    AddCommand(items, "mnuSelLoesen", "Auswahl &lösen");
    AddCommand(items, "mnuSelZoom", "Auf Aus&wahl zoomen")->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_8));
    AddSeparator(items);
    editMenu->insertActions(editMenu->actions().isEmpty() ? nullptr : editMenu->actions().front(), items);

    popup->addSeparator();
    for (const char* name : {"mnuSelAll", "mnuSelInvert", "mnuSelNone", "mnuSelMove", "mnuSelRotate",
                             "mnuSelRotCenter", "mnuSelLoesen", "mnuSelZoom"})
        popup->addAction(Command(name));

    // The toolbar's buttons start the same; they carry no shortcut (each open layout has them).
    toolBar->addSeparator();
    for (const char* key : {"Undo", "Redo"}) {
        QAction* button = toolBar->addAction(EditToolIcon(QLatin1String(key)), QString());
        button->setObjectName(QLatin1String(key));
        button->setData(QLatin1String(key));
        connect(button, &QAction::triggered, undoStack_,
                key[0] == 'U' ? &QUndoStack::undo : &QUndoStack::redo);
        commands_[key] = button;
    }

    connect(Command("mnuSelAll"), &QAction::triggered, this, &CPlanEditor::SelectAll);
    connect(Command("mnuSelInvert"), &QAction::triggered, this, &CPlanEditor::InvertSelection);
    connect(Command("mnuSelNone"), &QAction::triggered, this, &CPlanEditor::ClearSelection);
    connect(Command("mnuSelGleisId"), &QAction::triggered, this, &CPlanEditor::SelectGleisIds);
    connect(Command("mnuSelMove"), &QAction::triggered, this, &CPlanEditor::ShowMoveDialog);
    connect(Command("mnuSelRotate"), &QAction::triggered, this, &CPlanEditor::ShowRotateDialog);
    connect(Command("mnuSelRotCenter"), &QAction::triggered, this, &CPlanEditor::PickRotCenter);
    connect(Command("mnuSelLoesen"), &QAction::triggered, this, &CPlanEditor::CutSelection);
    connect(Command("mnuSelZoom"), &QAction::triggered, this, [this] { window_.ZoomToSelection(); });
    UpdateUndoTexts();
    SelectionChanged(false);
}

void CPlanEditor::ConnectPlan() {
    CPlanWidget* plan = window_.Plan();
    plan->GrabsSelection = [this](QPointF at) { return GrabsSelection(at); };
    plan->PaintDraggedSelection = [this](QPainter& painter, QPoint offset) {
        PaintDraggedSelection(painter, offset);
    };
    connect(plan, &CPlanWidget::PointerClicked, this, &CPlanEditor::PlanClicked);
    connect(plan, &CPlanWidget::BandSelected, this, &CPlanEditor::BandSelected);
    connect(plan, &CPlanWidget::SelectionDropped, this, &CPlanEditor::SelectionDropped);
    connect(plan, &CPlanWidget::Rendered, this, &CPlanEditor::PlanDrawn);
}

void CPlanEditor::PlanClicked(QPointF position, Qt::KeyboardModifiers modifiers) {
    const CPlanView& view = window_.View();
    if (!view.Scaled())
        return;
    const double x = view.ToWorldX(position.x());
    const double y = view.ToWorldY(position.y());
    if (window_.Plan()->PointPicking()) {
        window_.Plan()->SetPointPicking(false);
        SetRotCenter(std::round(x), std::round(y), false);
        ShowSelectionCount();
        return;
    }
    IPaint* hit = picker_->Pick(x, y, view.PixelSize(), kPickTolerance, kShownMode);
    switch (HowOf(modifiers)) {
    case CPlanObjects::How::Toggle:
        if (!hit)
            return;
        selection_.SetSelection(*hit, !hit->Selected());
        break;
    case CPlanObjects::How::Add:
        if (!hit || hit->Selected())
            return;
        selection_.Add(*hit);
        break;
    case CPlanObjects::How::Replace:
        if (selection_.Empty() && !hit)
            return;
        selection_.Clear();
        if (hit)
            selection_.Add(*hit);
        break;
    }
    SelectionChanged();
}

void CPlanEditor::BandSelected(QRect band, Qt::KeyboardModifiers modifiers) {
    const CPlanView& view = window_.View();
    if (!view.Scaled())
        return;
    CRect world(view.ToWorldX(band.left()), view.ToWorldY(band.top()), view.ToWorldX(band.right() + 1),
                view.ToWorldY(band.bottom() + 1));
    CPlanObjects(window_.Anlage(), options_).SelectInRect(selection_, world, kShownMode, HowOf(modifiers));
    SelectionChanged();
}

bool CPlanEditor::GrabsSelection(QPointF position) const {
    const CPlanView& view = window_.View();
    if (selection_.Empty() || !view.Scaled())
        return false;
    IPaint* hit = picker_->Pick(view.ToWorldX(position.x()), view.ToWorldY(position.y()), view.PixelSize(),
                                kPickTolerance, kShownMode);
    return hit && hit->Selected();
}

// The plan works in whole world units (cm); y grows upwards on the plan, downwards in pixels.
void CPlanEditor::SelectionDropped(QPoint distance) {
    const double pixel = window_.View().PixelSize();
    const double dx = std::round(distance.x() * pixel);
    const double dy = std::round(-distance.y() * pixel);
    if (dx == 0 && dy == 0)
        return;
    MoveAsked(dx, dy, 0);
}

// The selection drawn once more where it would land, over the picture.
void CPlanEditor::PaintDraggedSelection(QPainter& painter, QPoint offset) const {
    CPlanView view = window_.View();
    if (!view.Scaled())
        return;
    view.PaintXOffset = offset.x() * view.PixelSize();
    view.PaintYOffset = -offset.y() * view.PixelSize();
    CQtCanvas canvas(painter, view.ClientWidth(), view.ClientHeight());
    canvas.SetView(view.Left(), view.Top(), view.Width(), view.Height());
    CPaintTarget target(canvas, view, window_.Anlage().HoehenFilter());
    target.TrackMarks = options_.TrackMarks();
    selection_.Paint(target, options_);
    canvas.Flush();
}

// Members the plan no longer shows (their kind hidden, out of the height band) leave the
// selection; they were not drawn, so the picture stays as it is. Not so for members that an
// edit took out of view (a move up or down with the height filter on): the selection is what
// the user works on, and it stays until the user changes it (the status strip says how many are
// hidden). After an edit the picker's grid is made while the user looks at the new drawing,
// not at the next click.
void CPlanEditor::PlanDrawn() {
    if (!picker_->Built())
        QTimer::singleShot(0, this, [this] {
            if (window_.Anlage().RootNode())
                picker_->Pick(0, 0, 1, 0, kShownMode);
        });
    if (selection_.Empty())
        return;
    if (selection_.Generation() == editedGeneration_) {
        ShowSelectionCount();
        return;
    }
    if (selection_.RemoveIf([](const IPaint& member) { return !member.Consider(kVisibleMode); }) > 0)
        SelectionChanged(false);
}

void CPlanEditor::SelectAll() {
    selection_.Reserve(200);
    CPlanObjects(window_.Anlage(), options_).SelectAll(selection_, kVisibleMode);
    SelectionChanged();
}

void CPlanEditor::InvertSelection() {
    CPlanObjects(window_.Anlage(), options_).Invert(selection_, kVisibleMode);
    SelectionChanged();
}

void CPlanEditor::ClearSelection() {
    selection_.Clear();
    SelectionChanged();
}

void CPlanEditor::SelectGleisIds() {
    FSelGleisId dialog(window_.Anlage(), &window_);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    window_.ReturnFocusToPlan();
    if (!accepted)
        return;
    CNodeGleisSys* system = FindGleisSys(window_.Anlage(), dialog.SystemId());
    if (!system)
        return;
    if (!dialog.AddToSelection())
        selection_.Clear();
    std::vector<std::string> notTaken = dialog.Ids().Select(selection_, *system, kVisibleMode);
    SelectionChanged();
    if (notTaken.empty())
        return;
    std::string list;
    for (const std::string& item : notTaken)
        list += (list.empty() ? "" : ", ") + item;
    InfoBox(
        FormatMessage("Diese Gleise gibt es im Gleissystem nicht, oder sie sind ausgeblendet:%m%1", list));
}

void CPlanEditor::CutSelection() {
    if (selection_.Empty())
        return;
    size_t cut = CSelectionEdit(selection_, history_).CutSelection();
    InfoBox(cut == 0
                ? FormatMessage("Die Auswahl ist mit keinem anderen Gleis verbunden.")
                : FormatMessage("%1 Gleisverbindungen zwischen der Auswahl und den übrigen Gleisen gelöst.",
                                WholeNumberText(static_cast<int64_t>(cut))));
}

void CPlanEditor::RenumberKeyIds() {
    CKeyIdRenumbering renumbering(window_.Anlage());
    if (renumbering.ChangedCount() == 0) {
        InfoBox(FormatMessage("Die Key-IDs sind bereits lückenlos von 1 an nummeriert."));
        return;
    }
    FRenumKeyIds dialog(renumbering, &window_);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    window_.ReturnFocusToPlan();
    if (!accepted)
        return;
    renumbering.Run(history_);
}

// A step that takes part of the selection further out of the layout is asked about first.
bool CPlanEditor::Confirmed(const CPlacementChange::Transform& transform) {
    if (!CSelectionEdit::GoesFurtherOut(selection_, window_.Anlage(), transform))
        return true;
    const bool turning = transform.kind == CPlacementChange::Transform::Kind::Rotate;
    return Ask(FormatMessage(turning
                                 ? "Achtung:%mTeile der Auswahl befinden sich nach dem Drehen außerhalb "
                                   "der Anlage!%mMöchten Sie die ausgewählten Objekte trotzdem drehen?%n"
                                   "(Die Auswahl bleibt auf jeden Fall erhalten.)"
                                 : "Achtung:%mTeile der Auswahl befinden sich nach dem Verschieben "
                                   "außerhalb der Anlage!%mMöchten Sie die ausgewählten Objekte "
                                   "trotzdem verschieben?%n(Die Auswahl bleibt auf jeden Fall erhalten.)"));
}

bool CPlanEditor::MoveAsked(double dx, double dy, double dz) {
    if (selection_.Empty() || !Confirmed(CPlacementChange::Transform::Move(dx, dy, dz)))
        return false;
    return CSelectionEdit(selection_, history_).Move(dx, dy, dz);
}

bool CPlanEditor::FormSelMove_Move(double dx, double dy, double dz) {
    return MoveAsked(dx, dy, dz);
}

bool CPlanEditor::FormSelRotate_Rotate(double angle, double cx, double cy) {
    SetRotCenter(cx, cy, true);
    if (selection_.Empty() || !Confirmed(CPlacementChange::Transform::Rotate(angle, cx, cy)))
        return false;
    return CSelectionEdit(selection_, history_).Rotate(angle, cx, cy);
}

void CPlanEditor::FormSelRotate_RotCenter(double cx, double cy) {
    SetRotCenter(cx, cy, true);
}

void CPlanEditor::FormSelRotate_Unload() {
    HideRotCenter();
}

void CPlanEditor::EditedElsewhere() {
    SelectionChanged();
}

// Whoever recorded the step, the undo stack gets it at once, so that the two never part.
void CPlanEditor::Recorded(const CEditStep& step) {
    undoStack_->push(new CUndoStep(
        history_, [this] { AfterEdit(); }, ToQt(step.Name())));
    AfterEdit();
}

// A step that failed to undo dropped the history; the stack follows once it is done.
void CPlanEditor::AfterEdit() {
    picker_->Invalidate();
    if (!selection_.Empty()) {
        int32_t members = selection_.Count();
        CDeleteEdit::ForgetRemoved(selection_, window_.Anlage());
        if (selection_.Count() != members)
            SelectionChanged(false);
    }
    editedGeneration_ = selection_.Generation();
    if (history_.Count() == 0 && undoStack_->count() > 0)
        QTimer::singleShot(0, undoStack_, &QUndoStack::clear);
    window_.SetChanged(window_.Anlage().Changed());
    if (formSelMove_ && formSelMove_->isVisible())
        formSelMove_->ShowExtent(selection_.BoundingBox());
    window_.RepaintPlan();
}

void CPlanEditor::ShowMoveDialog() {
    if (!formSelMove_) {
        formSelMove_ = new FSelMove(&window_);
        connect(formSelMove_, &QDialog::finished, this, [this] { window_.ReturnFocusToPlan(); });
        formSelMove_->SetMoveHandler(
            [this](double dx, double dy, double dz) { return FormSelMove_Move(dx, dy, dz); });
    }
    formSelMove_->ShowExtent(selection_.BoundingBox());
    formSelMove_->show();
    formSelMove_->raise();
    formSelMove_->activateWindow();
}

// Without a centre of its own the rotation turns about the middle of the selection.
void CPlanEditor::ShowRotateDialog() {
    if (!formSelRotate_) {
        formSelRotate_ = new FSelRotate(&window_);
        connect(formSelRotate_, &QDialog::finished, this, [this] { window_.ReturnFocusToPlan(); });
        formSelRotate_->SetRotateHandler(
            [this](double angle, double cx, double cy) { return FormSelRotate_Rotate(angle, cx, cy); });
        connect(formSelRotate_, &FSelRotate::RotCenter, this, &CPlanEditor::FormSelRotate_RotCenter);
        connect(formSelRotate_, &FSelRotate::Unloaded, this, &CPlanEditor::FormSelRotate_Unload);
    }
    if (!rotCenterSet_) {
        CBox box = selection_.BoundingBox();
        if (!box.IsEmpty())
            SetRotCenter(std::round((box.West + box.East) / 2.0), std::round((box.South + box.North) / 2.0),
                         false);
    }
    if (rotCenterSet_)
        SetRotCenter(rotCenterX_, rotCenterY_, false);
    formSelRotate_->SetSelectionPresent(!selection_.Empty());
    formSelRotate_->show();
    formSelRotate_->raise();
    formSelRotate_->activateWindow();
}

void CPlanEditor::PickRotCenter() {
    if (QAction* pointer = window_.Commands().Button("MousePointer"); pointer && !pointer->isChecked())
        pointer->trigger();
    window_.Plan()->SetPointPicking(true);
    lblSelection_->setText(ToQt(FormatMessage("Klicken Sie auf den Drehpunkt.")));
}

void CPlanEditor::SetRotCenter(double x, double y, bool fromDialog) {
    rotCenterSet_ = true;
    rotCenterX_ = x;
    rotCenterY_ = y;
    if (formSelRotate_ && !fromDialog)
        formSelRotate_->SetCenter(x, y);
    CPlanPainter& painter = window_.Plan()->Painter();
    painter.RotCenterShown = true;
    painter.RotCenterX = x;
    painter.RotCenterY = y;
    window_.RepaintPlan();
}

void CPlanEditor::HideRotCenter() {
    rotCenterSet_ = false;
    window_.Plan()->Painter().RotCenterShown = false;
    window_.RepaintPlan();
}

FSelMove* CPlanEditor::FormSelMove() const {
    return formSelMove_.data();
}

FSelRotate* CPlanEditor::FormSelRotate() const {
    return formSelRotate_.data();
}

bool CPlanEditor::RotCenterShown() const {
    return window_.Plan()->Painter().RotCenterShown;
}

void CPlanEditor::SelectFound(IPaint* node) {
    if (!node || !node->Consider(kVisibleMode) || !CPlanObjects(window_.Anlage(), options_).Holds(*node))
        return;
    selection_.Clear();
    selection_.Add(*node);
    SelectionChanged();
}

// A new selection starts new totals in the dialogs.
void CPlanEditor::SelectionChanged(bool redraw) {
    ShowSelectionCount();
    UpdateCommands();
    emit selectionChanged();
    if (formSelMove_) {
        formSelMove_->ResetTotals();
        formSelMove_->ShowExtent(selection_.BoundingBox());
    }
    if (formSelRotate_) {
        formSelRotate_->ResetTotal();
        formSelRotate_->SetSelectionPresent(!selection_.Empty());
    }
    if (redraw)
        window_.RepaintPlan();
}

void CPlanEditor::ShowSelectionCount() {
    if (selection_.Empty()) {
        lblSelection_->setText(ToQt(FormatMessage("Nichts ausgewählt")));
        return;
    }
    std::string text = FormatMessage("%1 ausgewählt", selection_.CountsText());
    int64_t hidden = 0;
    for (const IPaint& member : selection_.NewEnum())
        hidden += member.Consider(kVisibleMode) ? 0 : 1;
    if (hidden > 0)
        text += FormatMessage(" (%1 davon ausgeblendet)", WholeNumberText(hidden));
    lblSelection_->setText(ToQt(text));
}

void CPlanEditor::UpdateCommands() {
    const bool any = !selection_.Empty();
    for (const char* name : {"mnuSelNone", "mnuSelMove", "mnuSelRotate", "mnuSelLoesen", "mnuSelZoom"})
        Command(name)->setEnabled(any);
    Command("mnuSelLoesen")->setEnabled(any && selection_.CountGleise() > 0);
}

void CPlanEditor::UpdateUndoTexts() {
    QAction* undo = Command("mnuEditUndo");
    QAction* redo = Command("mnuEditRedo");
    if (!undo || !redo)
        return;
    const QString undoText = undoStack_->undoText();
    const QString redoText = undoStack_->redoText();
    undo->setText(ToQt(undoText.isEmpty() ? FormatMessage("&Rückgängig")
                                          : FormatMessage("&Rückgängig \"%1\"", FromQt(undoText))));
    redo->setText(ToQt(redoText.isEmpty() ? FormatMessage("&Wiederholen")
                                          : FormatMessage("&Wiederholen \"%1\"", FromQt(redoText))));
    undo->setEnabled(undoStack_->canUndo());
    redo->setEnabled(undoStack_->canRedo());
    for (const auto& [key, menuItem] : {std::pair{"Undo", undo}, std::pair{"Redo", redo}}) {
        QAction* button = Command(key);
        button->setEnabled(menuItem->isEnabled());
        button->setToolTip(QString(menuItem->text()).remove(QLatin1Char('&')) + QStringLiteral(" (") +
                           menuItem->shortcut().toString(QKeySequence::NativeText) + QLatin1Char(')'));
    }
}

void CPlanEditor::CloseDialogs() {
    delete formSelMove_.data();
    if (formSelRotate_) {
        formSelRotate_->disconnect(this);
        delete formSelRotate_.data();
    }
    window_.Plan()->SetPointPicking(false);
    selection_.Clear();
    undoStack_->clear();
    picker_->Invalidate();
}

void CPlanEditor::LayoutLoaded() {
    picker_->Invalidate();
    undoStack_->clear();
    history_.Reset();
    selection_.Clear();
    SelectionChanged(false);
}

void CPlanEditor::LayoutSaved() {
    history_.MarkSaved();
    undoStack_->setClean();
}

} // namespace kavrin
