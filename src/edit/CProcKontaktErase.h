#pragma once

#include <vector>

#include "edit/CValueIndex.h"
#include "edit/IProc.h"

namespace kavrin {

class CArrayOfLong;
class CEditStep;
class CNodeGleis;

// Removes the contacts of a track that refer to something deleted. Runs below CProcKontakte, so
// Start and Finish come once per track: Process notes the contacts to remove (their keys among
// the track's children) and Finish takes them out of that track in one recorded change. A contact
// names its targets only by number, so it holds no reference to release before it goes; it moves
// whole into the edit step. The mode given to Init says which contacts go:
//   0 (ModeTarget): signal or switch contacts (kind 0) whose target is in the list;
//   1 (ModeSwitched): building or DKW/EKW contacts (kind 768 or 1024) whose switched object
//     (SetValue) is in the list;
//   2 (ModeGroup): contacts on a selected track whose kind is in the list.
class CProcKontaktErase final : public CLeafProc {
public:
    bool Finish() override;
    bool Process(INode*& node, int32_t key) override;
    void Init(int32_t mode, const CArrayOfLong& values, CEditStep& step);
    bool Start() override;
    // How many contacts were removed in all.
    int32_t Removed() const { return removed_; }

    static constexpr int32_t ModeTarget = 0;
    static constexpr int32_t ModeSwitched = 1;
    static constexpr int32_t ModeGroup = 2;
    static constexpr int32_t KindSignal = 0;
    static constexpr int32_t KindBuilding = 768;
    static constexpr int32_t KindCrossing = 1024;

private:
    bool Erases(const CNodeGleis& track, int32_t kind, int32_t target, int32_t switched) const;

    int32_t mode_ = -1;
    CValueIndex values_;
    CEditStep* step_ = nullptr;
    CNodeGleis* track_ = nullptr;
    std::vector<int32_t> keys_;
    int32_t removed_ = 0;
};

} // namespace kavrin
