#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "document/CNodeBase.h"
#include "document/CNodePool.h"
#include "document/ICopy.h"
#include "document/NodeAttributes.h"
#include "nodes/C3Bein.h"
#include "nodes/CObjectFrame.h"
#include "nodes/CTrackCurve.h"
#include "nodes/IPlaced.h"
#include "plan/CPaintState.h"

namespace kavrin {

class CNodeKollektor;
class CNodeGleisSys;
class CTrackGeometry;

// End numbers of a track piece.
enum TrackEnd : int16_t { kAnfang = 1, kEnde = 2, kEndeAbzweig = 3, kEndeKoAbzweig = 4 };

// "Gleis" inside a "Gleissystem": one track piece with its ids, characteristic, frame and the
// connections at its (up to four) ends. Classic tracks carry Dreibein, Anfangsfuehrungsverdrehung
// and Charakteristik; tracks of the newer format carry Frame, Interval, Curve and Twist instead
// (CTrackCurve). Children are written back in the order read.
class CNodeGleis final : public CPaintState, public CNodeBase, public ICopy, public IPlaced {
public:
    // Where the track's own children stand in the order of its children.
    enum Slot : uint8_t {
        kTargetSlot = 1,
        kDreibeinSlot,
        kAnfSlot,
        kCharakteristikSlot,
        kFrameSlot,
        kIntervalSlot,
        kCurveSlot,
        kTwistSlot,
    };

    CNodeGleis();
    ~CNodeGleis() override;
    KAVRIN_NODE_POOLED(CNodeGleis)

    const char* ClassName() const override { return "CNodeGleis"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    Variant XmlAttr(std::string_view name) const override;
    bool AddChild(std::unique_ptr<INode>& child) override;
    bool TakeElement(const XmlElement& element) override;

    std::unique_ptr<INode> Clone() const override;
    void Copy(const INode& source) override;

    int32_t ID() const { return id_; }
    void SetID(int32_t id) { id_ = id; }
    int16_t GleisSysID() const { return gleisSysId_; }
    void SetGleisSysID(int16_t id) { gleisSysId_ = id; }
    int16_t ClsIDIndex() const { return clsIdIndex_; }
    const std::string& ClsID() const;
    int16_t Data() const { return data_; }
    int16_t Stil() const { return stil_; }
    void SetStil(int16_t stil) { stil_ = stil; }
    // Makes sure "stil" is written, also for a track read without one.
    void AddAttrStil();
    int16_t WeichenStellung() const { return weichenStellung_; }
    int32_t KeyId() const { return keyId_; }
    void SetKeyId(int32_t keyId) { keyId_ = keyId; }
    int32_t SignalData() const { return signalData_; }
    void SetSignalData(int32_t value) { signalData_ = value; }
    int32_t KontaktZiel() const { return kontaktZiel_; }

    // Connection at end e (1..4): the neighbour's id (<= 0: none) and its end number.
    int32_t Verbindung(int16_t end) const;
    void SetVerbindung(int16_t end, int32_t gleisId);
    int16_t Anschluss(int16_t end) const;
    void SetAnschluss(int16_t end, int16_t otherEnd);
    void Disconnect(int16_t end);

    double Kruemmung() const { return kruemmung_; }
    double Torsion() const { return torsion_; }
    double FVerdreh() const { return fVerdreh_; }
    double AnfFuehrVerdrehung() const { return anfFuehrVerdrehung_; }
    // Length in cm; for the newer format taken from the curve's interval.
    double Laenge() const;

    // The classic frame ("Dreibein").
    C3Bein& DreiBein() { return frame_.DreiBein(); }
    const C3Bein& DreiBein() const { return frame_.DreiBein(); }
    // The newer format's children; nullptr for a classic track.
    const CTrackCurve* Curve() const { return curve_.get(); }
    // Moves the track through the frame it is drawn and saved with (either format).
    void MovePos(double dx, double dy, double dz = 0);

    // True for a track read in the newer format.
    bool IsNewFormat() const { return curve_ != nullptr; }
    bool IsSwitch() const; // switch or three-way switch
    bool IsBufferStop() const;

    CNodeKollektor* Kollektor() const { return kollektor_; }
    void SetKollektor(CNodeKollektor* kollektor) { kollektor_ = kollektor; }

    // "Gleis 12 (Eisenbahn)" style identification for messages.
    std::string PrintId() const;
    // The model of the track style ("gsbname"), empty when the file names none.
    std::string ModelName() const;

    // On the plan: the centre line, the name with WithNames, and signals and contacts with
    // WithSignals. Culled by the start point with the track's length as margin.
    bool Paint(CPaintTarget& target) override;
    // Both ends inside the rectangle.
    bool inRect(const CRect& world) const override;
    void Move(double dx, double dy, double dz) override { MovePos(dx, dy, dz); }
    void Rotate(double angle, double cx, double cy) override;
    Kind PaintKind() const override { return Kind::Gleis; }
    // Not while the simulator has it locked ("LockEd" other than 0).
    bool isDeleteable() const override { return !LockedInSimulator(*this); }

    // The frame the track is drawn and saved with: the Dreibein, or the newer format's Frame
    // (with the text kept for it).
    void MoveFrame(double dx, double dy, double dz) override { MovePos(dx, dy, dz); }
    void RotateFrame(double angle, double cx, double cy) override { Rotate(angle, cx, cy); }
    CPlacement TakePlacement(bool turning) override;
    void SetPlacement(CPlacement&& placement) override;

    // Start point and length without building the whole geometry: the frame for classic
    // tracks, a cached value for the newer format, whose geometry takes reading elements.
    CVector Anchor(double& length) const;
    // Hides the signals and contacts of the track (WithSignals off).
    void HideTrackMarks();

protected:
    std::span<const uint8_t> DefaultSlots() const override;
    int OwnedChildCount(uint8_t slot) const override;
    bool WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) override;

private:
    bool ConsumeChild(std::unique_ptr<INode>& child);
    void ReportRepeatedPart(const INode& child) const;
    bool TakeKontaktZiel(const INode& child);
    bool TakeClassicElement(const XmlElement& element);
    void SetReadKontaktZiel(int32_t target);
    CTrackCurve& NewFormat();
    // A frame the curve could not take stays a node; its numbers follow the track's.
    void UpdateKeptFrame();
    void ForgetGeometry();
    template <typename Transform> void CarryGeometry(Transform transform);
    // The newer format's centre line for the target, sampled anew only when its step changes.
    const std::vector<CVector>& CachedPolyline(const CPaintTarget& target);
    void PaintSignals(CPaintTarget& target, const CTrackGeometry& geometry);
    void PaintName(CPaintTarget& target, const CTrackGeometry& geometry) const;
    // The Position and the three Vectors of a frame kept as a node, as far as it has them.
    std::vector<INode*> KeptFrameElements() const;
    void WriteCharakteristik(CXmlWriter& writer) const;
    void WriteAnfFuehrVerdrehung(CXmlWriter& writer) const;
    int16_t CheckedEnd(int16_t end) const;

