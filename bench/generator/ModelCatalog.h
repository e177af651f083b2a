#pragma once

#include "Layout.h"
#include "TrackSystem.h"

#include <span>
#include <string_view>

namespace kavrin::gen::catalog {

// Track class ids as the simulator knows them.
inline constexpr std::string_view kPlainTrackClass = "2E25C8E2-ADCD-469A-942E-7484556FF932";
inline constexpr std::string_view kSwitchClass = "C889EADB-63B5-44A2-AAB9-457424CFF15F";
inline constexpr std::string_view kThreeWaySwitchClass = "B0818DD8-5DFD-409F-8022-993FD3C90759";
inline constexpr std::string_view kBufferStopClass = "06D80C90-4E4B-469B-BFE0-509A573EBC99";
inline constexpr std::string_view kContactClass = "5E9A3049-D465-4602-A285-6A9774DCF1BF";
inline constexpr std::string_view kSignalClass = "D180F669-DCCC-42E9-960C-B5305B29F69D";
inline constexpr std::string_view kVehiclePoolClass = "C5A87AD3-EE1E-495D-AFED-CFA786C845AC";
inline constexpr std::string_view kTrainClass = "6FE10FB0-A974-4620-B7A5-D7D047A7903B";
inline constexpr std::string_view kPoweredVehicleClass = "16095510-0EAB-46AF-B294-CBB6D3516007";
inline constexpr std::string_view kUnpoweredVehicleClass = "7B0D0A3A-0882-44D6-B3E7-45D933A70F74";

std::string_view trackClass(TrackKind kind);

extern const TrackStyle kRailTrack;
extern const TrackStyle kRailBridgeTrack;
extern const TrackStyle kBufferStop;
extern const TrackStyle kTramTrack;
extern const TrackStyle kRoadTrack;
extern const TrackStyle kRoadBridgeTrack;
extern const TrackStyle kCanal;

// Track-accompanying objects.
extern const std::string_view kRailBridge;
extern const std::string_view kPlatform;
extern const std::string_view kTramStop;
extern const std::string_view kBusStop;
extern const std::string_view kBasculeBridge;
extern const std::string_view kJetty;

// Buildings and landscape.
extern const std::string_view kStationBuilding;
extern const std::string_view kWindmill;
extern const std::string_view kGoodsShed;
std::span<const std::string_view> houses();
std::span<const std::string_view> trees();
std::span<const std::string_view> goods();

// Signals.
extern const std::string_view kMainSignal;
extern const std::string_view kExitSignal;
extern const std::string_view kTramSignal;

// Rolling stock.
extern const VehicleModel kDieselLoco;
extern const VehicleModel kElectricLoco;
extern const VehicleModel kCoach;
extern const VehicleModel kFreightWagon;
extern const VehicleModel kTram;
extern const VehicleModel kBus;

} // namespace kavrin::gen::catalog
