#include "document/CNodeFactory.h"

#include <unordered_map>
#include <vector>

#include "core/CStringPack.h"

#include "document/CNodeUnknown.h"
#include "document/NodeClasses.h"

namespace kavrin {

namespace {

using Creator = std::unique_ptr<INode> (*)();

template <typename T> std::unique_ptr<INode> Make() {
    return std::make_unique<T>();
}

const std::unordered_map<std::string_view, Creator>& Classes() {
    static const std::unordered_map<std::string_view, Creator> classes = {
        {"Vektor", &Make<CNodeVektor>},
        {"Dreibein", &Make<CNodeDreibein>},
        {"Immobile", &Make<CNodeImmobilie>},
        {"Modell", &Make<CNodeModell>},
        {"Anfangsfuehrungsverdrehung", &Make<CNodeAnfFuehrVerdrehung>},
        {"Charakteristik", &Make<CNodeCharakteristik>},
        {"Signal", &Make<CNodeSignal>},
        {"Wartender", &Make<CNodeWartender>},
        {"Gleisverbindung", &Make<CNodeGleisverbindung>},
        {"Meldung", &Make<CNodeMeldung>},
        {"Kontakt", &Make<CNodeKontakt>},
        {"Kollektor", &Make<CNodeKollektor>},
        {"Gebaeudesammlung", &Make<CNodeImmoSammlung>},
        {"BeweglichesTeil", &Make<CNodeBewegTeil>},
        {"Fuhrpark", &Make<CNodeFuhrpark>},
        {"Zugverband", &Make<CNodeZugverband>},
        {"Gleisort", &Make<CNodeGleisOrt>},
        {"Gleissystem", &Make<CNodeGleisSys>},
        {"Goods", &Make<CNodeGoods>},
        {"Good", &Make<CNodeGood>},
        {"Kammerasammlung", &Make<CNodeKameras>},
        {"Kammera", &Make<CNodeKamera>},
        {"Settings", &Make<CNodeSettings>},
        {"Options", &Make<CNodeOptions>},
        {"Weather", &Make<CNodeWeather>},
        {"Local", &Make<CNodeWeatherLocal>},
        {"TimeTable", &Make<CNodeTimeTable>},
        {"Beschreibung", &Make<CNodeBeschreibung>},
        {"Schandlaft", &Make<CNodeLandschaft>},
    };
    return classes;
}

} // namespace

std::unique_ptr<INode> CNodeFactory::Create(int16_t elementNameIndex, std::string_view parentName) {
    // Creators by element-name pack index, filled as names are met: no hashing per element.
    static std::vector<Creator> byIndex;
    static uint32_t generation = 0;
    if (ElementNames().Generation() != generation) {
        byIndex.clear();
        generation = ElementNames().Generation();
    }
    const std::string& name = ElementNames().GetString(elementNameIndex);
    if (name == "Gleis")
        return Create(name, parentName);
    size_t slot = static_cast<size_t>(elementNameIndex);
    if (slot >= byIndex.size())
        byIndex.resize(slot + 1, nullptr);
    if (!byIndex[slot]) {
        auto found = Classes().find(name);
        byIndex[slot] = found == Classes().end() ? &Make<CNodeUnknown> : found->second;
    }
    return byIndex[slot]();
}

std::unique_ptr<INode> CNodeFactory::Create(std::string_view elementName, std::string_view parentName) {
    // A track is only a track inside a track system; elsewhere ("Gleis" of a collector) it is kept as read.
    if (elementName == "Gleis")
        return parentName == "Gleissystem" ? Make<CNodeGleis>() : Make<CNodeUnknown>();
    const auto& classes = Classes();
    auto found = classes.find(elementName);
    return found == classes.end() ? Make<CNodeUnknown>() : found->second();
}

} // namespace kavrin
