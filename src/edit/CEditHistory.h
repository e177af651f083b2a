#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "edit/CEditStep.h"

namespace kavrin {

class CAnlage;

// The undo history of one layout: the edits done, in order, and how many of them are in force.
// The layout counts as changed exactly when the steps in force differ from those it was last
// saved (or loaded) with; a layout that a load-time repair changed stays changed until it is
// saved. Steps undone and then overtaken by a new edit are dropped, with the nodes they hold.
class CEditHistory {
public:
    explicit CEditHistory(CAnlage& anlage);
    ~CEditHistory();
    CEditHistory(const CEditHistory&) = delete;
    CEditHistory& operator=(const CEditHistory&) = delete;

    // Forgets every step; the layout as it stands now is the starting point.
    void Reset();
    // An edit that has been done: the step to undo next. An empty step is not kept; true when
    // the step was kept.
    bool Record(std::unique_ptr<CEditStep> step);
    // Told of every step Record keeps, right after it is kept (a window's undo stack follows the
    // history so, whoever recorded the edit). One listener; an empty function removes it.
    using RecordListener = std::function<void(const CEditStep& step)>;
    void SetRecordListener(RecordListener listener) { listener_ = std::move(listener); }
    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    // The name of the step Undo (Redo) would take back (do again); empty when there is none.
    std::string UndoName() const;
    std::string RedoName() const;
    // False when there was nothing to do or it failed (reported; the history is then dropped).
    bool Undo();
    bool Redo();
    // A step in force: 0 the last one done, 1 the one before it; null beyond the first.
    const CEditStep* StepInForce(size_t back) const {
        return back < done_ ? steps_[done_ - 1 - back].get() : nullptr;
    }
    // Steps in force, and steps kept in all.
    size_t Done() const { return done_; }
    size_t Count() const { return steps_.size(); }

    // The layout was saved as it stands.
    void MarkSaved();
    bool Changed() const { return saved_ != done_; }

private:
    template <typename Work>
    bool Run(const char* member, const char* doing, const CEditStep& step, Work work);
    void Follow();

    CAnlage& anlage_;
    std::vector<std::unique_ptr<CEditStep>> steps_;
    size_t done_ = 0;
    // Steps in force when the layout was last saved; none when no state of the history is.
    std::optional<size_t> saved_;
    RecordListener listener_;
};

} // namespace kavrin
