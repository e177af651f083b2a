#pragma once

#include "core/CArrayOfLong.h"
#include "edit/IProc.h"

namespace kavrin {

// Collects the key ids (greater than 0) named on selected tracks: those of their signal messages
// and those their contacts' signal data name. Start begins a new list, Finish sorts it and keeps
// each value once; drive it over the tracks with CForAll.GleiseSelected and read KeyIds after.
class CProcKontaktInSel final : public CLeafProc {
public:
    bool Finish() override;
    bool Process(INode*& node, int32_t key) override;
    bool Start() override;
    // The key ids in ascending order, each once.
    const CArrayOfLong& KeyIds() const { return keyIds_; }

private:
    CArrayOfLong keyIds_;
};

} // namespace kavrin
