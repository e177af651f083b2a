#pragma once

#include <string>
#include <utility>
#include <vector>

#include "document/CNodeBase.h"
#include "nodes/CObjectFrame.h"
#include "nodes/IPlaced.h"

namespace kavrin {

// One track of a collector, named by track system and track id.
class CKollektorGleis {
public:
    int16_t GleissystemID = 0;
    int32_t GleisID = 0;
    // The attributes as read, when they are more than the two ids in their usual order and
    // form; written back so.
    std::vector<std::pair<std::string, std::string>> AsRead;
};

// "Kollektor": a group of tracks that belongs to a track-accompanying object or to a moving part
// of a building; it has a frame of its own, which moves and turns with that building.
class CNodeKollektor : public CNodeBase, public IPlaced {
public:
    const char* ClassName() const override { return "CNodeKollektor"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool TakeElement(const XmlElement& element) override;
    // Links the named tracks back to this collector.
    bool CheckNode() override;

    int32_t ID() const { return id_; }
    C3Bein& DreiBein() { return frame_.DreiBein(); }
    const C3Bein& DreiBein() const { return frame_.DreiBein(); }
    // Its own frame only; the tracks it lists are moved by whoever moves it.
    void Move(double dx, double dy, double dz) { frame_.MovePos(dx, dy, dz); }
    void Rotate(double angle, double cx, double cy) { frame_.Rotate(angle, cx, cy); }

    void MoveFrame(double dx, double dy, double dz) override { Move(dx, dy, dz); }
    void RotateFrame(double angle, double cx, double cy) override { Rotate(angle, cx, cy); }
    CPlacement TakePlacement(bool turning) override { return frame_.Placement(turning); }
    void SetPlacement(CPlacement&& placement) override { frame_.SetPlacement(placement); }
    const std::vector<CKollektorGleis>& Gleise() const { return gleise_; }

    // Track entries taken out with their places, so that they go back exactly.
    struct RemovedEntries {
        std::vector<int32_t> indices; // ascending
        std::vector<CKollektorGleis> entries;
        std::vector<size_t> orderPlaces;
        bool Empty() const { return indices.empty(); }
    };
    // Takes out every track entry for which `remove` is true, in one pass.
    template <typename Predicate> RemovedEntries RemoveGleiseIf(Predicate remove) {
        RemovedEntries removed;
        size_t kept = 0;
        for (size_t i = 0; i < gleise_.size(); ++i) {
            if (remove(gleise_[i])) {
                removed.indices.push_back(static_cast<int32_t>(i));
                removed.entries.push_back(std::move(gleise_[i]));
            } else {
                gleise_[kept++] = std::move(gleise_[i]);
            }
        }
        gleise_.resize(kept);
        removed.orderPlaces = ChildOrder().RemovedMany(kEntrySlot, removed.indices);
        return removed;
    }
    void RestoreGleise(const RemovedEntries& removed);

protected:
    // Frame, track entries, kept children, unless the file had them otherwise.
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    static constexpr uint8_t kEntrySlot = 2;
    CKollektorGleis ReadEntry(const INode& entry) const;

    int32_t id_ = 0;
    CObjectFrame frame_;
    std::vector<CKollektorGleis> gleise_;
};

} // namespace kavrin
