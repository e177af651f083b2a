#pragma once

#include <memory>

#include "edit/CChange.h"
#include "nodes/CNodeKollektor.h"

namespace kavrin {

// Track entries taken out of a collector (they named tracks that were deleted); undo puts them
// back at their places.
class CKollektorChange : public CChange {
public:
    // Records a removal that has been done.
    static std::unique_ptr<CKollektorChange> Removed(CNodeKollektor& kollektor,
                                                     CNodeKollektor::RemovedEntries removed);

    void Undo() override { kollektor_.RestoreGleise(removed_); }
    void Redo() override;
    size_t Count() const { return removed_.indices.size(); }

private:
    CKollektorChange(CNodeKollektor& kollektor, CNodeKollektor::RemovedEntries removed)
        : kollektor_(kollektor), removed_(std::move(removed)) {}

    CNodeKollektor& kollektor_;
    CNodeKollektor::RemovedEntries removed_;
};

} // namespace kavrin
