#pragma once

#include "TrackSystem.h"
#include "Vec3.h"

#include <array>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace kavrin::gen {

/// Classic: tracks with Dreibein/Charakteristik (simulator up to version 15).
/// New: tracks with Frame/Interval/Curve/Twist (version 17).
enum class TrackFormat { Classic, New };

inline constexpr int kTrackSystemCount = 6;
inline constexpr int kCollectionCount = 6;

enum TrackSystemId { kRailway = 1, kTramway = 2, kRoad = 3, kWaterway = 4, kControl = 5, kPanel = 6 };
enum CollectionId {
    kRailObjects = 1,
    kTramObjects = 2,
    kRoadObjects = 3,
    kBuildings = 4,
    kLandscape = 5,
    kWaterObjects = 6
};

struct KollektorTrack {
    int system = 0;
    int track = 0;
};

/// The own tracks of a track-accompanying object or of one of its moving parts.
struct Kollektor {
    int id = 0;
    Frame frame;
    std::vector<KollektorTrack> tracks;
};

struct MovingPart {
    int kollektorId = 0; // 0: the part moves no tracks
    int partId = 0;
};

struct Building {
    std::string_view model;
    Frame frame;
    int immoIdx = 0;
    int kollektorId = 0; // only objects of collections 1, 2, 3 and 6
    std::vector<MovingPart> parts;
    std::string_view tip;
    bool light = false;
    bool tree = false;
};

struct VehicleModel {
    std::string_view name;
    std::string_view typ;
    bool powered = false;
    double mass = 0;
    double frontOverhang = 0;
    double rearOverhang = 0;
    int axles = 0;
};

struct Train {
    int id = 0;
    std::string name;
    int system = 0;
    int track = 0;
    double parameter = 0;
    int orientation = 1;
    double speed = 0; // m/s
    std::vector<const VehicleModel*> cars;
};

struct Good {
    std::string_view model;
    Frame frame;
};

struct Camera {
    std::string name;
    Frame frame;
};

struct Bounds {
    double minX = std::numeric_limits<double>::max();
    double minY = std::numeric_limits<double>::max();
    double maxX = std::numeric_limits<double>::lowest();
    double maxY = std::numeric_limits<double>::lowest();

    void include(Vec3 p);
    bool empty() const { return minX > maxX; }
};

/// Everything a generated layout holds, in the order the file needs it.
class Layout {
public:
    /// trackBudget < 0: unlimited; otherwise newTrack() yields at most that many tracks.
    Layout(TrackFormat format, long long trackBudget);

    TrackFormat format() const { return format_; }
    TrackSystem& system(int id) { return systems_[static_cast<std::size_t>(id - 1)]; }
    const std::array<TrackSystem, kTrackSystemCount>& systems() const { return systems_; }

    /// A new track in the given system, or nullptr once the budget is spent.
    TrackPiece* newTrack(int systemId);
    long long trackCount() const { return trackCount_; }
    bool trackBudgetSpent() const { return trackBudget_ >= 0 && trackCount_ >= trackBudget_; }

    Kollektor& addKollektor(const Frame& frame);
    Building& addBuilding(int collection, std::string_view model, const Frame& frame);
    Train& addTrain(std::string name, int system, int track);
    void addGood(std::string_view model, const Frame& frame);
    void addCamera(std::string name, const Frame& frame);

    int nextKeyId() { return ++lastKeyId_; }
    int nextTarget() { return ++lastTarget_; }
    void noteModel(std::string_view name) { models_.insert(name); }
    int modelCount() const { return static_cast<int>(models_.size()); }

    const std::vector<Kollektor>& kollektors() const { return kollektors_; }
    const std::vector<Building>& collection(int id) const {
        return collections_[static_cast<std::size_t>(id - 1)];
    }
    long long buildingCount() const { return buildingCount_; }
    const std::vector<Train>& trains() const { return trains_; }
    const std::vector<Good>& goods() const { return goods_; }
    const std::vector<Camera>& cameras() const { return cameras_; }
    const Bounds& bounds() const { return bounds_; }
    void include(Vec3 p) { bounds_.include(p); }

    std::string name;        // used for the terrain and script file names
    std::string description; // "Beschreibung"

private:
    TrackFormat format_;
    long long trackBudget_;
    long long trackCount_ = 0;
    long long buildingCount_ = 0;
    int lastKeyId_ = 0;
    int lastTarget_ = 0;
    std::array<TrackSystem, kTrackSystemCount> systems_;
    std::vector<Kollektor> kollektors_;
    std::array<std::vector<Building>, kCollectionCount> collections_;
    std::vector<Train> trains_;
    std::vector<Good> goods_;
    std::vector<Camera> cameras_;
    std::unordered_set<std::string_view> models_;
    Bounds bounds_;
};

} // namespace kavrin::gen
