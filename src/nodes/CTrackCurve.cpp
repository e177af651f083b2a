#include "nodes/CTrackCurve.h"

#include <cmath>
#include <pugixml.hpp>

#include "core/modTools.h"
#include "document/CXmlWriter.h"
#include "document/NodeTree.h"

namespace kavrin {

namespace {

using pugi::xml_node;

double Number(const xml_node& element, const char* name) {
    pugi::xml_attribute attribute = element.attribute(name);
    return attribute ? TextToNumber(attribute.value()) : 0;
}

bool Named(const xml_node& node, std::string_view name) {
    return node.type() == pugi::node_element && name == node.name();
}

// A "Position" (x, y, z) or "Vector" (dx, dy, dz) element.
CVector ReadVector(const xml_node& element) {
    if (Named(element, "Position"))
        return {Number(element, "x"), Number(element, "y"), Number(element, "z")};
    return {Number(element, "dx"), Number(element, "dy"), Number(element, "dz")};
}

// The Position and Vector children of an element, in order.
std::vector<CVector> ChildVectors(const xml_node& element) {
    std::vector<CVector> vectors;
    for (xml_node child : element.children())
        if (Named(child, "Position") || Named(child, "Vector"))
            vectors.push_back(ReadVector(child));
    return vectors;
}

xml_node FirstElement(const xml_node& element) {
    for (xml_node child : element.children())
        if (child.type() == pugi::node_element)
            return child;
    return {};
}

// Exactly the named attributes in this order, no children.
bool HasExactly(const xml_node& element, std::initializer_list<const char*> names) {
    if (element.first_child())
        return false;
    pugi::xml_attribute attribute = element.first_attribute();
    for (const char* name : names) {
        if (!attribute || std::string_view(attribute.name()) != name)
            return false;
        attribute = attribute.next_attribute();
    }
    return !attribute;
}

// Position and three Vectors, each with its three coordinates and nothing else.
bool IsPlainFrame(const xml_node& frame) {
    if (frame.first_attribute())
        return false;
    int index = 0;
    for (xml_node child : frame.children()) {
        bool plain = index == 0 ? Named(child, "Position") && HasExactly(child, {"x", "y", "z"})
                                : Named(child, "Vector") && HasExactly(child, {"dx", "dy", "dz"});
        if (!plain || ++index > 4)
            return false;
    }
    return index == 4;
}

void WriteVector(CXmlWriter& writer, const char* element, const char* const names[3], const CVector& v) {
    writer.StartElement(element);
    writer.Attribute(names[0], NumberToText(v.X));
    writer.Attribute(names[1], NumberToText(v.Y));
    writer.Attribute(names[2], NumberToText(v.Z));
    writer.EndElement();
}

} // namespace

CVector CTrackCurve::Frame::Apply(const CVector& local) const {
    const CVector& a = axes[0];
    const CVector& b = axes[1];
    const CVector& c = axes[2];
    return {position.X + a.X * local.X + b.X * local.Y + c.X * local.Z,
            position.Y + a.Y * local.X + b.Y * local.Y + c.Y * local.Z,
            position.Z + a.Z * local.X + b.Z * local.Y + c.Z * local.Z};
}

std::optional<CTrackCurve::Part> CTrackCurve::PartOf(std::string_view elementName) {
    if (elementName == "Frame")
        return Part::Frame;
    if (elementName == "Interval")
        return Part::Interval;
    if (elementName == "Curve")
        return Part::Curve;
    if (elementName == "Twist")
        return Part::Twist;
    return std::nullopt;
}

bool CTrackCurve::Accepts(const XmlElement& element) const {
    std::optional<Part> part = PartOf(element.name());
    if (!part || Has(*part))
        return false;
    return *part != Part::Frame || (!frameRead_ && IsPlainFrame(element));
}

void CTrackCurve::Take(const XmlElement& element, std::string_view raw) {
    Part part = *PartOf(element.name());
    switch (part) {
    case Part::Frame:
        ReadFrameNumbers(element);
        frameText_ = raw.empty() ? MarkupOf(element) : std::string(raw);
        parts_ |= Bit(part);
        return;
    case Part::Interval:
        near_ = Number(element, "near");
        far_ = Number(element, "far");
        break;
    case Part::Curve:
        ReadCurve(element);
        break;
    case Part::Twist:
        break;
    }
    Keep(part, raw, element);
}

void CTrackCurve::ReadFrameNumbers(const XmlElement& frame) {
    std::vector<CVector> vectors = ChildVectors(frame);
    if (vectors.size() >= 4) {
        frame_.position = vectors[0];
        for (size_t i = 0; i < 3; ++i)
            frame_.axes[i] = vectors[i + 1];
    }
    frameRead_ = true;
}

void CTrackCurve::ReadCurve(const XmlElement& curve) {
    xml_node kind = FirstElement(curve);
    if (kind)
        ReadCurveKind(kind);
}

void CTrackCurve::ReadCurveKind(const XmlElement& curve) {
    std::string_view kind = curve.name();
    if (kind == "Line" || kind == "Arc") {
        std::vector<CVector> v = ChildVectors(curve.child(kind == "Line" ? "VectorBundle" : "VectorBundle2"));
        const CVector& w = v.size() >= 3 ? v[2] : CVector{};
        if (kind == "Line" && v.size() >= 2) {
            vectors_.assign(v.begin(), v.begin() + 2);
            kind_ = Kind::Line;
        } else if (kind == "Arc" && v.size() >= 3 && std::hypot(w.X, w.Y, w.Z) > 0) {
            vectors_.assign(v.begin(), v.begin() + 3);
            kind_ = Kind::Arc;
        }
    } else if (kind == "Cubic" || kind == "Spline") {
        std::vector<xml_node> pieces;
        if (kind == "Cubic")
            pieces.push_back(curve);
        for (xml_node child : curve.children())
            if (Named(child, "Cubic"))
                pieces.push_back(child);
        for (const xml_node& piece : pieces) {
            std::vector<CVector> v = ChildVectors(piece);
            if (v.size() >= 4)
                vectors_.insert(vectors_.end(), v.begin(), v.begin() + 4);
        }
        if (!vectors_.empty())
            kind_ = Kind::Cubic;
    } else if (kind == "EEPCurve") {
        std::vector<CVector> v = ChildVectors(curve.child("Frame"));
        if (v.size() >= 4) {
            vectors_.assign(v.begin(), v.begin() + 4);
            kruemmung_ = Number(curve, "Kruemmung");
            torsion_ = Number(curve, "Torsion");
            verdrehung_ = Number(curve, "Anfangsfuehrungsverdrehung");
            kind_ = Kind::EEPCurve;
        }
    }
    if (kind_ != Kind::None)
        return;
    // Kinds not understood yet: the straight line between the first and last point they name.
    std::vector<CVector> points;
    for (xml_node child : curve.children())
        if (Named(child, "Position"))
            points.push_back(ReadVector(child));
    if (points.size() >= 2) {
        vectors_ = {points.front(), points.back()};
        kind_ = Kind::Chord;
    }
}

void CTrackCurve::Keep(Part part, std::string_view raw, const XmlElement& element) {
    std::string text = raw.empty() ? MarkupOf(element) : std::string(raw);
    size_t index = static_cast<size_t>(part) - 1;
    size_t at = index == 0 ? 0 : textEnds_[index - 1];
    texts_.insert(at, text);
    for (size_t i = index; i < textEnds_.size(); ++i)
        textEnds_[i] += static_cast<uint32_t>(text.size());
    parts_ |= Bit(part);
}

std::string_view CTrackCurve::Text(Part part) const {
    size_t index = static_cast<size_t>(part) - 1;
    size_t begin = index == 0 ? 0 : textEnds_[index - 1];
    return std::string_view(texts_).substr(begin, textEnds_[index] - begin);
}

void CTrackCurve::Write(CXmlWriter& writer, Part part) const {
    if (part != Part::Frame) {
        writer.Raw(Text(part));
        return;
    }
    if (!frameText_.empty()) {
        writer.Raw(frameText_);
        return;
    }
    static const char* const position[] = {"x", "y", "z"};
    static const char* const vector[] = {"dx", "dy", "dz"};
    writer.StartElement("Frame");
    WriteVector(writer, "Position", position, frame_.position);
    for (const CVector& axis : frame_.axes)
        WriteVector(writer, "Vector", vector, axis);
    writer.EndElement();
}

std::string CTrackCurve::TakeFrameText() {
    std::string text = std::move(frameText_);
    frameText_.clear();
    return text;
}

void CTrackCurve::SetFrame(const Frame& frame, std::string frameText) {
    frame_ = frame;
    frameText_ = std::move(frameText);
}

// The frame is in metres, the plan in centimetres.
void CTrackCurve::Move(double dx, double dy, double dz) {
    frame_.position.Move(dx / 100, dy / 100, dz / 100);
    frameText_.clear();
}

void CTrackCurve::Rotate(double angle, double cx, double cy) {
    if (CVector::IsFullTurn(angle))
        return;
    double c = 0, s = 0;
    CVector::TurnFactors(angle, c, s);
    frame_.position.Move(-cx / 100, -cy / 100, 0);
    frame_.position.Rotate(c, s);
    for (CVector& axis : frame_.axes)
        axis.Rotate(c, s);
    frame_.position.Move(cx / 100, cy / 100, 0);
    frameText_.clear();
}

} // namespace kavrin
