#pragma once

#include "Layout.h"
#include "OutputSink.h"
#include "XmlTextWriter.h"

namespace kavrin::gen {

/// Writes a layout as an ".anl3" document, chapter by chapter in the simulator's order.
class LayoutWriter {
public:
    LayoutWriter(const Layout& layout, OutputSink& sink);

    void write();

private:
    void writeRoot();
    void writeVersion();
    void writeTrackSystem(const TrackSystem& system);
    void writeConnection(const TrackConnection& connection);
    void writeKollektor(const Kollektor& kollektor);
    void writeVehiclePool();
    void writeTrain(const Train& train);
    void writeVehicle(const VehicleModel& vehicle);
    void writeEngine(const VehicleModel& vehicle);
    void writeCollection(int id);
    void writeBuilding(const Building& building);
    void writeGoods();

    const Layout& layout_;
    XmlTextWriter xml_;
    int vehicleIndex_ = 0;
};

} // namespace kavrin::gen
