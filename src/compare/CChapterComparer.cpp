#include "compare/CChapterComparer.h"

#include <map>
#include <set>

#include "compare/CContentComparer.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/LayoutLookup.h"

namespace kavrin {

namespace {

// Named objects under chapters of one name, with the occurrence of their name.
struct Named {
    const INode* node;
    std::string name;
    int occurrence;
};

std::vector<Named> NamedObjects(const CAnlage& anlage, const char* chapter, const char* element) {
    std::vector<Named> objects;
    std::map<std::string, int> seen;
    if (!anlage.RootNode())
        return objects;
    for (const auto& part : anlage.RootNode()->SubNodes()) {
        if (!part || part->Name() != chapter)
            continue;
        for (const auto& child : part->SubNodes()) {
            if (!child || child->Name() != element)
                continue;
            std::string name = AttributeText(*child, "name");
            objects.push_back({child.get(), name, seen[name]++});
        }
    }
    return objects;
}

// A camera's place: its "Dreibein" child.
std::optional<CDiffPlace> PlaceOf(const INode& node) {
    for (const auto& child : node.SubNodes())
        if (auto* frame = dynamic_cast<CNodeDreibein*>(child.get()))
            return CDiffPlace::Of(frame->DreiBein());
    return std::nullopt;
}

bool IsFrame(const INode& child) {
    return child.Name() == "Dreibein";
}

// The objects a chapter holds, which the other comparers look at.
const char* ObjectsOf(const INode& chapter) {
    const std::string& name = chapter.Name();
    if (name == "Gleissystem")
        return "Gleis";
    if (name == "Gebaeudesammlung")
        return "Immobile";
    if (name == "Goods")
        return "Good";
    if (name == "Fuhrpark")
        return "Zugverband";
    if (name == "Kammerasammlung")
        return "Kammera";
    return nullptr;
}

// How a chapter is told apart from others of its name: its id where it has one.
std::string ChapterLabel(const INode& chapter, int occurrence) {
    if (const auto* system = dynamic_cast<const CNodeGleisSys*>(&chapter))
        return FormatMessage("Gleissystem %1", system->ID());
    if (const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(&chapter))
        return FormatMessage("Gebaeudesammlung %1", collection->ID());
    std::string id = AttributeText(chapter, "FuhrparkID");
    if (!id.empty())
        return FormatMessage("%1 %2", chapter.Name(), id);
    return occurrence == 0 ? chapter.Name() : FormatMessage("%1 [%2]", chapter.Name(), occurrence + 1);
}

bool HandledElsewhere(const INode& chapter) {
    return dynamic_cast<const CNodeKollektor*>(&chapter) || dynamic_cast<const CNodeLandschaft*>(&chapter);
}

std::map<std::string, const INode*> OtherChapters(const CAnlage& anlage, std::vector<std::string>& order) {
    std::map<std::string, const INode*> chapters;
    std::map<std::string, int> seen;
    if (!anlage.RootNode())
        return chapters;
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        if (!chapter || HandledElsewhere(*chapter))
            continue;
        std::string label = ChapterLabel(*chapter, seen[chapter->Name()]++);
        if (chapters.emplace(label, chapter.get()).second)
            order.push_back(label);
    }
    return chapters;
}

CDiffCollector::Object OtherObject(const std::string& label, size_t place) {
    CDiffCollector::Object object;
    object.kind = DiffKind::Sonstiges;
    object.name = label;
    object.order = {static_cast<int64_t>(place), 0, 0};
    return object;
}

} // namespace

void CChapterComparer::Run() {
    CompareNamed(DiffKind::Zuege, "Fuhrpark", "Zugverband", "Zug %1");
    CompareNamed(DiffKind::Kameras, "Kammerasammlung", "Kammera", "Kamera %1");
    CompareTerrain();
    CompareOtherChapters();
}

