#pragma once

#include <string>
#include <utility>
#include <vector>

#include "document/CNodeBase.h"

namespace kavrin {

// "Gleisverbindung": a connection between two track ends. Its track system keeps it as a record
// (CGleisVerbindung) with the texts as read, so the element itself keeps them too.
class CNodeGleisverbindung : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeGleisverbindung"; }
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;
    // An incomplete connection is reported once; the track system then drops it.
    bool CheckNode() override;
    // Both ids and both ends are known.
    bool IsComplete() const;

    int32_t GleisID1() const { return gleisId1_; }
    int16_t Anschluss1() const { return anschluss1_; }
    int32_t GleisID2() const { return gleisId2_; }
    int16_t Anschluss2() const { return anschluss2_; }

    static int16_t DecodeEnd(std::string_view word);
    static const char* EncodeEnd(int16_t end);

    // A track id as a connection holds it; one that is no whole number is named in a hint and
    // gives false.
    static bool TrackId(std::string_view text, int32_t& id);

private:
    int32_t gleisId1_ = -1;
    int16_t anschluss1_ = -1;
    int32_t gleisId2_ = -1;
    int16_t anschluss2_ = -1;
    bool id1Read_ = false;
    bool id2Read_ = false;
    bool checked_ = false;
};

} // namespace kavrin
