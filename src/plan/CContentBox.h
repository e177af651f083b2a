#pragma once

#include <optional>

#include "nodes/CRect.h"

namespace kavrin {

class CAnlage;
class CVector;

// The part of a layout that holds something to look at: the tracks of the track systems the
// plan draws, the buildings and structures of every collection, and the goods. The window opens
// on it and "Auf Inhalt zoomen" returns to it. Points outside the layout rectangle (damaged
// coordinates) are left out, so one stray object cannot shrink the content to a speck.
class CContentBox {
public:
    // Normalised (Top >= Bottom); nothing when the layout holds nothing inside `layout`.
    static std::optional<CRect> Of(const CAnlage& anlage, const CRect& layout);

private:
    explicit CContentBox(const CRect& layout) : layout_(layout) {}
    void Add(const CVector& point);
    void AddTracks(const CAnlage& anlage);
    void AddPlacedObjects(const CAnlage& anlage);

    CRect layout_;
    CRect box_;
    bool empty_ = true;
};

} // namespace kavrin
