#include "TrackWriter.h"

#include "ModelCatalog.h"

#include <cmath>

namespace kavrin::gen {
namespace {
constexpr double kMetresPerUnit = 0.01; // the newer format counts in metres, the classic one in cm
constexpr double kTipForeground = 7.843138E-03;
} // namespace

void TrackWriter::write(const TrackPiece& piece, int systemId) {
    xml_.open("Gleis");
    writeAttributes(piece, systemId);
    if (piece.isSwitch()) {
        xml_.open("KontaktZiel");
        xml_.text(std::to_string(piece.target));
        xml_.close();
    }
    if (format_ == TrackFormat::Classic) {
        writeClassicGeometry(piece);
    } else {
        writeNewGeometry(piece);
    }
    for (const Contact& contact : piece.contacts) {
        writeContact(contact);
    }
    for (const Signal& signal : piece.signals) {
        writeSignal(signal);
    }
    xml_.close();
}

void TrackWriter::writeAttributes(const TrackPiece& piece, int systemId) {
    xml_.attr("GleisID", piece.id);
    xml_.rawAttr("clsid", catalog::trackClass(piece.kind));
    xml_.attr("data", 0);
    xml_.attr("scale", 1);
    xml_.attr("ElectSideS", 0);
    xml_.attr("ElectSideE", 0);
    if (piece.isSwitch()) {
        xml_.attr("weichenstellung", piece.setting);
    }
    if (systemId == kRoad) {
        xml_.attr("OneWay", 0);
    }
    xml_.attr("stil", piece.style->stil);
    xml_.attr("gsbname", piece.style->gsbname);
    if (piece.isSwitch()) {
        xml_.attr("Key_Id", piece.keyId);
    }
    xml_.attr("LockEd", 0);
}

// The file keeps the canted normal and binormal; a reader undoes the cant a with
// N = Nt cos a - Bt sin a, B = Bt cos a + Nt sin a. So Nt = N cos a + B sin a, Bt = B cos a - N sin a.
void TrackWriter::writeClassicGeometry(const TrackPiece& piece) {
    const Frame& f = piece.frame;
    const double c = std::cos(piece.cant);
    const double s = std::sin(piece.cant);
    const Vec3 nor = f.nor * c + f.bin * s;
    const Vec3 bin = f.bin * c - f.nor * s;
    xml_.open("Dreibein");
    xml_.vektor(f.pos.x, f.pos.y, f.pos.z, "Pos");
    xml_.vektor(f.dir.x, f.dir.y, f.dir.z, "Dir");
    xml_.vektor(nor.x, nor.y, nor.z, "Nor");
    xml_.vektor(bin.x, bin.y, bin.z, "Bin");
    xml_.close();
    xml_.open("Anfangsfuehrungsverdrehung");
    xml_.num("Wert", piece.cant);
    xml_.close();
    xml_.open("Charakteristik");
    xml_.num("Kruemmung", piece.curvature);
    xml_.num("Torsion", 0);
    xml_.num("Fuehrungsverdrehung", 0);
    xml_.num("Kurve", 0);
    xml_.num("Laenge", piece.length);
    xml_.close();
}

// Both ways the simulator places a curve occur: in the track's own frame, or in an identity frame with
// the curve in world coordinates. Every third track uses the latter so that readers meet both.
void TrackWriter::writeNewGeometry(const TrackPiece& piece) {
    const bool inOwnFrame = piece.id % 3 != 0;
    if (inOwnFrame) {
        writeOwnFrame(piece);
    } else {
        writeWorldFrame();
    }
    xml_.open("Interval");
    xml_.num("near", 0);
    xml_.num("far", piece.length * kMetresPerUnit);
    xml_.close();
    xml_.open("Curve");
    if (piece.curvature == 0) {
        writeLine(piece, inOwnFrame);
    } else {
        writeArc(piece, inOwnFrame);
    }
    xml_.close();
    writeTwist();
}

void TrackWriter::writeOwnFrame(const TrackPiece& piece) {
    const Frame& f = piece.frame;
    xml_.open("Frame");
    xml_.position(f.pos.x * kMetresPerUnit, f.pos.y * kMetresPerUnit, f.pos.z * kMetresPerUnit);
    xml_.vector(f.dir.x, f.dir.y, f.dir.z);
    xml_.vector(f.nor.x, f.nor.y, f.nor.z);
    xml_.vector(f.bin.x, f.bin.y, f.bin.z);
    xml_.close();
}

void TrackWriter::writeWorldFrame() {
    xml_.open("Frame");
    xml_.position(0, 0, 0);
    xml_.vector(1, 0, 0);
    xml_.vector(0, 1, 0);
    xml_.vector(0, 0, 1);
    xml_.close();
}

void TrackWriter::writeLine(const TrackPiece& piece, bool inOwnFrame) {
    const Frame& f = piece.frame;
    xml_.open("Line");
    xml_.open("VectorBundle");
    if (inOwnFrame) {
        xml_.position(0, 0, 0);
        xml_.vector(1, 0, 0);
    } else {
        xml_.position(f.pos.x * kMetresPerUnit, f.pos.y * kMetresPerUnit, f.pos.z * kMetresPerUnit);
        xml_.vector(f.dir.x, f.dir.y, f.dir.z);
    }
    xml_.close();
    if (inOwnFrame) {
        xml_.vector(0, 0, 1);
    } else {
        xml_.vector(f.bin.x, f.bin.y, f.bin.z);
    }
    xml_.close();
}

// Arc: centre C, unit tangent t at s = 0, and w from the s = 0 point to the centre (|w| = radius).
void TrackWriter::writeArc(const TrackPiece& piece, bool inOwnFrame) {
    const Frame& f = piece.frame;
    const double side = piece.curvature > 0 ? 1 : -1;
    const double radius = std::abs(1 / piece.curvature) * kMetresPerUnit;
    xml_.open("Arc");
    xml_.open("VectorBundle2");
    if (inOwnFrame) {
        xml_.position(0, side * radius, 0);
        xml_.vector(1, 0, 0);
        xml_.vector(0, side * radius, 0);
    } else {
        const Vec3 toCentre = f.nor * (side * radius);
        const Vec3 start = f.pos * kMetresPerUnit;
        xml_.position(start.x + toCentre.x, start.y + toCentre.y, start.z + toCentre.z);
        xml_.vector(f.dir.x, f.dir.y, f.dir.z);
        xml_.vector(toCentre.x, toCentre.y, toCentre.z);
    }
    xml_.close();
    xml_.close();
}

void TrackWriter::writeTwist() {
    xml_.open("Twist");
    xml_.open("CombinedTwist");
    xml_.open("Twist");
    xml_.open("LinearTwist");
    xml_.num("startangle", 0);
    xml_.num("endangle", 0);
    xml_.close();
    xml_.close();
    xml_.open("Twist");
    xml_.open("DirectionalTwist");
    xml_.rawAttr("bFrozen", "true");
    xml_.vector(0, 0, 1);
    xml_.close();
    xml_.close();
    xml_.close();
    xml_.close();
}

void TrackWriter::writeContact(const Contact& contact) {
    const bool switching = contact.setType == 0;
    xml_.open("Kontakt");
    xml_.num("Position", contact.position);
    xml_.attr("ParaOderAnti", 1);
    xml_.attr("fireOnPara", 1);
    xml_.attr("fireOnAnti", 0);
    xml_.attr("Teiler", 1);
    xml_.attr("ActTeiler", 0);
    xml_.attr("TrainSide", 0);
    xml_.attr("Route", 0);
    xml_.attr("Route2", 0);
    xml_.attr("SetType", contact.setType);
    xml_.attr("SetValue", switching ? 0 : contact.setValue);
    xml_.attr("Delay", 0);
    xml_.attr("ActDelay", 0);
    xml_.attr("TrainID", 0);
    xml_.attr("TrainID2", 0);
    xml_.attr("Light", 2);
    xml_.attr("LastTrainID", 0);
    xml_.num("LastOfs", 0);
    xml_.attr("ConnectF", 2);
    xml_.attr("ConnectR", 2);
    xml_.attr("VolDist", 150);
    // A switching contact keeps the position it sets in zuStellung.
    xml_.attr("zuStellung", switching ? contact.setValue : 0);
    xml_.attr("Wartender", 0);
    xml_.attr("AxisPos", 0);
    xml_.attr("AxisFilter", "");
    xml_.attr("NameFilter", "");
    xml_.attr("TrainNewName", "");
    xml_.attr("KontaktDist", 0);
    xml_.attr("TrainDist", 0);
    xml_.attr("LuaFn", contact.luaFunction);
    xml_.attr("Group", contact.setType == 32768 ? contact.setValue : 0);
    xml_.attr("AnimID", 0);
    xml_.attr("CheckAuto", 2);
    xml_.attr("SetAuto", 2);
    if (format_ == TrackFormat::New) {
        xml_.attr("TimeFrom", 0);
        xml_.attr("TimeTo", 0);
    }
    xml_.attr("SignalData", 0);
    xml_.attr("SigNeg", 0);
    xml_.attr("LockEd", 0);
    if (switching) {
        xml_.attr("KontaktZiel", contact.target);
        xml_.attr("Wechseln", 0);
    }
    xml_.rawAttr("clsid", catalog::kContactClass);
    if (!contact.tip.empty()) {
        writeTip(contact.tip, 1);
    }
    xml_.close();
}

void TrackWriter::writeTip(std::string_view tip, int show) {
    xml_.attr("TipTxt", tip);
    xml_.attr("TipBGCR", 1);
    xml_.attr("TipBGCG", 1);
    xml_.attr("TipBGCB", 1);
    xml_.num("TipFGCR", kTipForeground);
    xml_.num("TipFGCG", kTipForeground);
    xml_.num("TipFGCB", kTipForeground);
    xml_.attr("TipShow", show);
}

void TrackWriter::writeSignal(const Signal& signal) {
    xml_.open("Meldung");
    xml_.num("Position", signal.position);
    xml_.attr("ParaOderAnti", 1);
    xml_.attr("fireOnPara", 1);
    xml_.attr("fireOnAnti", 0);
    xml_.rawAttr("clsid", catalog::kSignalClass);
    xml_.attr("name", signal.model);
    xml_.attr("Key_Id", signal.keyId);
    xml_.attr("Hofs", 120);
    xml_.attr("Vofs", 120);
    writeTip("", 0);
    xml_.attr("LockEd", 0);
    xml_.open("KontaktZiel");
    xml_.text(std::to_string(signal.target));
    xml_.close();
    xml_.open("Signal");
    xml_.attr("stellung", signal.setting);
    xml_.num("wirkungsdistanz", signal.effectRange);
    xml_.attr("StopAt", 500);
    xml_.attr("Geschwindigkeit", 0);
    xml_.attr("Delay", 0);
    xml_.attr("ActDelay", 0);
    if (signal.waitingTrain != 0) {
        xml_.open("Wartender");
        xml_.attr("fuhrparkID", 1);
        xml_.attr("zugverbandID", signal.waitingTrain);
        xml_.num("sollgeschwindigkeit", 22.22222);
        xml_.close();
    }
    xml_.close();
    xml_.close();
}

} // namespace kavrin::gen
