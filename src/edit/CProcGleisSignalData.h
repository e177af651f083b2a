#pragma once

#include "edit/CKeyIdFunc.h"
#include "edit/CValueIndex.h"
#include "edit/IProc.h"

namespace kavrin {

class CArrayOfLong;
class CEditStep;

// The signal data of tracks: its low 16 bits name a key id (as in a contact's signal data), the
// high part goes along unchanged. With FuncRenum a key id found in the list of old ids becomes its
// position + 1; with FuncErase a track whose key id is in the list of deleted ids loses its whole
// signal data (0). Any other mode changes nothing. Every change goes into the edit step.
class CProcGleisSignalData final : public CLeafProc {
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
