#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "document/CNodeBase.h"
#include "document/ICopy.h"
#include "nodes/CGleisVerbindung.h"
#include "nodes/CGleise.h"
#include "nodes/CObjectFrame.h"

namespace kavrin {

class CNodeGleis;
class CNodeGleisverbindung;

// "Gleissystem": its tracks (kept as children and entered in the registry) and the connection
// records between their ends, kept as read and written back unchanged. Each track also knows
// the first record at each of its ends.
class CNodeGleisSys : public CNodeBase, public ICopy {
public:
    const char* ClassName() const override { return "CNodeGleisSys"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool TakeElement(const XmlElement& element) override;
    void Clear() override;
    // Enters the tracks kept as children in the registry anew, after tracks came or went.
    void RebuildGleise();

    std::unique_ptr<INode> Clone() const override;
    void Copy(const INode& source) override;

    int16_t ID() const { return id_; }
    // The kind of track system (1 Eisenbahn ... 6 GBS): "TrackSystemNumber" when the file has
    // it, else the id. A number beyond the integers is cut to their range.
    int32_t Number() const;
    C3Bein& DreiBein() { return frame_.DreiBein(); }
    const CGleise& Gleise() const { return gleise_; }
    CNodeGleis* FindGleis(int32_t gleisId) const { return gleise_.Find(gleisId); }
    const std::vector<CGleisVerbindung>& Verbindungen() const { return verbindungen_; }

    // Records taken out of the system with their places, so that they go back exactly.
    struct RemovedConnections {
        std::vector<size_t> indices; // ascending
        std::vector<CGleisVerbindung> records;
        std::vector<size_t> orderPlaces;
        bool Empty() const { return indices.empty(); }
    };
    // Takes out every record for which `remove` is true.
    RemovedConnections RemoveConnectionsIf(const std::function<bool(const CGleisVerbindung&)>& remove);
    void RestoreConnections(const RemovedConnections& removed);
    // Takes out the records at these places (ascending), as a cut that was undone is done again.
    RemovedConnections RemoveConnectionsAt(const std::vector<size_t>& indices);
    // Takes out the records that join a track for which `state` holds to one for which it does not.
    RemovedConnections CutConnections(const std::function<bool(const CNodeGleis&)>& state);
    // The same for the records of one track only.
    RemovedConnections CutConnections(CNodeGleis& track, const std::function<bool(const CNodeGleis&)>& state);

protected:
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    // Keeps a record read from the file; drops one that is empty or names a missing track.
    void TakeConnection(std::optional<CGleisVerbindung> record);
    void ReportUnusualId(const CNodeGleis& track) const;
    // Each track end names the first record that joins it.
    void LinkEnds(const CGleisVerbindung& record);
    void RelinkEnds(const std::vector<CGleisVerbindung>& changed);

    int16_t id_ = 0;
    CObjectFrame frame_;
    CGleise gleise_;
    std::vector<CGleisVerbindung> verbindungen_;
};

} // namespace kavrin
