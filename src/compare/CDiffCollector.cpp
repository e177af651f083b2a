#include "compare/CDiffCollector.h"

#include <cmath>

#include "compare/CContentComparer.h"
#include "nodes/C3Bein.h"

namespace kavrin {

namespace {

// Direction vectors are unit vectors: their components are compared to one part in a million
// of their length, which the file's seven digits carry.
bool SameDirection(const CVector& a, const CVector& b) {
    constexpr double kTolerance = 2e-6;
    return std::fabs(a.X - b.X) <= kTolerance && std::fabs(a.Y - b.Y) <= kTolerance &&
           std::fabs(a.Z - b.Z) <= kTolerance;
}

bool SamePosition(const CVector& a, const CVector& b) {
    return CContentComparer::SameNumber(a.X, b.X) && CContentComparer::SameNumber(a.Y, b.Y) &&
           CContentComparer::SameNumber(a.Z, b.Z);
}

double Heading(const CVector& dir) {
    return std::atan2(dir.Y, dir.X) * 180.0 / kPi;
}

// -180 .. 180 degrees.
double NormalAngle(double angle) {
    angle = std::fmod(angle, 360.0);
    if (angle > 180)
        angle -= 360;
    if (angle <= -180)
        angle += 360;
    return angle;
}

} // namespace

CDiffPlace CDiffPlace::Of(const C3Bein& frame) {
    return {frame.Pos(), frame.Dir(), frame.Nor(), frame.Bin()};
}

CDiffEntry CDiffCollector::Entry(const Object& object, DiffChange change) const {
    CDiffEntry entry;
    entry.kind = object.kind;
    entry.change = change;
    entry.object = object.name;
    entry.order = object.order;
    entry.orderName = object.orderName;
    entry.oldNode = object.oldNode;
    entry.newNode = object.newNode;
    if (object.oldPlace) {
        entry.hasOldPlace = true;
        entry.oldPlace = object.oldPlace->pos;
    }
    if (object.newPlace) {
        entry.hasNewPlace = true;
        entry.newPlace = object.newPlace->pos;
    }
    return entry;
}

void CDiffCollector::Added(const Object& object) {
    entries_.push_back(Entry(object, DiffChange::Hinzugefuegt));
}

void CDiffCollector::Removed(const Object& object) {
    entries_.push_back(Entry(object, DiffChange::Entfernt));
}

void CDiffCollector::Matched(const Object& object, std::vector<CDiffValue> values) {
    if (object.oldPlace && object.newPlace) {
        const CDiffPlace& a = *object.oldPlace;
        const CDiffPlace& b = *object.newPlace;
        if (!SamePosition(a.pos, b.pos)) {
            CDiffEntry entry = Entry(object, DiffChange::Verschoben);
            entry.distance = std::hypot(b.pos.X - a.pos.X, b.pos.Y - a.pos.Y) / 100.0;
            entry.height = (b.pos.Z - a.pos.Z) / 100.0;
            entries_.push_back(std::move(entry));
        }
        if (!SameDirection(a.dir, b.dir) || !SameDirection(a.nor, b.nor) || !SameDirection(a.bin, b.bin)) {
            CDiffEntry entry = Entry(object, DiffChange::Gedreht);
            entry.angle = NormalAngle(Heading(b.dir) - Heading(a.dir));
            entries_.push_back(std::move(entry));
        }
    } else if (object.oldPlace.has_value() != object.newPlace.has_value()) {
        values.push_back(
            {"Dreibein", object.oldPlace ? "vorhanden" : "", object.newPlace ? "vorhanden" : ""});
    }
    if (!values.empty()) {
        CDiffEntry entry = Entry(object, DiffChange::Geaendert);
        entry.values = std::move(values);
        entries_.push_back(std::move(entry));
    }
}

} // namespace kavrin
