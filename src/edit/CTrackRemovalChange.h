#pragma once

#include <memory>
#include <vector>

#include "edit/CChange.h"
#include "edit/CChildrenChange.h"

namespace kavrin {

class CNodeGleisSys;

// Tracks taken out of their track system at once: the children go as CChildrenChange takes
// them, and the system's track registry follows after each way.
class CTrackRemovalChange : public CChange {
public:
    static std::unique_ptr<CTrackRemovalChange> TakeOut(CNodeGleisSys& system, std::vector<int32_t> indices);

    void Undo() override;
    void Redo() override;

private:
    CTrackRemovalChange(CNodeGleisSys& system, std::unique_ptr<CChildrenChange> children)
        : system_(system), children_(std::move(children)) {}

    CNodeGleisSys& system_;
    std::unique_ptr<CChildrenChange> children_;
};

} // namespace kavrin
