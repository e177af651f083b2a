#include "edit/CEditHistory.h"

#include "core/modTools.h"
#include "document/CAnlage.h"

namespace kavrin {

CEditHistory::CEditHistory(CAnlage& anlage) : anlage_(anlage) {
    Reset();
}

CEditHistory::~CEditHistory() = default;

void CEditHistory::Reset() {
    steps_.clear();
    done_ = 0;
    saved_.reset();
    if (!anlage_.Changed())
        saved_ = 0;
}

bool CEditHistory::Record(std::unique_ptr<CEditStep> step) {
    if (!step || step->Empty())
        return false;
    steps_.resize(done_);
    if (saved_ && *saved_ > done_)
        saved_.reset(); // the saved state was among the steps dropped
    steps_.push_back(std::move(step));
    done_ = steps_.size();
    Follow();
    if (listener_)
        listener_(*steps_.back());
    return true;
}

std::string CEditHistory::UndoName() const {
    return CanUndo() ? steps_[done_ - 1]->Name() : std::string();
}

std::string CEditHistory::RedoName() const {
    return CanRedo() ? steps_[done_]->Name() : std::string();
}

// A step that fails halfway leaves the tree in a state no step describes: the history is
// dropped and the layout stays changed.
template <typename Work>
bool CEditHistory::Run(const char* member, const char* doing, const CEditStep& step, Work work) {
    try {
        work();
        return true;
    } catch (...) {
        ReportCurrentError(std::string("CEditHistory.") + member,
                           FormatMessage("Beim %1 der %2 ist ein Fehler aufgetreten!%m"
                                         "Speichern Sie die Anlage KEINESFALLS unter dem alten Namen,%n"
                                         "da die Daten sehr wahrscheinlich kaputt sind!!",
                                         doing, FormatMessage("Änderung \"%1\"", step.Name())));
        steps_.clear();
        done_ = 0;
        saved_.reset();
        Follow();
        return false;
    }
}

bool CEditHistory::Undo() {
    if (!CanUndo())
        return false;
    CEditStep& step = *steps_[done_ - 1];
    if (!Run("Undo", "Rückgängigmachen", step, [&step] { step.Undo(); }))
        return false;
    --done_;
    Follow();
    return true;
}

bool CEditHistory::Redo() {
    if (!CanRedo())
        return false;
    CEditStep& step = *steps_[done_];
    if (!Run("Redo", "Wiederholen", step, [&step] { step.Redo(); }))
        return false;
    ++done_;
    Follow();
    return true;
}

void CEditHistory::MarkSaved() {
    saved_ = done_;
    Follow();
}

void CEditHistory::Follow() {
    anlage_.SetChanged(Changed());
}

} // namespace kavrin
