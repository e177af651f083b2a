#include "nodes/CNodeGleis.h"

#include <cmath>

#include "core/CStringPack.h"
#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeAnfFuehrVerdrehung.h"
#include "nodes/CNodeCharakteristik.h"
#include "nodes/CNodeDreibein.h"
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

std::string CNodeGleis::CheckAttribute(std::string_view name, std::string_view value) {
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
        return std::string(value);
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

bool CNodeGleis::AddChild(std::unique_ptr<INode>& child) {
    try {
        if (ConsumeChild(*child))
            return true;
    } catch (...) {
        ReportCurrentError(Proc("INode_AddChild"));
        return false;
    }
    return CNodeBase::AddChild(child);
}

// Reads the children whose values the track keeps itself; they are not kept as nodes.
bool CNodeGleis::ConsumeChild(INode& child) {
    const std::string& name = child.Name();
    if (name == "KontaktZiel") {
        kontaktZiel_ = TextToLong(child.Text());
        if (kontaktZiel_ >= 1 && Anlage())
            Anlage()->RegisterKontaktziel(kontaktZiel_);
        return true;
    }
    if (auto* dreibein = dynamic_cast<CNodeDreibein*>(&child); dreibein && name == "Dreibein") {
        frame_.grab3Bein(*dreibein);
        classicGeometry_ = true;
        return true;
    }
    if (auto* charakteristik = dynamic_cast<CNodeCharakteristik*>(&child);
        charakteristik && name == "Charakteristik") {
        kruemmung_ = charakteristik->Kruemmung();
        torsion_ = charakteristik->Torsion();
        fVerdreh_ = charakteristik->Fuehrungsverdrehung();
        laenge_ = charakteristik->Laenge();
        charakteristikAttributes_ = charakteristik->Attributes();
        classicGeometry_ = true;
        return true;
    }
    if (auto* anf = dynamic_cast<CNodeAnfFuehrVerdrehung*>(&child);
        anf && name == "Anfangsfuehrungsverdrehung") {
        anfFuehrVerdrehung_ = anf->Wert();
        anfFuehrAttributes_ = anf->Attributes();
        classicGeometry_ = true;
        return true;
    }
    return false;
}

bool CNodeGleis::XmlChildren(CXmlWriter& writer) {
    if (kontaktZiel_ != -1) {
        writer.StartElement("KontaktZiel");
        writer.Text(std::to_string(kontaktZiel_));
        writer.EndElement();
    }
    // A track of the newer format has its geometry in kept children and gains nothing here.
    if (classicGeometry_) {
        if (!WriteDreibein(writer, frame_))
            return false;
        WriteAnfFuehrVerdrehung(writer);
        WriteCharakteristik(writer);
    }
    return CNodeBase::XmlChildren(writer);
}

namespace {
// Writes the attributes as read, taking the known ones from the track; a track made in code
// (no attributes read) gets the known ones in their usual order.
template <typename ValueOf>
void WriteOwnedAttributes(CXmlWriter& writer, const CDictionary& read,
                          std::initializer_list<const char*> known, ValueOf valueOf) {
    if (read.Empty()) {
        for (const char* name : known)
            writer.Attribute(name, NumberToText(valueOf(name)));
        return;
    }
    for (const CDictionary::Entry& entry : read.Entries()) {
        const std::string& name = AttributeNames().GetString(entry.key);
        writer.Attribute(name, entry.value == kOwnedValue ? NumberToText(valueOf(name)) : entry.value);
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
    frame_.Copy(track->frame_);
    id_ = track->id_;
    gleisSysId_ = track->gleisSysId_;
    clsIdIndex_ = track->clsIdIndex_;
    data_ = track->data_;
    stil_ = track->stil_;
    weichenStellung_ = track->weichenStellung_;
    keyId_ = track->keyId_;
    signalData_ = track->signalData_;
    kontaktZiel_ = track->kontaktZiel_;
    kruemmung_ = track->kruemmung_;
    torsion_ = track->torsion_;
    fVerdreh_ = track->fVerdreh_;
    laenge_ = track->laenge_;
    ForgetAnchor();
    anfFuehrVerdrehung_ = track->anfFuehrVerdrehung_;
    classicGeometry_ = track->classicGeometry_;
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
    if (connectionExtras_)
        (*connectionExtras_)[static_cast<size_t>(CheckedEnd(end))].clear();
}

const CNodeGleis::ExtraAttributes* CNodeGleis::ConnectionExtras(int16_t end) const {
    if (!connectionExtras_)
        return nullptr;
    const ExtraAttributes& extras = (*connectionExtras_)[static_cast<size_t>(CheckedEnd(end))];
    return extras.empty() ? nullptr : &extras;
}

void CNodeGleis::SetConnectionExtras(int16_t end, ExtraAttributes extras) {
    if (!connectionExtras_) {
        if (extras.empty())
            return;
        connectionExtras_ = std::make_unique<std::array<ExtraAttributes, 4>>();
    }
    (*connectionExtras_)[static_cast<size_t>(CheckedEnd(end))] = std::move(extras);
}

double CNodeGleis::Laenge() const {
    double length = laenge_;
    if (!classicGeometry_)
        Anchor(length);
    return length;
}

void CNodeGleis::MovePos(double dx, double dy) {
    frame_.Move(dx, dy, 0);
    ForgetAnchor();
}

void CNodeGleis::Rotate(double angle, double cx, double cy) {
    frame_.Rotate(angle, cx, cy);
    ForgetAnchor();
}

CVector CNodeGleis::Anchor(double& length) const {
    if (classicGeometry_) {
        length = laenge_;
        return frame_.Pos();
    }
    if (anchorLength_ < 0) {
        CTrackGeometry geometry(*this);
        anchorStart_ = geometry.Start();
        anchorLength_ = geometry.Length();
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
    CVector start = Anchor(length);
    double x = start.X, y = start.Y;
    if (!PaintPrologue(target, x, y, start.Z, length))
        return PaintEpilogue(false);
    // A straight classic piece needs only its frame's position and direction: the commonest
    // case of a large layout is drawn without building the geometry.
    bool straight = !IsNewFormat() && std::fabs(kruemmung_) < 1e-10;
    if (straight)
        DrawStraightTrack(target, frame_.Pos(), frame_.Dir(), length, Selected());
    if (straight && !target.WithNames && !target.WithSignals)
        return PaintEpilogue(true);
    CTrackGeometry geometry(*this);
    if (!straight)
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
