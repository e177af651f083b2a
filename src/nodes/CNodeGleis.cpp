#include "nodes/CNodeGleis.h"

#include <cmath>
#include <pugixml.hpp>

#include "core/CStringPack.h"
#include "document/CAnlage.h"
#include "document/CParseSource.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeAnfFuehrVerdrehung.h"
#include "nodes/CNodeCharakteristik.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CObjectTexte.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/modNodes.h"
#include "plan/CPaintTarget.h"
#include "plan/CTrackMark.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
constexpr const char* kBufferStopClsId = "06D80C90-4E4B-469B-BFE0-509A573EBC99";
constexpr const char* kSwitchClsId = "C889EADB-63B5-44A2-AAB9-457424CFF15F";
constexpr const char* kThreeWaySwitchClsId = "B0818DD8-5DFD-409F-8022-993FD3C90759";
} // namespace

CNodeGleis::CNodeGleis() = default;
CNodeGleis::~CNodeGleis() = default;

std::string_view CNodeGleis::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "GleisID")
        id_ = TextToLong(value);
    else if (name == "clsid")
        clsIdIndex_ = ClassTexts().PutString(value);
    else if (name == "data")
        data_ = TextToInteger(value);
    else if (name == "stil")
        stil_ = TextToInteger(value);
    else if (name == "weichenstellung")
        weichenStellung_ = TextToInteger(value);
    else if (name == "Key_Id")
        keyId_ = TextToLong(value);
    else if (name == "SignalData")
        signalData_ = TextToLong(value);
    else
        return value;
    return kOwnedValue;
}

Variant CNodeGleis::XmlAttr(std::string_view name) const {
    if (name == "GleisID")
        return id_;
    if (name == "clsid")
        return ClsID();
    if (name == "data")
        return data_;
    if (name == "stil")
        return stil_;
    if (name == "weichenstellung")
        return weichenStellung_;
    if (name == "Key_Id")
        return keyId_;
    if (name == "SignalData")
        return signalData_;
    return {};
}

namespace {
CTrackCurve::Part PartOf(uint8_t slot) {
    return static_cast<CTrackCurve::Part>(slot - CNodeGleis::kFrameSlot);
}
} // namespace

std::span<const uint8_t> CNodeGleis::DefaultSlots() const {
    static const uint8_t order[] = {kTargetSlot,   kDreibeinSlot, kAnfSlot,   kCharakteristikSlot, kFrameSlot,
                                    kIntervalSlot, kCurveSlot,    kTwistSlot, CChildOrder::kKept};
    return order;
}

int CNodeGleis::OwnedChildCount(uint8_t slot) const {
    switch (slot) {
    case kTargetSlot:
        return kontaktZiel_ != -1 ? 1 : 0;
    case kDreibeinSlot:
        return frame_.Present() ? 1 : 0;
    case kAnfSlot:
        return hasAnf_ ? 1 : 0;
    case kCharakteristikSlot:
        return hasCharakteristik_ ? 1 : 0;
    case kFrameSlot:
    case kIntervalSlot:
    case kCurveSlot:
    case kTwistSlot:
        return curve_ && curve_->Has(PartOf(slot)) ? 1 : 0;
    default:
        return 0;
    }
}

bool CNodeGleis::WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int) {
    switch (slot) {
    case kTargetSlot:
        WriteKontaktZiel(writer, kontaktZiel_);
        return true;
    case kDreibeinSlot:
        return frame_.Write(writer);
    case kAnfSlot:
        WriteAnfFuehrVerdrehung(writer);
        return true;
    case kCharakteristikSlot:
        WriteCharakteristik(writer);
        return true;
    default:
        curve_->Write(writer, PartOf(slot));
        return true;
    }
}

namespace {
// Writes the attributes as read, taking the known ones from the track; a track made in code
// (no attributes read) gets the known ones in their usual order.
template <typename ValueOf>
void WriteOwnedAttributes(CXmlWriter& writer, const CDictionary& read,
                          std::initializer_list<const char*> known, ValueOf valueOf) {
    if (read.Empty()) {
        for (const char* name : known)
            writer.PlainAttribute(name, NumberToText(valueOf(name)));
        return;
    }
    for (CDictionary::Entry entry : read.Entries()) {
        const std::string& name = AttributeNames().GetString(entry.key);
        if (entry.value == kOwnedValue)
            writer.PlainAttribute(name, NumberToText(valueOf(name)));
        else if (IsKeptNumber(entry.value))
            writer.Attribute(name, KeptNumberText(entry.value, valueOf(name)));
        else
            writer.Attribute(name, entry.value);
    }
}
} // namespace

