#pragma once

#include "edit/CValueIndex.h"
#include "edit/IProc.h"

namespace kavrin {

class CArrayOfLong;
class CEditStep;

// Lets tracks go of the collectors of the ids in the list (collectors about to be deleted with
// their track-accompanying buildings). Every change goes into the edit step.
class CProcGleisClearKoll final : public CLeafProc {
public:
    bool Process(INode*& node, int32_t key) override;
    void Init(const CArrayOfLong& kollektorIds, CEditStep& step);
    int32_t Cleared() const { return cleared_; }

private:
    CValueIndex ids_;
    CEditStep* step_ = nullptr;
    int32_t cleared_ = 0;
};

} // namespace kavrin
