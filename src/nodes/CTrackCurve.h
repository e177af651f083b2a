#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/INode.h"
#include "nodes/CVector.h"

namespace kavrin {

class CXmlWriter;

// A track of the newer format (from version 17): its outer "Frame", "Interval", "Curve" and
// "Twist" children held compactly. The numbers the plan needs are read once, when the track is
// loaded; the elements themselves are kept as the file wrote them. The frame is the track's own
// value: moving or turning the track changes it, and only then is it written anew.
class CTrackCurve {
public:
    enum class Part : uint8_t { Frame, Interval, Curve, Twist };
    enum class Kind : uint8_t { None, Line, Arc, Cubic, EEPCurve, Chord };

    // The outer frame in metres: position and the three axes of the rotation.
    struct Frame {
        CVector position;
        std::array<CVector, 3> axes{CVector{1, 0, 0}, CVector{0, 1, 0}, CVector{0, 0, 1}};
        CVector Apply(const CVector& local) const;
    };

    // The part an element name stands for.
    static std::optional<Part> PartOf(std::string_view elementName);
    // A child element of the track this holds: one of its parts, not there yet; a frame only
    // with its position and three axes and nothing else.
    bool Accepts(const XmlElement& element) const;
    // Takes an accepted element; `raw` is the element as the file has it (empty when unknown).
    void Take(const XmlElement& element, std::string_view raw);
    // The numbers of a frame the track keeps as a node.
    void ReadFrameNumbers(const XmlElement& frame);
    bool Has(Part part) const { return (parts_ & Bit(part)) != 0; }
    void Write(CXmlWriter& writer, Part part) const;

    const Frame& GetFrame() const { return frame_; }
    bool HasFrameNumbers() const { return frameRead_; }
    // A frame element the track keeps as a node shows the values of this one.
    void SetFrame(const Frame& frame, std::string frameText);
    const std::string& FrameText() const { return frameText_; }
    // The frame text handed out, for an edit that is about to write the frame anew anyway.
    std::string TakeFrameText();
    // In world units (cm) and degrees, as every placed object moves.
    void Move(double dx, double dy, double dz);
    void Rotate(double angle, double cx, double cy);

    Kind CurveKind() const { return kind_; }
    double Near() const { return near_; }
    double Far() const { return far_; }
    // The vectors of the curve kind in file order (line: point, direction; arc: centre, tangent,
    // to-centre; cubic: four coefficients per piece; chord: first and last point; EEPCurve: the
    // inner frame's position and axes).
    const std::vector<CVector>& Vectors() const { return vectors_; }
    // EEPCurve: curvature, torsion and initial twist.
    double Kruemmung() const { return kruemmung_; }
    double Torsion() const { return torsion_; }
    double Verdrehung() const { return verdrehung_; }

private:
    static uint8_t Bit(Part part) { return static_cast<uint8_t>(1u << static_cast<unsigned>(part)); }

    void ReadCurve(const XmlElement& curve);
    void ReadCurveKind(const XmlElement& kind);
    void Keep(Part part, std::string_view raw, const XmlElement& element);
    std::string_view Text(Part part) const;

    Frame frame_;
    bool frameRead_ = false;
    uint8_t parts_ = 0;
    Kind kind_ = Kind::None;
    double near_ = 0, far_ = 0;
    double kruemmung_ = 0, torsion_ = 0, verdrehung_ = 0;
    std::vector<CVector> vectors_;
    // The frame as read until it changes; Interval, Curve and Twist one after the other.
    std::string frameText_;
    std::string texts_;
    std::array<uint32_t, 3> textEnds_{};
};

} // namespace kavrin