void CNodeGleis::WriteAnfFuehrVerdrehung(CXmlWriter& writer) const {
    writer.StartElement("Anfangsfuehrungsverdrehung");
    WriteOwnedAttributes(writer, anfFuehrAttributes_, {"Wert"},
                         [this](std::string_view) { return anfFuehrVerdrehung_; });
    writer.EndElement();
}

void CNodeGleis::WriteCharakteristik(CXmlWriter& writer) const {
    writer.StartElement("Charakteristik");
    WriteOwnedAttributes(writer, charakteristikAttributes_,
                         {"Kruemmung", "Torsion", "Fuehrungsverdrehung", "Laenge"},
                         [this](std::string_view name) {
                             if (name == "Kruemmung")
                                 return kruemmung_;
                             if (name == "Torsion")
                                 return torsion_;
                             if (name == "Fuehrungsverdrehung")
                                 return fVerdreh_;
                             return laenge_;
                         });
    writer.EndElement();
}

std::unique_ptr<INode> CNodeGleis::Clone() const {
    return CloneOf(*this);
}

void CNodeGleis::Copy(const INode& source) {
    CopyBaseContent(source);
    const auto* track = dynamic_cast<const CNodeGleis*>(&source);
    if (!track)
        return;
    frame_.CopyFrom(track->frame_, this);
    curve_ = track->curve_ ? std::make_unique<CTrackCurve>(*track->curve_) : nullptr;
    keptFrame_ = nullptr;
    if (curve_)
        for (const auto& child : SubNodes())
            if (child->Name() == "Frame" && !keptFrame_)
                keptFrame_ = child.get();
    id_ = track->id_;
    gleisSysId_ = track->gleisSysId_;
    clsIdIndex_ = track->clsIdIndex_;
    data_ = track->data_;
    stil_ = track->stil_;
    weichenStellung_ = track->weichenStellung_;
    keyId_ = track->keyId_;
    signalData_ = track->signalData_;
    kontaktZiel_ = track->kontaktZiel_;
    kontaktZielRead_ = track->kontaktZielRead_;
    kruemmung_ = track->kruemmung_;
    torsion_ = track->torsion_;
    fVerdreh_ = track->fVerdreh_;
    laenge_ = track->laenge_;
    ForgetGeometry();
    anfFuehrVerdrehung_ = track->anfFuehrVerdrehung_;
    hasAnf_ = track->hasAnf_;
    hasCharakteristik_ = track->hasCharakteristik_;
    charakteristikAttributes_ = track->charakteristikAttributes_;
    anfFuehrAttributes_ = track->anfFuehrAttributes_;
    // Connections belong to the network the original sits in; a copy starts unconnected.
    verbindung_ = {};
    anschluss_ = {};
}

const std::string& CNodeGleis::ClsID() const {
    return ClassTexts().GetString(clsIdIndex_);
}

void CNodeGleis::AddAttrStil() {
    AddOwnedAttribute(*this, "stil");
}

int16_t CNodeGleis::CheckedEnd(int16_t end) const {
    if (end < kAnfang || end > kEndeKoAbzweig)
        throw CError::SubscriptOutOfRange();
    return static_cast<int16_t>(end - 1);
}

int32_t CNodeGleis::Verbindung(int16_t end) const {
    return verbindung_[static_cast<size_t>(CheckedEnd(end))];
}

void CNodeGleis::SetVerbindung(int16_t end, int32_t gleisId) {
    verbindung_[static_cast<size_t>(CheckedEnd(end))] = gleisId;
}

int16_t CNodeGleis::Anschluss(int16_t end) const {
    return anschluss_[static_cast<size_t>(CheckedEnd(end))];
}

void CNodeGleis::SetAnschluss(int16_t end, int16_t otherEnd) {
    anschluss_[static_cast<size_t>(CheckedEnd(end))] = otherEnd;
}

void CNodeGleis::Disconnect(int16_t end) {
    SetVerbindung(end, 0);
    SetAnschluss(end, 0);
}

double CNodeGleis::Laenge() const {
    double length = laenge_;
    if (curve_)
        Anchor(length);
    return length;
}

void CNodeGleis::MovePos(double dx, double dy, double dz) {
    if (curve_) {
        curve_->Move(dx, dy, dz);
        UpdateKeptFrame();
    } else {
        DreiBein().Move(dx, dy, dz);
    }
    CarryGeometry([dx, dy, dz](CVector& point) { point.Move(dx, dy, dz); });
}

