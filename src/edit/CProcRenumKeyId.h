#pragma once

#include "edit/CValueIndex.h"
#include "edit/IProc.h"

namespace kavrin {

class CArrayOfLong;
class CEditStep;

// Gives tracks and signal messages the key id that follows from their old one's place in a list:
// the old value at position p (from 0) becomes p + 1, so the list's ids become 1, 2, 3 … in its
// order. Key ids of 0 or less, values not in the list and other nodes are left alone. Every
// change goes into the edit step.
class CProcRenumKeyId final : public CLeafProc {
public:
    bool Process(INode*& node, int32_t key) override;
    // The old key ids in the order of their new ones, and the step that records the changes.
    void Init(const CArrayOfLong& oldIds, CEditStep& step);
    // How many key ids were changed.
    int32_t Changed() const { return changed_; }

private:
    int32_t NewId(int32_t oldId) const;

    CValueIndex oldIds_;
    CEditStep* step_ = nullptr;
    int32_t changed_ = 0;
};

} // namespace kavrin
