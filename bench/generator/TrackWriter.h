#pragma once

#include "Layout.h"
#include "TrackSystem.h"
#include "XmlTextWriter.h"

namespace kavrin::gen {

/// Writes one "Gleis" with its geometry in the layout's track format, then its contacts and signals.
class TrackWriter {
public:
    TrackWriter(XmlTextWriter& xml, TrackFormat format) : xml_(xml), format_(format) {}

    void write(const TrackPiece& piece, int systemId);

private:
    void writeAttributes(const TrackPiece& piece, int systemId);
    void writeClassicGeometry(const TrackPiece& piece);
    void writeNewGeometry(const TrackPiece& piece);
    void writeOwnFrame(const TrackPiece& piece);
    void writeWorldFrame();
    void writeLine(const TrackPiece& piece, bool inOwnFrame);
    void writeArc(const TrackPiece& piece, bool inOwnFrame);
    void writeTwist();
    void writeContact(const Contact& contact);
    // The tooltip attributes of a contact or signal; show is 1 for a tooltip shown on the plan.
    void writeTip(std::string_view tip, int show);
    void writeSignal(const Signal& signal);

    XmlTextWriter& xml_;
    TrackFormat format_;
};

} // namespace kavrin::gen
