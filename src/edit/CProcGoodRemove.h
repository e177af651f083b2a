#pragma once

#include <vector>

#include "edit/IProc.h"

namespace kavrin {

class CEditStep;
class CNodeBase;

// Removes the selected goods from the goods list: Process notes each selected good by its key
// (its index in the list, as CForAll.Goods passes it), Finish takes them all out in one recorded
// change. A good refers to nothing else, so nothing is released before it goes.
class CProcGoodRemove final : public CLeafProc {
public:
    bool Finish() override;
    bool Process(INode*& node, int32_t key) override;
    void Init(CEditStep& step);
    bool Start() override;
    int32_t Removed() const { return removed_; }

private:
    CEditStep* step_ = nullptr;
    CNodeBase* list_ = nullptr;
    std::vector<int32_t> keys_;
    int32_t removed_ = 0;
};

} // namespace kavrin
