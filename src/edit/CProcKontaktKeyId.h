#pragma once

#include "edit/CKeyIdFunc.h"
#include "edit/CValueIndex.h"
#include "edit/IProc.h"

namespace kavrin {

class CArrayOfLong;
class CEditStep;

// The key id a contact's signal data names (its low part): with FuncRenum a key id found in the
// list of old ids becomes its position + 1; with FuncErase a contact naming a deleted key id loses
// its signal data (both parts 0). Key ids of 0 or less and ids not in the list stay. Every change
// goes into the edit step.
class CProcKontaktKeyId final : public CLeafProc {
public:
    bool Process(INode*& node, int32_t key) override;
    void Init(int32_t func, const CArrayOfLong& keyIds, CEditStep& step);
    int32_t Changed() const { return changed_; }

    static constexpr int32_t FuncRenum = CKeyIdFunc::FuncRenum;
    static constexpr int32_t FuncErase = CKeyIdFunc::FuncErase;

private:
    int32_t func_ = 0;
    CValueIndex keyIds_;
    CEditStep* step_ = nullptr;
    int32_t changed_ = 0;
};

} // namespace kavrin
