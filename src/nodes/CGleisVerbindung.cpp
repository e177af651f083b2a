#include "nodes/CGleisVerbindung.h"

#include <pugixml.hpp>

#include "core/modTools.h"
#include "document/CXmlWriter.h"
#include "nodes/CNodeGleisverbindung.h"

namespace kavrin {

namespace {
const char* const kUsualNames[] = {"GleisID1", "Anschluss1", "GleisID2", "Anschluss2"};
}

CGleisVerbindung::CGleisVerbindung(int32_t gleisId1, int16_t end1, int32_t gleisId2, int16_t end2)
    : gleisId1_(gleisId1), gleisId2_(gleisId2), end1_(end1), end2_(end2) {}

CGleisVerbindung::CGleisVerbindung(const CGleisVerbindung& other)
    : gleisId1_(other.gleisId1_), gleisId2_(other.gleisId2_), end1_(other.end1_), end2_(other.end2_),
      asRead_(other.asRead_ ? std::make_unique<Attributes>(*other.asRead_) : nullptr) {}

CGleisVerbindung& CGleisVerbindung::operator=(const CGleisVerbindung& other) {
    if (this != &other)
        *this = CGleisVerbindung(other);
    return *this;
}

std::optional<CGleisVerbindung> CGleisVerbindung::Read(const XmlElement& element) {
    CGleisVerbindung record(-1, -1, -1, -1);
    Attributes read;
    bool id1 = false, id2 = false;
    for (pugi::xml_attribute attribute : element.attributes()) {
        std::string_view name = attribute.name(), value = attribute.value();
        if (name == kUsualNames[0])
            id1 = CNodeGleisverbindung::TrackId(value, record.gleisId1_);
        else if (name == kUsualNames[1])
            record.end1_ = CNodeGleisverbindung::DecodeEnd(value);
        else if (name == kUsualNames[2])
            id2 = CNodeGleisverbindung::TrackId(value, record.gleisId2_);
        else if (name == kUsualNames[3])
            record.end2_ = CNodeGleisverbindung::DecodeEnd(value);
        read.emplace_back(name, value);
    }
    if (!id1 || !id2 || record.end1_ == -1 || record.end2_ == -1) {
        AddParseHint(FormatMessage("Unvollständige Anschlussdaten in Gleisverbindung!"));
        return std::nullopt;
    }
    const std::string usualValues[] = {
        std::to_string(record.gleisId1_), CNodeGleisverbindung::EncodeEnd(record.end1_),
        std::to_string(record.gleisId2_), CNodeGleisverbindung::EncodeEnd(record.end2_)};
    bool usual = read.size() == 4;
    for (size_t i = 0; usual && i < 4; ++i)
        usual = read[i].first == kUsualNames[i] && read[i].second == usualValues[i];
    if (!usual)
        record.asRead_ = std::make_unique<Attributes>(std::move(read));
    return record;
}

void CGleisVerbindung::Write(CXmlWriter& writer) const {
    writer.StartElement("Gleisverbindung");
    if (asRead_) {
        for (const auto& [name, value] : *asRead_)
            writer.Attribute(name, value);
    } else {
        writer.Attribute(kUsualNames[0], std::to_string(gleisId1_));
        writer.Attribute(kUsualNames[1], CNodeGleisverbindung::EncodeEnd(end1_));
        writer.Attribute(kUsualNames[2], std::to_string(gleisId2_));
        writer.Attribute(kUsualNames[3], CNodeGleisverbindung::EncodeEnd(end2_));
    }
    writer.EndElement();
}

} // namespace kavrin