void CChapterComparer::CompareNamed(DiffKind kind, const char* chapter, const char* element,
                                    const char* label) {
    std::vector<Named> before = NamedObjects(alt_, chapter, element);
    std::vector<Named> after = NamedObjects(neu_, chapter, element);
    std::map<std::pair<std::string, int>, size_t> afterByName;
    for (size_t j = 0; j < after.size(); ++j)
        afterByName.emplace(std::pair(after[j].name, after[j].occurrence), j);
    std::vector<bool> taken(after.size(), false);
    auto objectOf = [&](const Named& named) {
        CDiffCollector::Object object;
        object.kind = kind;
        object.name = named.occurrence == 0
                          ? FormatMessage(label, named.name)
                          : FormatMessage("%1 [%2]", FormatMessage(label, named.name), named.occurrence + 1);
        object.orderName = named.name;
        object.order = {0, named.occurrence, 0};
        return object;
    };
    for (const Named& named : before) {
        CDiffCollector::Object object = objectOf(named);
        object.oldNode = named.node;
        object.oldPlace = PlaceOf(*named.node);
        auto found = afterByName.find({named.name, named.occurrence});
        if (found == afterByName.end()) {
            out_.Removed(object);
            continue;
        }
        taken[found->second] = true;
        const INode& other = *after[found->second].node;
        std::vector<CDiffValue> values;
        CContentComparer(values).Compare(*named.node, other, {}, IsFrame);
        object.newNode = &other;
        object.newPlace = PlaceOf(other);
        out_.Matched(object, std::move(values));
    }
    for (size_t j = 0; j < after.size(); ++j) {
        if (taken[j])
            continue;
        CDiffCollector::Object object = objectOf(after[j]);
        object.newNode = after[j].node;
        object.newPlace = PlaceOf(*after[j].node);
        out_.Added(object);
    }
}

void CChapterComparer::CompareTerrain() {
    const CNodeLandschaft* before = FindTerrain(alt_);
    const CNodeLandschaft* after = FindTerrain(neu_);
    if (!before && !after)
        return;
    CDiffCollector::Object object;
    object.kind = DiffKind::Gelaende;
    object.name = FormatMessage("Gelände");
    object.oldNode = before;
    object.newNode = after;
    if (!after) {
        out_.Removed(object);
    } else if (!before) {
        out_.Added(object);
    } else {
        std::vector<CDiffValue> values;
        CContentComparer(values).Compare(*before, *after);
        out_.Matched(object, std::move(values));
    }
}

void CChapterComparer::CompareOtherChapters() {
    std::vector<std::string> order;
    auto before = OtherChapters(alt_, order);
    auto after = OtherChapters(neu_, order);
    // Chapters of both layouts once each, in the order they are first met.
    std::set<std::string> listed;
    std::erase_if(order, [&listed](const std::string& label) { return !listed.insert(label).second; });
    for (size_t place = 0; place < order.size(); ++place) {
        const std::string& label = order[place];
        auto a = before.find(label);
        auto b = after.find(label);
        CDiffCollector::Object object = OtherObject(label, place);
        if (a == before.end()) {
            object.newNode = b->second;
            out_.Added(object);
            continue;
        }
        if (b == after.end()) {
            object.oldNode = a->second;
            out_.Removed(object);
            continue;
        }
        object.oldNode = a->second;
        object.newNode = b->second;
        const char* objects = ObjectsOf(*a->second);
        std::vector<CDiffValue> values;
        CContentComparer(values).Compare(*a->second, *b->second, {}, [objects](const INode& child) {
            return objects && child.Name() == objects;
        });
        // The goods list counts its items; an added item says so already.
        if (a->second->Name() == "Goods")
            std::erase_if(values, [](const CDiffValue& value) { return value.name == "count"; });
        out_.Matched(object, std::move(values));
    }
    std::vector<CDiffValue> values;
    if (alt_.RootNode() && neu_.RootNode())
        CContentComparer(values).CompareAttributes(*alt_.RootNode(), *neu_.RootNode(), {});
    if (!values.empty())
        out_.Matched(OtherObject(FormatMessage("Dokument"), order.size()), std::move(values));
}

} // namespace kavrin