    int32_t id_ = 0;
    int16_t gleisSysId_ = 0;
    int16_t clsIdIndex_ = 0;
    int16_t data_ = 0;
    int16_t stil_ = 0;
    int16_t weichenStellung_ = 0;
    int32_t keyId_ = 0;
    int32_t signalData_ = 0;
    int32_t kontaktZiel_ = -1;
    bool kontaktZielRead_ = false;
    std::array<int32_t, 4> verbindung_{};
    std::array<int16_t, 4> anschluss_{};
    double kruemmung_ = 0;
    double torsion_ = 0;
    double fVerdreh_ = 0;
    double laenge_ = 0;
    double anfFuehrVerdrehung_ = 0;
    bool hasAnf_ = false;
    bool hasCharakteristik_ = false;
    CObjectFrame frame_;
    std::unique_ptr<CTrackCurve> curve_;
    INode* keptFrame_ = nullptr;
    CNodeKollektor* kollektor_ = nullptr;
    mutable CVector anchorStart_;
    mutable double anchorLength_ = -1;
    mutable double anchorCurvature_ = -1;
    // The newer format's centre line as last drawn, and the sampling step it was drawn with.
    struct Polyline {
        double step = -1;
        std::vector<CVector> points;
    };
    std::unique_ptr<Polyline> polyline_;
    // Attribute lists of the consumed characteristic elements, so their order and any
    // attributes beyond the known ones are written back as read.
    CDictionary charakteristikAttributes_;
    CDictionary anfFuehrAttributes_;
};

} // namespace kavrin
