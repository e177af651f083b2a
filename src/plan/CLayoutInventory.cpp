#include "plan/CLayoutInventory.h"

#include <algorithm>
#include <map>

#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/CArrayOfNodes.h"
#include "document/NodeAttributes.h"
#include "document/NodeTree.h"
#include "nodes/CGleise.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisOrt.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/CObjectTexte.h"
#include "nodes/LayoutLookup.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
// Vehicle contacts carry their vehicle kind (1..39) in the type; they form one group.
int ContactGroup(int setType) {
    return setType >= 1 && setType <= 39 ? 1 : setType;
}

std::vector<CLayoutInventory::Row> RowsOf(const std::map<std::string, long>& counts) {
    std::vector<CLayoutInventory::Row> rows;
    for (const auto& [name, count] : counts)
        rows.push_back({name, {}, count});
    return rows;
}

// A model without a name still counts; it is listed as such.
std::string ModelOrUnnamed(std::string_view path) {
    std::string name = ModelName(path);
    return name.empty() ? FormatMessage("(ohne Namen)") : name;
}

std::string CsvField(const std::string& text) {
    if (text.find_first_of(";\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}
} // namespace

long CLayoutInventory::Section::Total() const {
    long total = 0;
    for (const Row& row : rows)
        total += row.count;
    return total;
}

CLayoutInventory::CLayoutInventory(const CAnlage& anlage) {
    if (!anlage.RootNode())
        return;
    AddTrackSystems(anlage);
    AddSignalsAndContacts(anlage);
    AddBuildings(anlage);
    AddTrains(anlage);
}

void CLayoutInventory::AddTrackSystems(const CAnlage& anlage) {
    Section tracks{FormatMessage("Gleise je Gleissystem"), {}};
    Section switches{FormatMessage("Weichen je Gleissystem"), {}};
    for (const CNodeGleisSys* system : TrackSystems(anlage)) {
        long count = 0;
        for (const CNodeGleis* track : system->Gleise().Tracks())
            count += track->IsSwitch();
        std::string name = CObjectTexte::GleisSystem(system->Number());
        tracks.rows.push_back({name, {}, system->Gleise().Count()});
        if (count > 0)
            switches.rows.push_back({name, {}, count});
    }
    sections_.push_back(std::move(tracks));
    sections_.push_back(std::move(switches));
}

void CLayoutInventory::AddSignalsAndContacts(const CAnlage& anlage) {
    std::map<std::string, long> signals;
    std::map<std::string, long> contacts;
    for (const CNodeGleisSys* system : TrackSystems(anlage))
        for (const CNodeGleis* track : system->Gleise().Tracks())
            for (const auto& child : track->SubNodes()) {
                if (const auto* signal = dynamic_cast<const CNodeMeldung*>(child.get()))
                    ++signals[ModelOrUnnamed(signal->SignalName())];
                else if (const auto* contact = dynamic_cast<const CNodeKontakt*>(child.get()))
                    ++contacts[CObjectTexte::KontaktGruppe(ContactGroup(contact->SetType()))];
            }
    sections_.push_back({FormatMessage("Signale je Modell"), RowsOf(signals)});
    sections_.push_back({FormatMessage("Kontakte je Art"), RowsOf(contacts)});
}

void CLayoutInventory::AddBuildings(const CAnlage& anlage) {
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(chapter.get());
        if (!collection)
            continue;
        std::map<std::string, long> models;
        for (const auto& child : collection->SubNodes())
            if (const auto* building = dynamic_cast<const CNodeImmobilie*>(child.get()))
                ++models[ModelOrUnnamed(building->GsbName())];
        sections_.push_back({FormatMessage("Gebäudesammlung %1", CObjectTexte::Immos(collection->ID() + 20)),
                             RowsOf(models)});
    }
}

void CLayoutInventory::AddTrains(const CAnlage& anlage) {
    Section trains{FormatMessage("Züge (Fahrzeuge je Zug)"), {}};
    ForEachNode(*anlage.RootNode(), [&](const INode& node, int) {
        if (node.Name() != "Zugverband")
            return;
        Row row{AttributeText(node, "name"), FormatMessage("steht auf keinem Gleis"), 0};
        for (const auto& child : node.SubNodes()) {
            if (child->Name() == "Rollmaterial")
                ++row.count;
            else if (const auto* place = dynamic_cast<const CNodeGleisOrt*>(child.get())) {
                const CNodeGleisSys* system = FindGleisSys(anlage, place->GleissystemID());
                row.detail = FormatMessage("Gleis %1 [%2]", place->GleisID(),
                                           system ? CObjectTexte::GleisSystem(system->Number())
                                                  : FormatMessage("Gleissystem %1", place->GleissystemID()));
            }
        }
        trains.rows.push_back(std::move(row));
    });
    sections_.push_back(std::move(trains));
}

std::string CLayoutInventory::GroupedNumber(long value, char thousands) {
    std::string digits = std::to_string(value < 0 ? -value : value);
    if (thousands != 0)
        for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3)
            digits.insert(static_cast<size_t>(i), 1, thousands);
    return value < 0 ? "-" + digits : digits;
}

std::string CLayoutInventory::Text(char thousands) const {
    std::string text;
    for (const Section& section : sections_) {
        text += FormatMessage("%1: %2%n", section.title, GroupedNumber(section.Total(), thousands));
        for (const Row& row : section.rows)
            text += row.detail.empty()
                        ? FormatMessage("  %1: %2%n", row.name, GroupedNumber(row.count, thousands))
                        : FormatMessage("  %1 (%2): %3%n", row.name, row.detail,
                                        GroupedNumber(row.count, thousands));
    }
    return text;
}

std::string CLayoutInventory::Csv() const {
    std::string csv = "Abschnitt;Name;Detail;Anzahl\r\n";
    for (const Section& section : sections_)
        for (const Row& row : section.rows)
            csv += CsvField(section.title) + ';' + CsvField(row.name) + ';' + CsvField(row.detail) + ';' +
                   std::to_string(row.count) + "\r\n";
    return csv;
}

} // namespace kavrin
