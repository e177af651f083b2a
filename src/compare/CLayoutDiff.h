#pragma once

#include <array>
#include <vector>

#include "compare/CDiffEntry.h"

namespace kavrin {

class CAnlage;

// The comparison of two layouts by object: what was added, removed, moved, turned or changed
// from the old layout to the new one, one entry per object and kind of change, ordered by kind
// and id. The entries point into both layouts, which must outlive them.
class CLayoutDiff {
public:
    CLayoutDiff() = default;
    CLayoutDiff(const CAnlage& alt, const CAnlage& neu);

    const std::vector<CDiffEntry>& Entries() const { return entries_; }
    bool Equal() const { return entries_.empty(); }
    long Count(DiffKind kind, DiffChange change) const {
        return counts_[static_cast<size_t>(kind)][static_cast<size_t>(change)];
    }
    long Count(DiffKind kind) const;

private:
    std::vector<CDiffEntry> entries_;
    std::array<std::array<long, kDiffChangeCount>, kDiffKindCount> counts_{};
};

} // namespace kavrin
