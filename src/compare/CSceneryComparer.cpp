#include "compare/CSceneryComparer.h"

#include <map>
#include <unordered_map>

#include "compare/CContentComparer.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"

namespace kavrin {

namespace {

// The chapters' children of a class, in file order.
template <typename T, typename Chapter> std::vector<const T*> ObjectsIn(const CAnlage& anlage) {
    std::vector<const T*> objects;
    if (!anlage.RootNode())
        return objects;
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        if (!dynamic_cast<const Chapter*>(chapter.get()))
            continue;
        for (const auto& child : chapter->SubNodes())
            if (const auto* object = dynamic_cast<const T*>(child.get()))
                objects.push_back(object);
    }
    return objects;
}

std::vector<const CNodeKollektor*> KollektorsOf(const CAnlage& anlage) {
    std::vector<const CNodeKollektor*> kollektors;
    if (anlage.RootNode())
        for (const auto& chapter : anlage.RootNode()->SubNodes())
            if (const auto* kollektor = dynamic_cast<const CNodeKollektor*>(chapter.get()))
                kollektors.push_back(kollektor);
    return kollektors;
}

std::string ModelFile(const std::string& path) {
    size_t slash = path.find_last_of("\\/");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

int16_t CollectionOf(const CNodeImmobilie& building) {
    const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(building.Parent());
    return collection ? collection->ID() : 0;
}

std::optional<CDiffPlace> PlaceOf(const CNodeImmobilie& building) {
    return building.HasFrame() ? std::optional(CDiffPlace::Of(building.DreiBein())) : std::nullopt;
}

std::optional<CDiffPlace> PlaceOf(const CNodeGood& good) {
    return good.HasFrame() ? std::optional(CDiffPlace::Of(good.DreiBein())) : std::nullopt;
}

bool SamePlace(const CNodeGood& a, const CNodeGood& b) {
    const CVector& p = a.DreiBein().Pos();
    const CVector& q = b.DreiBein().Pos();
    return CContentComparer::SameNumber(p.X, q.X) && CContentComparer::SameNumber(p.Y, q.Y) &&
           CContentComparer::SameNumber(p.Z, q.Z);
}

std::string EntryText(const CKollektorGleis& entry) {
    return FormatMessage("Gleis %1 im Gleissystem %2", entry.GleisID, entry.GleissystemID);
}

} // namespace

void CSceneryComparer::Run() {
    CompareBuildings();
    CompareGoods();
    CompareKollektors();
}

CDiffCollector::Object CSceneryComparer::BuildingObject(const CNodeImmobilie& building) {
    CDiffCollector::Object object;
    object.kind = DiffKind::Immobilien;
    const char* what = CollectionOf(building) == 5 ? "Landschaftselement %1 (%2)" : "Immobilie %1 (%2)";
    object.name = FormatMessage(what, building.ImmoIdx(), ModelFile(building.GsbName()));
    object.order = {building.ImmoIdx(), 0, 0};
    return object;
}

CDiffCollector::Object CSceneryComparer::GoodObject(const CNodeGood& good, int number) {
    CDiffCollector::Object object;
    object.kind = DiffKind::Gueter;
    object.name = FormatMessage("Gut %1 (%2)", number, ModelFile(good.GsbName()));
    object.order = {number, 0, 0};
    return object;
}

CDiffCollector::Object CSceneryComparer::KollektorObject(const CNodeKollektor& kollektor) {
    CDiffCollector::Object object;
    object.kind = DiffKind::Kollektoren;
    object.name = FormatMessage("Kollektor %1", kollektor.ID());
    object.order = {kollektor.ID(), 0, 0};
    return object;
}

void CSceneryComparer::CompareBuildings() {
    auto before = ObjectsIn<CNodeImmobilie, CNodeImmoSammlung>(alt_);
    auto after = ObjectsIn<CNodeImmobilie, CNodeImmoSammlung>(neu_);
    // An index that occurs twice pairs in file order.
    std::unordered_multimap<int32_t, size_t> afterByIndex;
    for (size_t j = after.size(); j-- > 0;)
        afterByIndex.emplace(after[j]->ImmoIdx(), j);
    std::vector<bool> taken(after.size(), false);
    for (const CNodeImmobilie* building : before) {
        size_t best = after.size();
        auto [from, to] = afterByIndex.equal_range(building->ImmoIdx());
        for (auto it = from; it != to; ++it)
            if (!taken[it->second] && it->second < best)
                best = it->second;
        if (best == after.size()) {
            CDiffCollector::Object object = BuildingObject(*building);
            object.oldNode = building;
            object.oldPlace = PlaceOf(*building);
            out_.Removed(object);
            continue;
        }
        taken[best] = true;
        const CNodeImmobilie& other = *after[best];
        std::vector<CDiffValue> values;
        CContentComparer content(values);
        if (CollectionOf(*building) != CollectionOf(other))
            values.push_back({"Gebaeudesammlung", std::to_string(CollectionOf(*building)),
                              std::to_string(CollectionOf(other))});
        content.Compare(*building, other);
        std::vector<const INode*> a, b;
        for (const auto& part : building->BewegTeile())
            if (part)
                a.push_back(part.get());
        for (const auto& part : other.BewegTeile())
            if (part)
                b.push_back(part.get());
        content.CompareChildren(a, b, {});
        CDiffCollector::Object object = BuildingObject(other);
        object.oldNode = building;
        object.newNode = &other;
        object.oldPlace = PlaceOf(*building);
        object.newPlace = PlaceOf(other);
        out_.Matched(object, std::move(values));
    }
    for (size_t j = 0; j < after.size(); ++j) {
        if (taken[j])
            continue;
        CDiffCollector::Object object = BuildingObject(*after[j]);
        object.newNode = after[j];
        object.newPlace = PlaceOf(*after[j]);
        out_.Added(object);
    }
}

void CSceneryComparer::CompareGoods() {
    auto before = ObjectsIn<CNodeGood, CNodeGoods>(alt_);
    auto after = ObjectsIn<CNodeGood, CNodeGoods>(neu_);
    std::vector<int> partnerOf(before.size(), -1);
    std::vector<bool> taken(after.size(), false);
    std::map<int16_t, std::vector<size_t>> afterByModel;
    for (size_t j = 0; j < after.size(); ++j)
        afterByModel[after[j]->GsbNameId()].push_back(j);
    for (bool samePlace : {true, false}) {
        for (size_t i = 0; i < before.size(); ++i) {
            if (partnerOf[i] >= 0)
                continue;
            for (size_t j : afterByModel[before[i]->GsbNameId()]) {
                if (!taken[j] && (!samePlace || SamePlace(*before[i], *after[j]))) {
                    partnerOf[i] = static_cast<int>(j);
                    taken[j] = true;
                    break;
                }
            }
        }
    }
    for (size_t i = 0; i < before.size(); ++i) {
        if (partnerOf[i] < 0) {
            CDiffCollector::Object object = GoodObject(*before[i], static_cast<int>(i + 1));
            object.oldNode = before[i];
            object.oldPlace = PlaceOf(*before[i]);
            out_.Removed(object);
            continue;
        }
        size_t j = static_cast<size_t>(partnerOf[i]);
        std::vector<CDiffValue> values;
        CContentComparer(values).Compare(*before[i], *after[j]);
        CDiffCollector::Object object = GoodObject(*after[j], static_cast<int>(j + 1));
        object.oldNode = before[i];
        object.newNode = after[j];
        object.oldPlace = PlaceOf(*before[i]);
        object.newPlace = PlaceOf(*after[j]);
        out_.Matched(object, std::move(values));
    }
    for (size_t j = 0; j < after.size(); ++j) {
        if (taken[j])
            continue;
        CDiffCollector::Object object = GoodObject(*after[j], static_cast<int>(j + 1));
        object.newNode = after[j];
        object.newPlace = PlaceOf(*after[j]);
        out_.Added(object);
    }
}

void CSceneryComparer::CompareKollektors() {
    std::map<int32_t, const CNodeKollektor*> after;
    for (const CNodeKollektor* kollektor : KollektorsOf(neu_))
        after.emplace(kollektor->ID(), kollektor);
    std::map<int32_t, const CNodeKollektor*> before;
    for (const CNodeKollektor* kollektor : KollektorsOf(alt_))
        before.emplace(kollektor->ID(), kollektor);
    for (const auto& [id, kollektor] : before) {
        auto found = after.find(id);
        CDiffCollector::Object object = KollektorObject(*kollektor);
        object.oldNode = kollektor;
        object.oldPlace = CDiffPlace::Of(kollektor->DreiBein());
        if (found == after.end()) {
            out_.Removed(object);
            continue;
        }
        const CNodeKollektor& other = *found->second;
        std::vector<CDiffValue> values;
        CContentComparer(values).Compare(*kollektor, other);
        auto key = [](const CKollektorGleis& entry) { return std::pair(entry.GleissystemID, entry.GleisID); };
        std::map<std::pair<int16_t, int32_t>, int> entries;
        for (const CKollektorGleis& entry : kollektor->Gleise())
            --entries[key(entry)];
        for (const CKollektorGleis& entry : other.Gleise())
            ++entries[key(entry)];
        for (const auto& [track, balance] : entries) {
            if (balance == 0)
                continue;
            std::string text = EntryText({track.first, track.second, {}});
            values.push_back({"Gleis", balance < 0 ? text : "", balance > 0 ? text : ""});
        }
        object.newNode = &other;
        object.newPlace = CDiffPlace::Of(other.DreiBein());
        out_.Matched(object, std::move(values));
    }
    for (const auto& [id, kollektor] : after) {
        if (before.count(id))
            continue;
        CDiffCollector::Object object = KollektorObject(*kollektor);
        object.newNode = kollektor;
        object.newPlace = CDiffPlace::Of(kollektor->DreiBein());
        out_.Added(object);
    }
}

} // namespace kavrin
