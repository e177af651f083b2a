#pragma once

#include <memory>

#include "core/CEntryCounter.h"
#include "core/CStringPack.h"
#include "edit/IProc.h"

namespace kavrin {

// Counts signal messages by their signal's model name. The counter's keys are indices into the
// procedure's own pack of names (a signal without a name counts under the empty name). Init
// creates both once, so a walk below descending procedures adds up over every track.
class CProcSignalCount final : public CLeafProc {
public:
    bool Process(INode*& node, int32_t key) override;
    void Init();
    const CEntryCounter& Counter() const { return *counter_; }
    const CStringPack& Names() const { return *names_; }
    // The name counted under the counter's index-th key.
    const std::string& Name(int32_t index) const;

private:
    std::unique_ptr<CEntryCounter> counter_;
    std::unique_ptr<CStringPack> names_;
};

} // namespace kavrin
