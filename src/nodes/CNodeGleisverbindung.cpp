#include "nodes/CNodeGleisverbindung.h"

#include "core/CError.h"
#include "core/CStringPack.h"

namespace kavrin {

namespace {
const char* const kEndWords[] = {"Anfang", "Ende", "EndeAbzweig", "EndeKoAbzweig"};
}

int16_t CNodeGleisverbindung::DecodeEnd(std::string_view word) {
    for (int16_t i = 0; i < 4; ++i)
        if (word == kEndWords[i])
            return static_cast<int16_t>(i + 1);
    AddParseHint("Unbekannter Anschluss-Eintrag '" + std::string(word) + "' im Gleisverbindungs-Node");
    return -1;
}

const char* CNodeGleisverbindung::EncodeEnd(int16_t end) {
    return end >= 1 && end <= 4 ? kEndWords[end - 1] : "";
}

// A track id that is no number leaves the connection incomplete, so that it alone is dropped.
bool CNodeGleisverbindung::TrackId(std::string_view text, int32_t& id) {
    if (TryTextToLong(text, id))
        return true;
    AddParseHint(FormatMessage("Gleisverbindung mit unlesbarer Gleis-ID '%1'", text));
    return false;
}

std::string_view CNodeGleisverbindung::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "GleisID1")
        id1Read_ = TrackId(value, gleisId1_);
    else if (name == "Anschluss1")
        anschluss1_ = DecodeEnd(value);
    else if (name == "GleisID2")
        id2Read_ = TrackId(value, gleisId2_);
    else if (name == "Anschluss2")
        anschluss2_ = DecodeEnd(value);
    // The texts stay as read: the record written back from this element keeps them.
    return value;
}

bool CNodeGleisverbindung::IsComplete() const {
    return id1Read_ && id2Read_ && anschluss1_ != -1 && anschluss2_ != -1;
}

bool CNodeGleisverbindung::CheckNode() {
    if (!checked_ && !IsComplete())
        AddParseHint(FormatMessage("Unvollständige Anschlussdaten in Gleisverbindung!"));
    checked_ = true;
    return CNodeBase::CheckNode();
}

} // namespace kavrin
