#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "nodes/CBox.h"
#include "nodes/CNodeGleisSys.h"
#include "plan/IPaint.h"

namespace kavrin {

class CPaintTarget;
class CViewOptions;
class IPlaced;

// The selection of one document window: the plan objects (tracks, buildings, goods) the user
// picked, in the order picked, each once. An object is a member exactly when its Selected flag
// is set, and the counters count the members by kind; a track-accompanying building counts as a
// building and as a track object. The selection holds no node: it is cleared before the nodes
// it names go away. Failures are reported (CSelection and the member's name) and end the member.
class CSelection {
public:
    // Connection records a cut took out of one track system.
    struct Cut {
        CNodeGleisSys* system = nullptr;
        CNodeGleisSys::RemovedConnections removed;
    };

    // The members in the order of selection.
    class Enumerator {
    public:
        class iterator {
        public:
            iterator(IPaint* const* at, IPaint* const* end) : at_(at), end_(end) { Skip(); }
            IPaint& operator*() const { return **at_; }
            iterator& operator++() {
                ++at_;
                Skip();
                return *this;
            }
            bool operator!=(const iterator& other) const { return at_ != other.at_; }

        private:
            void Skip() {
                while (at_ != end_ && !*at_)
                    ++at_;
            }
            IPaint* const* at_;
            IPaint* const* end_;
        };
        explicit Enumerator(const std::vector<IPaint*>& members) : members_(members) {}
        iterator begin() const { return {members_.data(), members_.data() + members_.size()}; }
        iterator end() const {
            return {members_.data() + members_.size(), members_.data() + members_.size()};
        }

    private:
        const std::vector<IPaint*>& members_;
    };

    CSelection() = default;
    CSelection(const CSelection&) = delete;
    CSelection& operator=(const CSelection&) = delete;

    void Clear();
    void Add(IPaint& item);
    void Remove(IPaint& item);
    void SetSelection(IPaint& item, bool state);
    // Every member and what moves along with it (a building's own collector and those of its
    // moving parts, with their tracks), each once.
    void Move(double dx, double dy, double dz);
    void Rotate(double angle, double cx, double cy);
    int32_t Count() const { return count_; }
    bool Empty() const { return count_ == 0; }
    // Cuts the connection records between selected and unselected tracks; those inside the
    // selection stay. Returns what each track system lost, for putting it back.
    std::vector<Cut> CutSelection();
    int32_t CountGleise() const { return gleise_; }
    int32_t CountImmos() const { return immos_; }
    int32_t CountGoods() const { return goods_; }
    int32_t CountGleisObjekte() const { return gleisObjekte_; }
    Enumerator NewEnum() const { return Enumerator(members_); }
    // A track taken out by RemoveDeleteables, named by track system and track id.
    struct DroppedTrack {
        int16_t system = 0;
        int32_t id = 0;
    };
    // Takes the members that may be deleted out of the selection (after a deletion: what stays
    // selected is what the simulator's lock kept); the ids of the tracks taken out go back to
    // the caller, in the order of selection.
    std::vector<DroppedTrack> RemoveDeleteables();
    void DecrObjektCount();
    // Tracks by their course (a curve's bulge included), buildings and goods by their
    // position; empty for no member.
    CBox BoundingBox() const;
    // The drawn extent of everything a move or turn changes (the members and what moves along
    // with them), as points: tracks by their course, buildings and goods by their position.
    std::vector<CVector> ExtentPoints() const;
    // "3 Gleise, 12 Immobilien, 0 Güter" (one of a kind in the singular).
    std::string CountsText() const;
    // Draws the members, each in the colour of its kind.
    void Paint(CPaintTarget& target, const CViewOptions& options) const;

    // Everything a move or turn of the selection changes: the members first, in their order,
    // then what moves along with them, without the tracks that are members themselves.
    std::vector<IPlaced*> PlacedObjects() const;
    // Takes out every member for which `drop` holds; the number taken out.
    int32_t RemoveIf(const std::function<bool(const IPaint&)>& drop);
    void Reserve(size_t count);
    // Counts every change of membership, so that a window can tell whether to show it anew.
    uint64_t Generation() const { return generation_; }

private:
    struct Counted {
        int32_t gleise = 0, immos = 0, goods = 0, gleisObjekte = 0;
    };
    // The counters an object of this kind stands in.
    static Counted CountsOf(const IPaint& item);
    void Change(const Counted& counts, int sign);
    void Forget(size_t position);
    void CompactIfSparse();

    std::vector<IPaint*> members_; // null where a member was taken out
    std::unordered_map<uint32_t, uint32_t> positions_;
    size_t holes_ = 0;
    int32_t count_ = 0;
    int32_t gleise_ = 0;
    int32_t immos_ = 0;
    int32_t goods_ = 0;
    int32_t gleisObjekte_ = 0;
    uint64_t generation_ = 0;
};

} // namespace kavrin
