#include "Layout.h"

#include <algorithm>
#include <utility>

namespace kavrin::gen {

void Bounds::include(Vec3 p) {
    minX = std::min(minX, p.x);
    minY = std::min(minY, p.y);
    maxX = std::max(maxX, p.x);
    maxY = std::max(maxY, p.y);
}

Layout::Layout(TrackFormat format, long long trackBudget)
    : format_(format), trackBudget_(trackBudget), systems_{TrackSystem(kRailway, ""),
                                                           TrackSystem(kTramway, ""),
                                                           TrackSystem(kRoad, ""),
                                                           TrackSystem(kWaterway, ""),
                                                           TrackSystem(kControl, "Steuerstrecken"),
                                                           TrackSystem(kPanel, "GBS")} {}

TrackPiece* Layout::newTrack(int systemId) {
    if (trackBudgetSpent()) {
        return nullptr;
    }
    ++trackCount_;
    return &system(systemId).addPiece();
}

Kollektor& Layout::addKollektor(const Frame& frame) {
    Kollektor& kollektor = kollektors_.emplace_back();
    kollektor.id = static_cast<int>(kollektors_.size());
    kollektor.frame = frame;
    return kollektor;
}

Building& Layout::addBuilding(int collection, std::string_view model, const Frame& frame) {
    Building& building = collections_[static_cast<std::size_t>(collection - 1)].emplace_back();
    building.model = model;
    building.frame = frame;
    building.immoIdx = static_cast<int>(++buildingCount_);
    noteModel(model);
    include(frame.pos);
    return building;
}

Train& Layout::addTrain(std::string trainName, int system, int track) {
    Train& train = trains_.emplace_back();
    train.id = static_cast<int>(trains_.size());
    train.name = std::move(trainName);
    train.system = system;
    train.track = track;
    return train;
}

void Layout::addGood(std::string_view model, const Frame& frame) {
    goods_.push_back({model, frame});
    noteModel(model);
    include(frame.pos);
}

void Layout::addCamera(std::string cameraName, const Frame& frame) {
    cameras_.push_back({std::move(cameraName), frame});
    include(frame.pos);
}

} // namespace kavrin::gen
