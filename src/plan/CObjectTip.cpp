#include "plan/CObjectTip.h"

#include <cmath>
#include <cstdio>
#include <vector>

#include "core/modTools.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/CObjectTexte.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
std::string TrackKind(const CNodeGleis& track) {
    if (track.IsBufferStop())
        return FormatMessage("Prellbock");
    if (track.ClsID() == "B0818DD8-5DFD-409F-8022-993FD3C90759")
        return FormatMessage("Dreiwegweiche");
    return track.IsSwitch() ? FormatMessage("Weiche") : FormatMessage("Gleis");
}

// The kind of track system a track belongs to, by the system that holds it.
std::string SystemOf(const CNodeGleis& track) {
    const auto* system = dynamic_cast<const CNodeGleisSys*>(track.Parent());
    return CObjectTexte::GleisSystem(system ? system->Number() : track.GleisSysID());
}

void AddTrackLines(std::vector<std::string>& lines, const CNodeGleis& track) {
    lines.push_back(FormatMessage("%1 %2", TrackKind(track), track.ID()));
    lines.push_back(FormatMessage("Gleissystem: %1", SystemOf(track)));
    if (!track.ModelName().empty())
        lines.push_back(FormatMessage("Modell: %1", track.ModelName()));
    if (track.IsSwitch())
        lines.push_back(FormatMessage("Key_Id: %1", track.KeyId()));
}

// A signal or contact: what it is, then the track it stands at.
void AddMarkLines(std::vector<std::string>& lines, const INode& node, const CNodeGleis* track) {
    if (const auto* signal = dynamic_cast<const CNodeMeldung*>(&node)) {
        lines.push_back(FormatMessage("Signal"));
        if (!signal->SignalName().empty())
            lines.push_back(FormatMessage("Modell: %1", signal->SignalName()));
        lines.push_back(FormatMessage("Key_Id: %1", signal->KeyId()));
    } else if (const auto* contact = dynamic_cast<const CNodeKontakt*>(&node)) {
        lines.push_back(FormatMessage("Kontakt (%1)", CObjectTexte::KontaktGruppe(contact->SetType())));
    }
    if (track) {
        lines.push_back(FormatMessage("An %1 %2", TrackKind(*track), track->ID()));
        lines.push_back(FormatMessage("Gleissystem: %1", SystemOf(*track)));
    }
}

void AddPlacedLines(std::vector<std::string>& lines, const INode& node) {
    if (const auto* building = dynamic_cast<const CNodeImmobilie*>(&node)) {
        const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(building->Parent());
        const int id = collection ? collection->ID() : 0;
        lines.push_back(FormatMessage("%1, ImmoIdx %2", CObjectTexte::Immos(20 + id), building->ImmoIdx()));
        lines.push_back(FormatMessage("Modell: %1", ModelName(building->GsbName())));
    } else if (const auto* good = dynamic_cast<const CNodeGood*>(&node)) {
        lines.push_back(FormatMessage("Gut"));
        lines.push_back(FormatMessage("Modell: %1", ModelName(good->GsbName())));
    }
}
} // namespace

std::string CObjectTip::Metres(double cm) {
    if (!std::isfinite(cm))
        return FormatMessage("? m");
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.2f", std::fabs(cm) / 100);
    std::string whole(digits, std::string(digits).find('.'));
    std::string grouped;
    const UserNumberFormat format = GetUserNumberFormat();
    for (size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0)
            grouped += format.thousands;
        grouped += whole[i];
    }
    const bool negative = cm < 0 && std::string(digits) != "0.00";
    return (negative ? "-" : "") + grouped + format.decimal + (digits + whole.size() + 1) + " m";
}

std::string CObjectTip::Of(const INode& node, const CVector& at) {
    std::vector<std::string> lines;
    if (const auto* track = dynamic_cast<const CNodeGleis*>(&node))
        AddTrackLines(lines, *track);
    else if (dynamic_cast<const CNodeMeldung*>(&node) || dynamic_cast<const CNodeKontakt*>(&node))
        AddMarkLines(lines, node, dynamic_cast<const CNodeGleis*>(node.Parent()));
    else
        AddPlacedLines(lines, node);
    if (lines.empty())
        return {};
    lines.push_back(FormatMessage("Position: %1 / %2, Höhe %3", Metres(at.X), Metres(at.Y), Metres(at.Z)));
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : kLineBreak) + line;
    return text;
}

} // namespace kavrin
