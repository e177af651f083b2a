#include "nodes/CNodeGleisverbindung.h"

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

std::string CNodeGleisverbindung::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "GleisID1")
        gleisId1_ = TextToLong(value);
    else if (name == "Anschluss1")
        anschluss1_ = DecodeEnd(value);
    else if (name == "GleisID2")
        gleisId2_ = TextToLong(value);
    else if (name == "Anschluss2")
        anschluss2_ = DecodeEnd(value);
    else
        return std::string(value);
    return kOwnedValue;
}

Variant CNodeGleisverbindung::XmlAttr(std::string_view name) const {
    if (name == "GleisID1")
        return gleisId1_;
    if (name == "Anschluss1")
        return std::string(EncodeEnd(anschluss1_));
    if (name == "GleisID2")
        return gleisId2_;
    if (name == "Anschluss2")
        return std::string(EncodeEnd(anschluss2_));
    return {};
}

bool CNodeGleisverbindung::CheckNode() {
    if (checked_)
        return complete_;
    checked_ = true;
    complete_ = gleisId1_ != -1 && gleisId2_ != -1 && anschluss1_ != -1 && anschluss2_ != -1;
    if (!complete_)
        AddParseHint(FormatMessage("Unvollständige Anschlussdaten in Gleisverbindung!"));
    return complete_ && CNodeBase::CheckNode();
}

std::vector<std::pair<std::string, std::string>> CNodeGleisverbindung::ExtraAttributes() const {
    std::vector<std::pair<std::string, std::string>> extra;
    for (const CDictionary::Entry& entry : Attributes().Entries())
        if (entry.value != kOwnedValue)
            extra.emplace_back(AttributeNames().GetString(entry.key), entry.value);
    return extra;
}

} // namespace kavrin
