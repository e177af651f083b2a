#pragma once

#include <optional>
#include <vector>

#include "compare/CDiffEntry.h"
#include "nodes/CVector.h"

namespace kavrin {

class C3Bein;

// Where an object stands and which way it faces (cm; the direction vectors of its frame).
struct CDiffPlace {
    CVector pos;
    CVector dir{1, 0, 0};
    CVector nor{0, 1, 0};
    CVector bin{0, 0, 1};
    static CDiffPlace Of(const C3Bein& frame);
};

// Collects the entries of a comparison. Each object is described once (kind, name, order, its
// nodes and places); the collector makes one entry per kind of change from that.
class CDiffCollector {
public:
    struct Object {
        DiffKind kind = DiffKind::Sonstiges;
        std::string name;
        std::array<int64_t, 3> order{};
        std::string orderName;
        const INode* oldNode = nullptr;
        const INode* newNode = nullptr;
        std::optional<CDiffPlace> oldPlace;
        std::optional<CDiffPlace> newPlace;
    };

    void Added(const Object& object);
    void Removed(const Object& object);
    // A matched object: moved and turned from its places, changed when `values` holds anything.
    void Matched(const Object& object, std::vector<CDiffValue> values);

    std::vector<CDiffEntry>& Entries() { return entries_; }

private:
    CDiffEntry Entry(const Object& object, DiffChange change) const;

    std::vector<CDiffEntry> entries_;
};

} // namespace kavrin
