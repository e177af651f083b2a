#include "ReferenceCheck.h"

#include <unordered_set>

#include "core/CStringPack.h"
#include "document/CAnlage.h"
#include "nodes/CNodeBewegTeil.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisOrt.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/LayoutLookup.h"

namespace kavrin::test {

namespace {
std::string Track(int16_t system, int32_t id) {
    return std::to_string(system) + "/" + std::to_string(id);
}

// An attribute as the file wrote it: the traffic chapters have no classes, their values stay text.
std::string Raw(const INode& node, const char* name) {
    int16_t key = AttributeNames().GetIndex(name);
    std::optional<std::string_view> value = key ? node.Attributes().Item(key) : std::nullopt;
    return value ? std::string(*value) : std::string();
}

std::string Train(const std::string& fuhrpark, const std::string& zug) {
    return "F" + fuhrpark + "Z" + zug;
}

std::string TrainOf(const INode& zugverband) {
    return Train(zugverband.Parent() ? Raw(*zugverband.Parent(), "FuhrparkID") : "",
                 Raw(zugverband, "ZugID"));
}
} // namespace

// Built from the tree by plain loops of its own, so that it does not share a fault with the
// code it checks.
std::set<std::string> DanglingReferences(const CAnlage& anlage) {
    std::set<std::string> dangling;
    std::unordered_set<std::string> tracks, trains;
    std::unordered_set<int32_t> targets, immoIdx, kollektors, keyIds;
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        if (const auto* system = dynamic_cast<const CNodeGleisSys*>(chapter.get())) {
            for (const auto& child : system->SubNodes())
                if (const auto* track = dynamic_cast<const CNodeGleis*>(child.get())) {
                    tracks.insert(Track(system->ID(), track->ID()));
                    targets.insert(track->KontaktZiel());
                    keyIds.insert(track->KeyId());
                    for (const auto& mark : track->SubNodes())
                        if (const auto* meldung = dynamic_cast<const CNodeMeldung*>(mark.get())) {
                            targets.insert(meldung->KontaktZiel());
                            keyIds.insert(meldung->KeyId());
                        }
                }
        } else if (const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(chapter.get())) {
            for (const auto& child : collection->SubNodes())
                if (const auto* immo = dynamic_cast<const CNodeImmobilie*>(child.get()))
                    immoIdx.insert(immo->ImmoIdx());
        } else if (const auto* kollektor = dynamic_cast<const CNodeKollektor*>(chapter.get())) {
            kollektors.insert(kollektor->ID());
        } else if (chapter->Name() == "Fuhrpark") {
            for (const auto& train : chapter->SubNodes())
                if (train->Name() == "Zugverband")
                    trains.insert(TrainOf(*train));
        }
    }
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        if (const auto* system = dynamic_cast<const CNodeGleisSys*>(chapter.get())) {
            for (const CGleisVerbindung& record : system->Verbindungen())
                for (int32_t id : {record.GleisID1(), record.GleisID2()})
                    if (!tracks.count(Track(system->ID(), id)))
                        dangling.insert("Gleisverbindung zu Gleis " + Track(system->ID(), id));
            for (const auto& child : system->SubNodes()) {
                const auto* track = dynamic_cast<const CNodeGleis*>(child.get());
                if (!track)
                    continue;
                if (int32_t keyId = track->SignalData() & 0xFFFF; keyId > 0 && !keyIds.count(keyId))
                    dangling.insert("Signaldaten an " + Track(system->ID(), track->ID()) + " auf Key-ID " +
                                    std::to_string(keyId));
                for (const auto& mark : track->SubNodes()) {
                    if (const auto* kontakt = dynamic_cast<const CNodeKontakt*>(mark.get())) {
                        if (kontakt->SignalDataKeyId() > 0 && !keyIds.count(kontakt->SignalDataKeyId()))
                            dangling.insert("Kontakt an " + Track(system->ID(), track->ID()) +
                                            " auf Key-ID " + std::to_string(kontakt->SignalDataKeyId()));
                        if (kontakt->SetType() == 0 && kontakt->KontaktZiel() > 0 &&
                            !targets.count(kontakt->KontaktZiel()))
                            dangling.insert("Kontakt an " + Track(system->ID(), track->ID()) + " auf Ziel " +
                                            std::to_string(kontakt->KontaktZiel()));
                        if ((kontakt->SetType() == 768 || kontakt->SetType() == 1024) &&
                            !immoIdx.count(kontakt->SetValue()))
                            dangling.insert("Immobilien-Kontakt an " + Track(system->ID(), track->ID()) +
                                            " auf " + std::to_string(kontakt->SetValue()));
                    } else if (const auto* meldung = dynamic_cast<const CNodeMeldung*>(mark.get())) {
                        for (const auto& signal : meldung->SubNodes())
                            if (signal->Name() == "Signal")
                                for (const auto& waiting : signal->SubNodes()) {
                                    std::string train =
                                        Train(Raw(*waiting, "fuhrparkID"), Raw(*waiting, "zugverbandID"));
                                    if (waiting->Name() == "Wartender" && !trains.count(train))
                                        dangling.insert("Wartender " + train);
                                }
                    }
                }
            }
        } else if (const auto* kollektor = dynamic_cast<const CNodeKollektor*>(chapter.get())) {
            for (const CKollektorGleis& entry : kollektor->Gleise())
                if (!tracks.count(Track(entry.GleissystemID, entry.GleisID)))
                    dangling.insert("Kollektor " + std::to_string(kollektor->ID()) + " nennt Gleis " +
                                    Track(entry.GleissystemID, entry.GleisID));
        } else if (const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(chapter.get())) {
            for (const auto& child : collection->SubNodes())
                if (const auto* immo = dynamic_cast<const CNodeImmobilie*>(child.get())) {
                    if (immo->KollektorId() > 0 && !kollektors.count(immo->KollektorId()))
                        dangling.insert("Immobilie nennt Kollektor " + std::to_string(immo->KollektorId()));
                }
        } else if (chapter->Name() == "Fuhrpark") {
            for (const auto& train : chapter->SubNodes())
                for (const auto& part : train->SubNodes())
                    if (const auto* place = dynamic_cast<const CNodeGleisOrt*>(part.get()))
                        if (!tracks.count(Track(place->GleissystemID(), place->GleisID())))
                            dangling.insert("Zug " + TrainOf(*train) + " auf Gleis " +
                                            Track(place->GleissystemID(), place->GleisID()));
        }
    }
    return dangling;
}

} // namespace kavrin::test
