#pragma once

#include <memory>
#include <string>
#include <vector>

#include "edit/CChange.h"

namespace kavrin {

// One edit as the user sees it ("Verschieben", "Drehen", "Auswahl lösen"): the changes it made,
// undone from the last to the first and redone in their order.
class CEditStep {
public:
    explicit CEditStep(std::string name) : name_(std::move(name)) {}

    const std::string& Name() const { return name_; }
    // A change that is null (nothing to record) is passed over.
    void Add(std::unique_ptr<CChange> change) {
        if (change)
            changes_.push_back(std::move(change));
    }
    size_t Count() const { return changes_.size(); }
    // The change of a step made of one change; null otherwise.
    const CChange* OnlyChange() const { return changes_.size() == 1 ? changes_.front().get() : nullptr; }
    bool Empty() const { return changes_.empty(); }

    void Undo();
    void Redo();

private:
    std::string name_;
    std::vector<std::unique_ptr<CChange>> changes_;
};

} // namespace kavrin
