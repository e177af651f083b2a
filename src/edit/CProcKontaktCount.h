#pragma once

#include <memory>

#include "core/CEntryCounter.h"
#include "edit/IProc.h"

namespace kavrin {

// Counts contacts by their kind (SetType). Init creates the counter once, so a walk below
// descending procedures adds up over every track.
class CProcKontaktCount final : public CLeafProc {
public:
    bool Process(INode*& node, int32_t key) override;
    void Init();
    const CEntryCounter& Counter() const { return *counter_; }

private:
    std::unique_ptr<CEntryCounter> counter_;
};

} // namespace kavrin
