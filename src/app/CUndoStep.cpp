#include "app/CUndoStep.h"

#include "edit/CEditHistory.h"

namespace kavrin {

CUndoStep::CUndoStep(CEditHistory& history, std::function<void()> after, const QString& text)
    : history_(history), after_(std::move(after)) {
    setText(text);
}

void CUndoStep::undo() {
    history_.Undo();
    done_ = false;
    after_();
}

void CUndoStep::redo() {
    if (done_)
        return;
    history_.Redo();
    done_ = true;
    after_();
}

} // namespace kavrin
