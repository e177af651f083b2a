#include "ModelCatalog.h"

#include <array>

namespace kavrin::gen::catalog {

std::string_view trackClass(TrackKind kind) {
    switch (kind) {
    case TrackKind::Switch:
        return kSwitchClass;
    case TrackKind::ThreeWaySwitch:
        return kThreeWaySwitchClass;
    case TrackKind::BufferStop:
        return kBufferStopClass;
    case TrackKind::Plain:
        break;
    }
    return kPlainTrackClass;
}

const TrackStyle kRailTrack{"\\Gleisstile\\Gleise\\Betonschwelle_Schotter_KV1.3dm", 5102};
const TrackStyle kRailBridgeTrack{"\\Gleisstile\\Gleise\\Brueckengleis_Stahl_KV1.3dm", 5140};
const TrackStyle kBufferStop{"\\Gleisstile\\Gleise\\Prellbock_Schwelle_KV1.3dm", 5190};
const TrackStyle kTramTrack{"\\Gleisstile\\Schienen\\Rillenschiene_Pflaster_KV1.3dm", 1402};
const TrackStyle kRoadTrack{"\\Gleisstile\\Strassen\\Landstrasse_zweispurig_KV1.3dm", 3520};
const TrackStyle kRoadBridgeTrack{"\\Gleisstile\\Strassen\\Klappbrueckenfahrbahn_KV1.3dm", 3561};
const TrackStyle kCanal{"\\Gleisstile\\Wasserwege\\Kanal_Spundwand_12m_KV1.3dm", 6011};

const std::string_view kRailBridge = "\\Gleisobjekte\\Gleise\\Bruecken\\Fachwerkbruecke_zweigleisig_KV1.3dm";
const std::string_view kPlatform = "\\Gleisobjekte\\Gleise\\Bahnsteige\\Hausbahnsteig_160m_KV1.3dm";
const std::string_view kTramStop = "\\Gleisobjekte\\Strassenbahn\\Haltestelleninsel_KV1.3dm";
const std::string_view kBusStop = "\\Gleisobjekte\\Strassen\\Bushaltebucht_KV1.3dm";
const std::string_view kBasculeBridge = "\\Gleisobjekte\\Strassen\\Klappbruecke_Kanal_KV1.3dm";
const std::string_view kJetty = "\\Gleisobjekte\\Wasserwege\\Bootsanleger_Holz_KV1.3dm";

const std::string_view kStationBuilding = "\\Immobilien\\Verkehr\\Bahnhof_Kleinstadt_KV1.3dm";
const std::string_view kWindmill = "\\Immobilien\\Land\\Windmuehle_Holland_KV1.3dm";
const std::string_view kGoodsShed = "\\Immobilien\\Gewerbe\\Gueterschuppen_Rolltor_KV1.3dm";

namespace {
constexpr std::array<std::string_view, 8> kHouses = {"\\Immobilien\\Stadt\\Wohnhaus_Altbau_gelb_KV1.3dm",
                                                     "\\Immobilien\\Stadt\\Wohnhaus_Altbau_rot_KV1.3dm",
                                                     "\\Immobilien\\Stadt\\Eckhaus_Baeckerei_KV1.3dm",
                                                     "\\Immobilien\\Stadt\\Reihenhaus_Klinker_KV1.3dm",
                                                     "\\Immobilien\\Land\\Bauernhaus_Fachwerk_KV1.3dm",
                                                     "\\Immobilien\\Land\\Scheune_Holz_KV1.3dm",
                                                     "\\Immobilien\\Gewerbe\\Werkstatt_Sheddach_KV1.3dm",
                                                     "\\Immobilien\\Gewerbe\\Lagerhaus_Backstein_KV1.3dm"};
constexpr std::array<std::string_view, 5> kTrees = {
    "\\Lselemente\\Flora\\Laubbaeume\\Eiche_gross_KV1.3dm", "\\Lselemente\\Flora\\Laubbaeume\\Linde_KV1.3dm",
    "\\Lselemente\\Flora\\Laubbaeume\\Birke_KV1.3dm", "\\Lselemente\\Flora\\Nadelbaeume\\Fichte_KV1.3dm",
    "\\Lselemente\\Flora\\Nadelbaeume\\Kiefer_KV1.3dm"};
constexpr std::array<std::string_view, 3> kGoods = {"\\Ladegut\\Container\\Container_20ft_blau_KV1.3dm",
                                                    "\\Ladegut\\Container\\Container_40ft_rot_KV1.3dm",
                                                    "\\Ladegut\\Holz\\Langholzstapel_KV1.3dm"};
} // namespace

std::span<const std::string_view> houses() {
    return kHouses;
}
std::span<const std::string_view> trees() {
    return kTrees;
}
std::span<const std::string_view> goods() {
    return kGoods;
}

const std::string_view kMainSignal = "Hauptsignal_Licht_Hp_KV1";
const std::string_view kExitSignal = "Ausfahrsignal_Licht_Hp_KV1";
const std::string_view kTramSignal = "Strab_Signal_F0_F1_KV1";

const VehicleModel kDieselLoco{
    "V 160 altrot", "Schiene\\Lokomotiven\\Diesel\\V160_altrot_KV1.3dm", true, 80000, 180, 180, 4};
const VehicleModel kElectricLoco{
    "E 41 blau", "Schiene\\Lokomotiven\\Elektro\\E41_blau_KV1.3dm", true, 66000, 160, 160, 4};
const VehicleModel kCoach{
    "Silberling 2. Klasse", "Schiene\\Personenwagen\\Silberling_B_KV1.3dm", false, 32000, 320, 320, 4};
const VehicleModel kFreightWagon{
    "Rungenwagen beladen", "Schiene\\Gueterwagen\\Rungenwagen_Holz_KV1.3dm", false, 41000, 210, 210, 4};
const VehicleModel kTram{
    "Gelenktriebwagen GT6 creme", "Schiene\\Strassenbahnen\\GT6_creme_KV1.3dm", true, 24000, 540, 540, 6};
const VehicleModel kBus{
    "Stadtbus Solo weiss", "Strasse\\Busse\\Stadtbus_Solo_weiss_KV1.3dm", true, 13000, 270, 330, 2};

} // namespace kavrin::gen::catalog
