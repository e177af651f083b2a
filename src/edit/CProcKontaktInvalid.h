#pragma once

#include <vector>

#include "edit/IProc.h"

namespace kavrin {

class CNodeKontakt;
class CSet;

// Collects the contacts whose target (greater than 0) is not among the valid targets given to
// Init: targets that no track and no signal carries any more. The list names the contacts, it
// does not own them.
class CProcKontaktInvalid final : public CLeafProc {
public:
    bool Process(INode*& node, int32_t key) override;
    void Init(const CSet& validTargets);
    const std::vector<CNodeKontakt*>& Invalid() const { return invalid_; }

private:
    const CSet* valid_ = nullptr;
    std::vector<CNodeKontakt*> invalid_;
};

} // namespace kavrin
