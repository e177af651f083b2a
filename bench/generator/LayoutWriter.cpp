#include "LayoutWriter.h"

#include "EnvironmentWriter.h"
#include "ModelCatalog.h"
#include "TrackWriter.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace kavrin::gen {
namespace {
constexpr std::string_view kEndNames[] = {"", "Anfang", "Ende", "EndeAbzweig", "EndeKoAbzweig"};
// Building collections appear in this order in every layout the simulator writes.
constexpr int kCollectionOrder[] = {kRailObjects,  kTramObjects, kRoadObjects,
                                    kWaterObjects, kBuildings,   kLandscape};
constexpr int kVehiclePoolId = 1;
} // namespace

LayoutWriter::LayoutWriter(const Layout& layout, OutputSink& sink) : layout_(layout), xml_(sink) {}

void LayoutWriter::write() {
    xml_.declaration();
    writeRoot();
    writeVersion();
    for (const TrackSystem& system : layout_.systems()) {
        writeTrackSystem(system);
    }
    for (const Kollektor& kollektor : layout_.kollektors()) {
        writeKollektor(kollektor);
    }
    writeVehiclePool();
    for (int id : kCollectionOrder) {
        writeCollection(id);
    }
    xml_.open("Gleisbildstellpultsammlung");
    xml_.close();
    xml_.open("AnimRoll");
    xml_.attr("count", 0);
    xml_.close();
    writeGoods();
    xml_.open("CrowdSammlung");
    xml_.close();
    EnvironmentWriter(layout_, xml_).write();
    xml_.close();
    xml_.finish();
}

void LayoutWriter::writeRoot() {
    xml_.open("sutrackp");
    if (layout_.format() == TrackFormat::New) {
        xml_.rawAttr("xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance");
        xml_.rawAttr("xsi:noNamespaceSchemaLocation", "https://www.trendverlag.com/Schema/EEP.xsd");
    }
}

void LayoutWriter::writeVersion() {
    xml_.open("Version");
    xml_.rawAttr("EEP", layout_.format() == TrackFormat::New ? "17" : "15");
    xml_.rawAttr("Language", "GER");
    xml_.attr("No3DMs", layout_.modelCount());
    xml_.close();
}

void LayoutWriter::writeTrackSystem(const TrackSystem& system) {
    xml_.open("Gleissystem");
    xml_.attr("GleissystemID", system.id());
    xml_.attr("TrackSystemNumber", system.id());
    if (!system.type().empty()) {
        xml_.attr("type", system.type());
    }
    xml_.dreibein(system.frame());
    TrackWriter tracks(xml_, layout_.format());
    for (const TrackPiece& piece : system.pieces()) {
        tracks.write(piece, system.id());
    }
    for (const TrackConnection& connection : system.sortedConnections()) {
        writeConnection(connection);
    }
    xml_.close();
}

void LayoutWriter::writeConnection(const TrackConnection& connection) {
    xml_.open("Gleisverbindung");
    xml_.attr("GleisID1", connection.id1);
    xml_.rawAttr("Anschluss1", kEndNames[connection.end1]);
    xml_.attr("GleisID2", connection.id2);
    xml_.rawAttr("Anschluss2", kEndNames[connection.end2]);
    if (connection.virtualLink) {
        xml_.attr("Flags", 1);
    }
    xml_.close();
}

void LayoutWriter::writeKollektor(const Kollektor& kollektor) {
    xml_.open("Kollektor");
    xml_.attr("id", kollektor.id);
    xml_.dreibein(kollektor.frame);
    for (const KollektorTrack& track : kollektor.tracks) {
        xml_.open("Gleis");
        xml_.attr("gleisID", track.track);
        xml_.attr("gleissystemID", track.system);
        xml_.close();
    }
    xml_.close();
}

void LayoutWriter::writeVehiclePool() {
    xml_.open("Fuhrpark");
    xml_.attr("FuhrparkID", kVehiclePoolId);
    xml_.rawAttr("clsid", catalog::kVehiclePoolClass);
    for (const Train& train : layout_.trains()) {
        writeTrain(train);
    }
    xml_.close();
}

void LayoutWriter::writeTrain(const Train& train) {
    xml_.open("Zugverband");
    xml_.attr("ZugID", train.id);
    xml_.num("Geschwindigkeit", train.speed);
    xml_.attr("autopilot", 1);
    xml_.num("sollgeschwindigkeit", train.speed);
    xml_.attr("sollgeschwindigkeit_kp", 0);
    xml_.attr("wirkungsdistanz", -1);
    xml_.attr("kupplungvorn", 2);
    xml_.attr("kupplunghinten", 2);
    xml_.attr("Route", 0);
    xml_.attr("LastDir", 1);
    xml_.rawAttr("clsid", catalog::kTrainClass);
    xml_.attr("name", train.name);
    xml_.attr("LightStat", 0);
    xml_.attr("Hide", -1);
    xml_.attr("Favorite", 0);
    xml_.open("Gleisort");
    xml_.attr("gleissystemID", train.system);
    xml_.attr("gleisID", train.track);
    xml_.num("parameter", train.parameter);
    xml_.attr("ausrichtung", train.orientation);
    xml_.close();
    for (const VehicleModel* car : train.cars) {
        writeVehicle(*car);
    }
    xml_.close();
}

