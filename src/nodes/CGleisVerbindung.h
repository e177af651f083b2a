#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "document/INode.h"

namespace kavrin {

class CXmlWriter;

// One "Gleisverbindung" record of a track system as the file holds it: two track ends. Records
// are kept as read, several for one end where the file has them, and written back unchanged;
// only one whose attributes are not exactly the four in their usual form keeps its texts.
class CGleisVerbindung {
public:
    CGleisVerbindung() = default;
    CGleisVerbindung(int32_t gleisId1, int16_t end1, int32_t gleisId2, int16_t end2);
    // The record of a connection element as read; empty, after a hint, when it lacks an id or
    // an end.
    static std::optional<CGleisVerbindung> Read(const XmlElement& element);

    CGleisVerbindung(const CGleisVerbindung& other);
    CGleisVerbindung& operator=(const CGleisVerbindung& other);
    CGleisVerbindung(CGleisVerbindung&&) noexcept = default;
    CGleisVerbindung& operator=(CGleisVerbindung&&) noexcept = default;

    int32_t GleisID1() const { return gleisId1_; }
    int16_t Anschluss1() const { return end1_; }
    int32_t GleisID2() const { return gleisId2_; }
    int16_t Anschluss2() const { return end2_; }
    bool Joins(int32_t gleisId) const { return gleisId1_ == gleisId || gleisId2_ == gleisId; }

    void Write(CXmlWriter& writer) const;

private:
    using Attributes = std::vector<std::pair<std::string, std::string>>;

    int32_t gleisId1_ = 0;
    int32_t gleisId2_ = 0;
    int16_t end1_ = 0;
    int16_t end2_ = 0;
    std::unique_ptr<Attributes> asRead_;
};

} // namespace kavrin
