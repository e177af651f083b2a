#include "plan/CObjectSearch.h"

#include <charconv>

#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/CArrayOfNodes.h"
#include "document/NodeAttributes.h"
#include "nodes/CGleise.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
using Hit = CObjectSearch::Hit;
using Kind = CObjectSearch::Kind;

bool ReadId(std::string_view text, long long& id) {
    const char* end = text.data() + text.size();
    auto [rest, error] = std::from_chars(text.data(), end, id);
    return error == std::errc() && rest == end;
}

// Lower case for the comparison: ASCII letters and the UTF-8 umlauts Ä, Ö, Ü.
std::string Folded(std::string_view text) {
    std::string folded(text);
    for (size_t i = 0; i < folded.size(); ++i) {
        char& c = folded[i];
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        else if (c == '\xC3' && i + 1 < folded.size()) {
            char& next = folded[i + 1];
            if (next == '\x84' || next == '\x96' || next == '\x9C')
                next = static_cast<char>(next + 0x20);
        }
    }
    return folded;
}

// Collects hits up to the limit; the walks stop asking once it is full.
class Collector {
public:
    Collector(const CHoehenFilter& filter, size_t limit) : filter_(filter), limit_(limit) {}
    bool Full() const { return hits_.size() >= limit_; }
    void Add(Kind kind, std::string text, double x, double y, double z, IPaint& node) {
        if (Full())
            return;
        bool hidden = !node.Active() || !filter_.inRange(z);
        hits_.push_back({kind, std::move(text), x, y, &node, hidden});
    }
    std::vector<Hit> Take() { return std::move(hits_); }

private:
    const CHoehenFilter& filter_;
    size_t limit_;
    std::vector<Hit> hits_;
};

std::string TrackText(const CNodeGleis& track) {
    return FormatMessage("Gleis %1", track.PrintId());
}

void AddTrack(Collector& hits, CNodeGleis& track, Kind kind, std::string text) {
    CTrackGeometry geometry(track);
    CVector middle = geometry.PointAt(geometry.Length() / 2);
    hits.Add(kind, std::move(text), middle.X, middle.Y, middle.Z, track);
}

template <typename Mark>
void AddMark(Collector& hits, Mark& mark, const CNodeGleis& track, Kind kind, std::string text) {
    TrackPlace place = TrackPlaceAt(CTrackGeometry(track), mark.Position());
    hits.Add(kind, std::move(text), place.x, place.y, place.z, mark);
}

void FindIds(const CAnlage& anlage, long long id, Collector& hits) {
    for (CNodeGleisSys* system : TrackSystems(anlage))
        for (CNodeGleis* track : system->Gleise().Tracks()) {
            if (track->ID() == id)
                AddTrack(hits, *track, Kind::Track, TrackText(*track));
            if (track->IsSwitch() && track->KeyId() == id)
                AddTrack(hits, *track, Kind::Switch,
                         FormatMessage("Weiche %1 (%2)", track->KeyId(), TrackText(*track)));
            for (const auto& child : track->SubNodes())
                if (auto* signal = dynamic_cast<CNodeMeldung*>(child.get()); signal && signal->KeyId() == id)
                    AddMark(hits, *signal, *track, Kind::Signal,
                            FormatMessage("Signal %1: %2 (%3)", signal->KeyId(), signal->SignalName(),
                                          TrackText(*track)));
            if (hits.Full())
                return;
        }
}

void FindMarkNames(const CAnlage& anlage, const std::string& part, Collector& hits) {
    for (CNodeGleisSys* system : TrackSystems(anlage))
        for (CNodeGleis* track : system->Gleise().Tracks())
            for (const auto& child : track->SubNodes()) {
                if (hits.Full())
                    return;
                if (auto* signal = dynamic_cast<CNodeMeldung*>(child.get())) {
                    if (CObjectSearch::ContainsIgnoringCase(signal->SignalName(), part))
                        AddMark(hits, *signal, *track, Kind::Signal,
                                FormatMessage("Signal %1: %2 (%3)", signal->KeyId(), signal->SignalName(),
                                              TrackText(*track)));
                } else if (auto* contact = dynamic_cast<CNodeKontakt*>(child.get())) {
                    std::string function = AttributeText(*contact, "LuaFn");
                    if (!function.empty() && CObjectSearch::ContainsIgnoringCase(function, part))
                        AddMark(hits, *contact, *track, Kind::Contact,
                                FormatMessage("Kontakt %1 (%2)", function, TrackText(*track)));
                }
            }
}

void FindBuildings(const CAnlage& anlage, const std::string& part, Collector& hits) {
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(chapter.get());
        if (!collection)
            continue;
        for (const auto& child : collection->SubNodes()) {
            auto* building = dynamic_cast<CNodeImmobilie*>(child.get());
            if (!building || !building->HasFrame())
                continue;
            std::string model = ModelName(building->GsbName());
            if (!CObjectSearch::ContainsIgnoringCase(model, part))
                continue;
            if (hits.Full())
                return;
            const CVector& pos = building->DreiBein().Pos();
            hits.Add(Kind::Building, FormatMessage("Immobilie %1 (Nr. %2)", model, building->ImmoIdx()),
                     pos.X, pos.Y, pos.Z, *building);
        }
    }
}
} // namespace

bool CObjectSearch::ContainsIgnoringCase(std::string_view text, std::string_view part) {
    return Folded(text).find(Folded(part)) != std::string::npos;
}

std::vector<CObjectSearch::Hit> CObjectSearch::Find(std::string_view query, size_t limit) const {
    std::string part(Trim(query));
    if (part.empty() || !anlage_.RootNode())
        return {};
    Collector hits(anlage_.HoehenFilter(), limit);
    long long id = 0;
    if (ReadId(part, id))
        FindIds(anlage_, id, hits);
    FindMarkNames(anlage_, part, hits);
    FindBuildings(anlage_, part, hits);
    return hits.Take();
}

} // namespace kavrin