void LayoutWriter::writeVehicle(const VehicleModel& vehicle) {
    xml_.open("Rollmaterial");
    xml_.rawAttr("clsid", vehicle.powered ? catalog::kPoweredVehicleClass : catalog::kUnpoweredVehicleClass);
    xml_.attr("ausrichtung", 1);
    xml_.attr("bremsung", 0);
    xml_.attr("Flags", 12);
    xml_.num("Masse", vehicle.mass);
    xml_.num("Reibung", 2.5);
    xml_.attr("maxbremsung", 150);
    xml_.num("vUeberhang", vehicle.frontOverhang);
    xml_.num("hUeberhang", vehicle.rearOverhang);
    xml_.attr("TotalDist", 1200 + 37 * vehicleIndex_);
    // Vehicle names are unique in a layout; the simulator numbers copies of a model ";001", ";002" ...
    char number[16];
    std::snprintf(number, sizeof number, ";%03d", vehicleIndex_ + 1);
    xml_.attr("name", std::string(vehicle.name) + number);
    xml_.attr("typ", vehicle.typ);
    xml_.attr("LightStat", 0);
    xml_.attr("Hook", 0);
    xml_.attr("Active", 1);
    xml_.attr("RollIdx", vehicleIndex_++);
    xml_.attr("Favorite", 0);
    xml_.attr("ActCabin", 1);
    xml_.attr("ImmoIdx", 0);
    xml_.attr("zuStellung", 0);
    xml_.attr("Wartender", 0);
    if (layout_.format() == TrackFormat::New) {
        xml_.attr("LuaTag", "");
    }
    xml_.attr("LockEd", 0);
    if (vehicle.powered) {
        writeEngine(vehicle);
    }
    xml_.open("Modell");
    for (int axle = 0; axle < vehicle.axles; ++axle) {
        xml_.open("Achse");
        xml_.num("Parameter", 0);
        xml_.rawAttr("Velocity", "0.0002"); // as the simulator writes it
        xml_.close();
    }
    xml_.close();
    xml_.close();
}

void LayoutWriter::writeEngine(const VehicleModel& vehicle) {
    constexpr double kGearRatios[] = {-18, 24, 15, 10, 7, 5};
    xml_.open("Zugmaschine");
    xml_.num("leistung", vehicle.mass / 200000);
    xml_.attr("gang", 1);
    xml_.open("Motor");
    xml_.num("leistung", vehicle.mass / 100);
    xml_.attr("u1", 900);
    xml_.attr("u2", 1800);
    xml_.attr("u3", 2700);
    xml_.close();
    xml_.open("Getriebe");
    xml_.attr("treibradradius", 50);
    for (double ratio : kGearRatios) {
        xml_.open("Gang");
        xml_.num("uebersetzung", ratio);
        xml_.close();
    }
    xml_.close();
    xml_.close();
}

void LayoutWriter::writeCollection(int id) {
    xml_.open("Gebaeudesammlung");
    xml_.attr("GebaudesammlungID", id);
    for (const Building& building : layout_.collection(id)) {
        writeBuilding(building);
    }
    xml_.close();
}

void LayoutWriter::writeBuilding(const Building& building) {
    xml_.open("Immobile");
    xml_.attr("gsbname", building.model);
    xml_.attr("Smoke", 0);
    xml_.attr("Fire", 0);
    xml_.attr("Light", building.light ? 1 : 0);
    xml_.attr("ImmoIdx", building.immoIdx);
    if (building.kollektorId != 0) {
        xml_.attr("kollektorID", building.kollektorId);
    }
    if (building.tree) {
        xml_.attr("TreeShake", 2);
    }
    if (!building.tip.empty()) {
        xml_.attr("TipTxt", building.tip);
        xml_.attr("TipBGCR", 1);
        xml_.attr("TipBGCG", 1);
        xml_.attr("TipBGCB", 1);
        xml_.attr("TipFGCR", 0);
        xml_.attr("TipFGCG", 0);
        xml_.attr("TipFGCB", 0);
        xml_.attr("TipShow", 1);
    }
    xml_.attr("LockEd", 0);
    for (const MovingPart& part : building.parts) {
        xml_.open("BeweglichesTeil");
        xml_.attr("Parameter", 0);
        xml_.attr("Settings", 0);
        xml_.attr("count", 0);
        xml_.attr("teilid", part.partId);
        if (part.kollektorId != 0) {
            xml_.attr("kollektorID", part.kollektorId);
        }
        xml_.close();
    }
    xml_.dreibein(building.frame);
    xml_.open("Modell");
    for (std::size_t i = 0; i < building.parts.size(); ++i) {
        xml_.open("Achse");
        xml_.num("Parameter", 0);
        xml_.rawAttr("Velocity", "0.0002"); // as the simulator writes it
        xml_.close();
    }
    xml_.close();
    xml_.close();
}

void LayoutWriter::writeGoods() {
    xml_.open("Goods");
    xml_.attr("count", static_cast<long long>(layout_.goods().size()));
    for (const Good& good : layout_.goods()) {
        xml_.open("Good");
        xml_.attr("gsbname", good.model);
        xml_.dreibein(good.frame);
        xml_.close();
    }
    xml_.close();
}

} // namespace kavrin::gen
