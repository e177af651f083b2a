#pragma once

#include <cstdint>
#include <string>

#include "document/CNodeBase.h"
#include "document/ICopy.h"
#include "plan/CTrackMark.h"

namespace kavrin {

// "Meldung": a signal standing at its parent track. Its contact target number comes from a
// "KontaktZiel" child (-1: none) and is written back as such a child, before the kept ones.
class CNodeMeldung final : public CNodeBase, public ICopy, public CTrackMark {
public:
    const char* ClassName() const override { return "CNodeMeldung"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    // Base check, then a position beyond the end of the parent track is moved to its end.
    bool CheckNode() override;

    std::unique_ptr<INode> Clone() const override;
    void Copy(const INode& source) override;

    int16_t ClsIdIndex() const { return clsIdIndex_; }
    const std::string& ClsID() const;
    // The "name" attribute (the signal's model); Name() is the element's name.
    const std::string& SignalName() const { return signalName_; }
    void SetSignalName(std::string name) { signalName_ = std::move(name); }
    // Makes sure "name" is written, also for a signal read without one.
    void AddAttrName();
    int32_t KeyId() const { return keyId_; }
    void SetKeyId(int32_t keyId) { keyId_ = keyId; }
    double Position() const { return position_; }
    void SetPosition(double position) { position_ = position; }
    int16_t ParaOderAnti() const { return paraOderAnti_; }
    int32_t KontaktZiel() const { return kontaktZiel_; }
    void SetKontaktZiel(int32_t target) { kontaktZiel_ = target; }

protected:
    const INode& MarkNode() const override { return *this; }
    double TrackPosition() const override { return position_; }
    void DrawMark(CPaintTarget& target, double x, double y, const TrackPlace& place) override;

protected:
    // The contact target first, then the kept children, unless the file had them otherwise.
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    bool TakeKontaktZiel(const INode& child);

    int16_t clsIdIndex_ = 0;
    std::string signalName_;
    int32_t keyId_ = 0;
    double position_ = 0;
    int16_t paraOderAnti_ = 0;
    int32_t kontaktZiel_ = -1;
    bool kontaktZielRead_ = false;
};

} // namespace kavrin
