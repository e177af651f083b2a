#include "TrainBuilder.h"

#include "ContactPlacer.h"
#include "ModelCatalog.h"

#include <cmath>

namespace kavrin::gen {

TrainBuilder::TrainBuilder(Layout& layout, Rng& rng, const TileAnchors& anchors, int tileNumber)
    : layout_(layout), rng_(rng), anchors_(anchors), suffix_(std::to_string(tileNumber)) {}

void TrainBuilder::build() {
    using namespace catalog;
    addTrain("#Regionalzug " + suffix_, kRailway, anchors_.farSideTrack, 22.22222,
             {&kElectricLoco, &kCoach, &kCoach, &kCoach});
    if (Train* goods = addTrain("#Güterzug " + suffix_, kRailway, anchors_.waitingTrack, 0,
                                {&kDieselLoco, &kFreightWagon, &kFreightWagon})) {
        ContactPlacer(layout_, rng_).setWaitingTrain(anchors_.waitingSignal, goods->id);
    }
    addTrain("#Straßenbahn Linie 3 " + suffix_, kTramway, anchors_.tramTrack, 8.333333, {&kTram});
    addTrain("#Bus Linie 12 " + suffix_, kRoad, anchors_.roadTrack, 11.11111, {&kBus});
}

Train* TrainBuilder::addTrain(const std::string& name, int system, int track, double speed,
                              std::initializer_list<const VehicleModel*> cars) {
    if (track == 0) {
        return nullptr;
    }
    const double trackLength = layout_.system(system).piece(track).length;
    Train& train = layout_.addTrain(name, system, track);
    train.parameter = std::round(trackLength * rng_.uniform(0.4, 0.9));
    train.orientation = 1;
    train.speed = speed;
    for (const VehicleModel* car : cars) {
        train.cars.push_back(car);
        layout_.noteModel(car->typ);
    }
    return &train;
}

} // namespace kavrin::gen
