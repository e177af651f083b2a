#pragma once

#include <cstdint>
#include <string>

#include "document/CNodeBase.h"
#include "document/ICopy.h"
#include "plan/CTrackMark.h"

namespace kavrin {

// "Kontakt": a contact placed along its parent track, acting on a contact target. Its signal
// data is held as the low 16 bits and the high part, as the simulator splits it.
class CNodeKontakt final : public CNodeBase, public ICopy, public CTrackMark {
public:
    const char* ClassName() const override { return "CNodeKontakt"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    // Base check, then a position beyond the end of the parent track is moved to its end.
    bool CheckNode() override;
    bool XmlAttributes(CXmlWriter& writer) override;

    std::unique_ptr<INode> Clone() const override;
    void Copy(const INode& source) override;

    double Position() const { return position_; }
    void SetPosition(double position) { position_ = position; }
    int32_t KontaktZiel() const { return kontaktZiel_; }
    void SetKontaktZiel(int32_t target) { kontaktZiel_ = target; }
    int32_t ConnectF() const { return connectF_; }
    int32_t SetType() const { return setType_; }
    int32_t SetValue() const { return setValue_; }
    void SetSetValue(int32_t value) { setValue_ = value; }

    int32_t SignalDataLow() const { return signalLow_; }
    void SetSignalDataLow(int32_t low) { signalLow_ = low; }
    int32_t SignalDataHigh() const { return signalHigh_; }
    void SetSignalDataHigh(int32_t high) { signalHigh_ = high; }
    // The key id of the signal or switch the contact names is the low part.
    int32_t SignalDataKeyId() const { return signalLow_; }
    void SetSignalDataKeyId(int32_t keyId) { signalLow_ = keyId; }
    // high part x 65536 + low part; throws an overflow when that leaves 32 bits.
    int32_t SignalData() const;

    int16_t ClsIdIndex() const { return clsIdIndex_; }
    const std::string& ClsID() const;

protected:
    const INode& MarkNode() const override { return *this; }
    double TrackPosition() const override { return position_; }
    void DrawMark(CPaintTarget& target, double x, double y, const TrackPlace& place) override;

private:
    void SplitSignalData(int32_t value);

    double position_ = 0;
    int32_t kontaktZiel_ = 0;
    int32_t connectF_ = 0;
    int32_t setType_ = 0;
    int32_t setValue_ = 0;
    int32_t signalLow_ = 0;
    int32_t signalHigh_ = 0;
    int16_t clsIdIndex_ = 0;
};

} // namespace kavrin
