#pragma once

#include <QUndoCommand>
#include <functional>

namespace kavrin {

class CEditHistory;

// One step of a layout's undo history as Qt's undo stack holds it. The edit has been done when
// the step is pushed, so the stack's first redo does nothing; later ones redo the step in the
// history. `after` runs after each undo and redo (the window shows the result).
class CUndoStep : public QUndoCommand {
public:
    CUndoStep(CEditHistory& history, std::function<void()> after, const QString& text);

    void undo() override;
    void redo() override;

private:
    CEditHistory& history_;
    std::function<void()> after_;
    bool done_ = true;
};

} // namespace kavrin
