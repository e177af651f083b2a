#pragma once

#include <functional>

#include "document/CNodeBase.h"
#include "document/ICopy.h"
#include "nodes/C3Bein.h"
#include "nodes/CGleise.h"

namespace kavrin {

class CNodeGleis;
class CNodeGleisverbindung;

// "Gleissystem": its tracks (kept as children and entered in the registry) and the connections
// between their ends, which live in the tracks and are written anew on saving.
class CNodeGleisSys : public CNodeBase, public ICopy {
public:
    const char* ClassName() const override { return "CNodeGleisSys"; }
    std::string CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool XmlChildren(CXmlWriter& writer) override;
    void Clear() override;

    std::unique_ptr<INode> Clone() const override;
    void Copy(const INode& source) override;

    int16_t ID() const { return id_; }
    // The kind of track system (1 Eisenbahn ... 6 GBS): "TrackSystemNumber" when the file has
    // it, else the id.
    int16_t Number() const;
    C3Bein& DreiBein() { return frame_; }
    const CGleise& Gleise() const { return gleise_; }
    CNodeGleis* FindGleis(int32_t gleisId) const { return gleise_.Find(gleisId); }

    // Removes the connections between track and neighbours that differ from it in `flag`.
    void CutConnections(CNodeGleis& track, const std::function<bool(const CNodeGleis&)>& state);

private:
    bool ApplyConnection(CNodeGleisverbindung& connection);
    bool WriteConnections(CXmlWriter& writer) const;

    int16_t id_ = 0;
    C3Bein frame_;
    bool hasFrame_ = false;
    CGleise gleise_;
};

} // namespace kavrin
