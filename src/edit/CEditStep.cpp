#include "edit/CEditStep.h"

namespace kavrin {

void CEditStep::Undo() {
    for (size_t i = changes_.size(); i-- > 0;)
        changes_[i]->Undo();
}

void CEditStep::Redo() {
    for (const auto& change : changes_)
        change->Redo();
}

} // namespace kavrin
