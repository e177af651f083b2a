#include "nodes/TrafficLookup.h"

#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/CNodeBase.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeMeldung.h"

namespace kavrin {

std::string TrainKey(int32_t fuhrparkId, int32_t zugId) {
    return FormatMessage("F%1Z%2", fuhrparkId, zugId);
}

int32_t IntAttribute(const INode& node, std::string_view name, int32_t fallback) {
    std::string text = AttributeText(node, name);
    int32_t value = 0;
    return !text.empty() && TryTextToLong(text, value) ? value : fallback;
}

std::string TrainKeyOf(const INode& zugverband) {
    const INode* pool = zugverband.Parent();
    if (!pool || !HasAttribute(*pool, "FuhrparkID") || !HasAttribute(zugverband, "ZugID"))
        return {};
    return TrainKey(IntAttribute(*pool, "FuhrparkID"), IntAttribute(zugverband, "ZugID"));
}

std::string WaitingTrainKey(const INode& wartender) {
    if (!HasAttribute(wartender, "fuhrparkID") || !HasAttribute(wartender, "zugverbandID"))
        return {};
    return TrainKey(IntAttribute(wartender, "fuhrparkID"), IntAttribute(wartender, "zugverbandID"));
}

std::string TrainName(const INode& zugverband) {
    std::string name = AttributeText(zugverband, "name");
    return name.empty() ? TrainKeyOf(zugverband) : name;
}

int32_t TrainVehicleCount(const INode& zugverband) {
    int32_t count = 0;
    for (const auto& child : zugverband.SubNodes())
        if (child->Name() == "Rollmaterial")
            ++count;
    return count;
}

std::vector<CNodeBase*> Chapters(const CAnlage& anlage, std::string_view name) {
    std::vector<CNodeBase*> chapters;
    if (!anlage.RootNode())
        return chapters;
    for (const auto& chapter : anlage.RootNode()->SubNodes())
        if (chapter->Name() == name)
            if (auto* node = dynamic_cast<CNodeBase*>(chapter.get()))
                chapters.push_back(node);
    return chapters;
}

CNodeBase* FindTimeTable(const CAnlage& anlage) {
    std::vector<CNodeBase*> chapters = Chapters(anlage, "TimeTable");
    return chapters.empty() ? nullptr : chapters.front();
}

CNodeBase* SignalPartOf(const CNodeMeldung& meldung) {
    for (const auto& child : meldung.SubNodes())
        if (child->Name() == "Signal")
            return dynamic_cast<CNodeBase*>(child.get());
    return nullptr;
}

} // namespace kavrin