void CNodeGleis::Rotate(double angle, double cx, double cy) {
    if (CVector::IsFullTurn(angle))
        return;
    if (curve_) {
        curve_->Rotate(angle, cx, cy);
        UpdateKeptFrame();
    } else {
        DreiBein().Rotate(angle, cx, cy);
    }
    double c = 0, s = 0;
    CVector::TurnFactors(angle, c, s);
    CarryGeometry([cx, cy, c, s](CVector& point) {
        point.Move(-cx, -cy, 0);
        point.Rotate(c, s);
        point.Move(cx, cy, 0);
    });
}

// A move or turn keeps the piece's shape: the start and centre line worked out for the newer
// format go along with it (they only cull and draw), so that a large edit is not followed by a
// drawing that builds every piece's geometry anew.
template <typename Transform> void CNodeGleis::CarryGeometry(Transform transform) {
    if (!curve_) {
        MoveAnchor(DreiBein().Pos(), laenge_);
        return;
    }
    if (anchorLength_ < 0) {
        ForgetGeometry();
        return;
    }
    transform(anchorStart_);
    if (polyline_)
        for (CVector& point : polyline_->points)
            transform(point);
    if (AnchorKnown())
        SetAnchor(anchorStart_.X, anchorStart_.Y, anchorStart_.Z, anchorLength_);
}

namespace {
void SetCoordinates(INode& element, const char* const names[3], const CVector& v) {
    SetAttributeText(element, names[0], NumberToText(v.X));
    SetAttributeText(element, names[1], NumberToText(v.Y));
    SetAttributeText(element, names[2], NumberToText(v.Z));
}
} // namespace

// The first Position and the three Vectors after it carry the frame's numbers, as they were read.
std::vector<INode*> CNodeGleis::KeptFrameElements() const {
    std::vector<INode*> elements;
    if (!keptFrame_)
        return elements;
    for (const auto& child : keptFrame_->SubNodes()) {
        const std::string& name = child->Name();
        if (elements.empty() ? name == "Position" : name == "Vector")
            elements.push_back(child.get());
        if (elements.size() == 4)
            break;
    }
    return elements;
}

void CNodeGleis::UpdateKeptFrame() {
    static const char* const position[] = {"x", "y", "z"};
    static const char* const vector[] = {"dx", "dy", "dz"};
    const CTrackCurve::Frame& frame = curve_->GetFrame();
    std::vector<INode*> elements = KeptFrameElements();
    for (size_t i = 0; i < elements.size(); ++i)
        SetCoordinates(*elements[i], i == 0 ? position : vector, i == 0 ? frame.position : frame.axes[i - 1]);
}

CPlacement CNodeGleis::TakePlacement(bool turning) {
    if (!curve_)
        return frame_.Placement(turning);
    const CTrackCurve::Frame& frame = curve_->GetFrame();
    CPlacement placement;
    placement.pos = frame.position;
    placement.turning = turning;
    if (turning)
        placement.axes = frame.axes;
    placement.kept.frame = curve_->TakeFrameText();
    for (const INode* element : KeptFrameElements())
        placement.kept.attributes.push_back(element->Attributes());
    if (anchorLength_ >= 0) {
        placement.kept.startKnown = true;
        placement.kept.start = anchorStart_;
        placement.kept.length = anchorLength_;
        placement.kept.curvature = anchorCurvature_;
    }
    return placement;
}

void CNodeGleis::SetPlacement(CPlacement&& placement) {
    if (!curve_) {
        frame_.SetPlacement(placement);
        MoveAnchor(DreiBein().Pos(), laenge_);
        return;
    }
    CTrackCurve::Frame frame = curve_->GetFrame();
    frame.position = placement.pos;
    if (placement.turning)
        frame.axes = placement.axes;
    curve_->SetFrame(frame, std::move(placement.kept.frame));
    std::vector<INode*> elements = KeptFrameElements();
    for (size_t i = 0; i < elements.size() && i < placement.kept.attributes.size(); ++i)
        elements[i]->Attributes() = std::move(placement.kept.attributes[i]);
    const bool anchored = AnchorKnown();
    ForgetGeometry();
    if (!placement.kept.startKnown)
        return;
    // Worked out from exactly these values before the edit: still right.
    anchorStart_ = placement.kept.start;
    anchorLength_ = placement.kept.length;
    anchorCurvature_ = placement.kept.curvature;
    if (anchored)
        SetAnchor(anchorStart_.X, anchorStart_.Y, anchorStart_.Z, anchorLength_);
}

void CNodeGleis::ForgetGeometry() {
    anchorLength_ = -1;
    polyline_.reset();
    ForgetAnchor();
}

