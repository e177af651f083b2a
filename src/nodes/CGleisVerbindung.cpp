#include "nodes/CGleisVerbindung.h"

#include "core/CStringPack.h"
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

CGleisVerbindung CGleisVerbindung::Of(const CNodeGleisverbindung& element) {
    CGleisVerbindung record(element.GleisID1(), element.Anschluss1(), element.GleisID2(),
                            element.Anschluss2());
    const std::string usualValues[] = {
        std::to_string(record.gleisId1_), CNodeGleisverbindung::EncodeEnd(record.end1_),
        std::to_string(record.gleisId2_), CNodeGleisverbindung::EncodeEnd(record.end2_)};
    const auto& entries = element.Attributes().Entries();
    bool usual = entries.size() == 4;
    for (size_t i = 0; usual && i < 4; ++i)
        usual = AttributeNames().GetString(entries[i].key) == kUsualNames[i] &&
                entries[i].value == usualValues[i];
    if (!usual) {
        record.asRead_ = std::make_unique<Attributes>();
        for (const auto& entry : entries)
            record.asRead_->emplace_back(AttributeNames().GetString(entry.key), entry.value);
    }
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
