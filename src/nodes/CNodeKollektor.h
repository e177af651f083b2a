#pragma once

#include <string>
#include <utility>
#include <vector>

#include "document/CNodeBase.h"
#include "nodes/C3Bein.h"

namespace kavrin {

// One track of a collector, named by track system and track id.
class CKollektorGleis {
public:
    int16_t GleissystemID = 0;
    int32_t GleisID = 0;
    // Attributes beyond the two ids, kept so that nothing is lost.
    std::vector<std::pair<std::string, std::string>> Extra;
};

// "Kollektor": a group of tracks that belongs to a track-accompanying object.
class CNodeKollektor : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeKollektor"; }
    std::string CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool XmlChildren(CXmlWriter& writer) override;
    // Links the named tracks back to this collector.
    bool CheckNode() override;

    int32_t ID() const { return id_; }
    C3Bein& DreiBein() { return frame_; }
    const std::vector<CKollektorGleis>& Gleise() const { return gleise_; }

private:
    CKollektorGleis ReadEntry(const INode& entry) const;

    int32_t id_ = 0;
    C3Bein frame_;
    bool hasFrame_ = false;
    std::vector<CKollektorGleis> gleise_;
};

} // namespace kavrin