const std::vector<CVector>& CNodeGleis::CachedPolyline(const CPaintTarget& target) {
    double length = 0;
    Anchor(length);
    double step = TrackSampleStep(target, anchorCurvature_, length);
    if (!polyline_)
        polyline_ = std::make_unique<Polyline>();
    if (polyline_->step != step) {
        SampleTrackLine(CTrackGeometry(*this), step, polyline_->points);
        polyline_->step = step;
    }
    return polyline_->points;
}

CVector CNodeGleis::Anchor(double& length) const {
    if (!curve_) {
        length = laenge_;
        return DreiBein().Pos();
    }
    if (anchorLength_ < 0) {
        CTrackGeometry geometry(*this);
        anchorStart_ = geometry.Start();
        anchorLength_ = geometry.Length();
        anchorCurvature_ = geometry.Curvature();
    }
    length = anchorLength_;
    return anchorStart_;
}

bool CNodeGleis::IsSwitch() const {
    const std::string& clsId = ClsID();
    return clsId == kSwitchClsId || clsId == kThreeWaySwitchClsId;
}

bool CNodeGleis::IsBufferStop() const {
    return ClsID() == kBufferStopClsId;
}

std::string CNodeGleis::PrintId() const {
    return FormatMessage("%1 [%2]", id_, CObjectTexte::GleisSystem(gleisSysId_));
}

namespace {
// A signal or contact among the children; the name test spares the cast for everything else.
CTrackMark* TrackMarkOf(INode& child) {
    const std::string& name = child.Name();
    return name == "Kontakt" || name == "Meldung" ? dynamic_cast<CTrackMark*>(&child) : nullptr;
}
} // namespace

std::string CNodeGleis::ModelName() const {
    return kavrin::ModelName(AttributeText(*this, "gsbname"));
}

bool CNodeGleis::Paint(CPaintTarget& target) {
    double length = 0;
    if (!AnchorKnown()) {
        CVector start = Anchor(length);
        SetAnchor(start.X, start.Y, start.Z, length);
    }
    double x = 0, y = 0;
    if (!PaintPrologueAtAnchor(target, x, y))
        return PaintEpilogue(false);
    length = Laenge();
    // A straight classic piece needs only its frame's position and direction: the commonest
    // case of a large layout is drawn without building the geometry.
    bool straight = !IsNewFormat() && std::fabs(kruemmung_) < 1e-10;
    if (straight)
        DrawStraightTrack(target, DreiBein().Pos(), DreiBein().Dir(), length, Selected());
    else if (IsNewFormat())
        DrawTrackPolyline(target, CachedPolyline(target), Selected());
    if ((straight || IsNewFormat()) && !target.WithNames && !target.WithSignals)
        return PaintEpilogue(true);
    CTrackGeometry geometry(*this);
    if (!straight && !IsNewFormat())
        DrawTrackLine(target, geometry, Selected());
    if (target.WithNames)
        PaintName(target, geometry);
    if (target.WithSignals)
        PaintSignals(target, geometry);
    return PaintEpilogue(true);
}

// A layout is made of many short pieces of the same style; a name is written only where its
// piece is long enough on screen to carry it, so the plan does not drown in text.
void CNodeGleis::PaintName(CPaintTarget& target, const CTrackGeometry& geometry) const {
    constexpr double kPixelsPerLetter = 7;
    std::string name = ModelName();
    if (geometry.Length() < kPixelsPerLetter * static_cast<double>(name.size()) * target.PixelSize())
        return;
    CVector middle = geometry.PointAt(geometry.Length() / 2);
    DrawName(target, middle.X + target.View().PaintXOffset, middle.Y + target.View().PaintYOffset, name);
}

// Signals and contacts are painted with the geometry the track has just built.
void CNodeGleis::PaintSignals(CPaintTarget& target, const CTrackGeometry& geometry) {
    for (const auto& child : SubNodes())
        if (auto* mark = TrackMarkOf(*child)) {
            mark->SetActive(true);
            mark->PaintAt(target, geometry);
        }
}

void CNodeGleis::HideTrackMarks() {
    if (SubNodes().Count() == 0)
        return;
    for (const auto& child : SubNodes())
        if (auto* mark = TrackMarkOf(*child))
            mark->SetActive(false);
}

bool CNodeGleis::inRect(const CRect& world) const {
    CTrackGeometry geometry(*this);
    CVector start = geometry.Start();
    CVector end = geometry.End();
    return world.Contains(start.X, start.Y) && world.Contains(end.X, end.Y);
}

} // namespace kavrin
