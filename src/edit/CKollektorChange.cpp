#include "edit/CKollektorChange.h"

#include <algorithm>

namespace kavrin {

std::unique_ptr<CKollektorChange> CKollektorChange::Removed(CNodeKollektor& kollektor,
                                                            CNodeKollektor::RemovedEntries removed) {
    return std::unique_ptr<CKollektorChange>(new CKollektorChange(kollektor, std::move(removed)));
}

// The entries stand at the recorded places again, so the same places are taken out.
void CKollektorChange::Redo() {
    const std::vector<int32_t>& indices = removed_.indices;
    int32_t place = 0;
    kollektor_.RemoveGleiseIf([&indices, &place](const CKollektorGleis&) {
        return std::binary_search(indices.begin(), indices.end(), place++);
    });
}

} // namespace kavrin
