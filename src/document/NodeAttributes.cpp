#include "document/NodeAttributes.h"

#include "core/CDictionary.h"
#include "core/CStringPack.h"

namespace kavrin {

std::string AttributeText(const INode& node, std::string_view name) {
    int16_t key = AttributeNames().GetIndex(name);
    std::optional<std::string_view> value = key ? node.Attributes().Item(key) : std::nullopt;
    if (!value)
        return {};
    if (*value == kOwnedValue)
        return NumberToText(node.XmlAttr(name));
    if (IsKeptNumber(*value))
        return KeptNumberText(*value, node.XmlAttr(name));
    return std::string(*value);
}

bool LockedInSimulator(const INode& node) {
    std::string text = AttributeText(node, "LockEd");
    int32_t value = 0;
    return !text.empty() && (!TryTextToLong(text, value) || value != 0);
}

bool HasAttribute(const INode& node, std::string_view name) {
    int16_t key = AttributeNames().GetIndex(name);
    return key && node.Attributes().Exists(key);
}

void SetAttributeText(INode& node, std::string_view name, std::string text) {
    int16_t key = AttributeNames().PutString(name);
    if (!node.Attributes().Set(key, text))
        node.Attributes().Add(key, text);
}

namespace {
// " (Gleis 12 im Gleissystem 1)" for anything inside a track, else empty.
std::string TrackLocation(const INode* node, std::string_view ownTrackId) {
    std::string trackId(ownTrackId);
    for (; node && trackId.empty(); node = node->Parent())
        if (node->Name() == "Gleis" && HasAttribute(*node, "GleisID")) {
            trackId = AttributeText(*node, "GleisID");
            break;
        }
    if (trackId.empty())
        return {};
    for (; node; node = node->Parent())
        if (node->Name() == "Gleissystem" && HasAttribute(*node, "GleissystemID"))
            return FormatMessage(" (Gleis %1 im Gleissystem %2)", trackId,
                                 AttributeText(*node, "GleissystemID"));
    return FormatMessage(" (Gleis %1)", trackId);
}

std::string WhatIsWrong(const CError& failure) {
    if (failure.Number() == CError::TypeMismatch().Number())
        return FormatMessage("der keine Zahl ist");
    if (failure.Number() == CError::Overflow().Number())
        return FormatMessage("der außerhalb des erlaubten Bereichs liegt");
    return FormatMessage("den Kavrin nicht lesen kann");
}
} // namespace

std::string BadValueText(const INode& node, std::string_view element, std::string_view attribute,
                         std::string_view value, const CError& failure, std::string_view ownTrackId) {
    std::string where = TrackLocation(&node, ownTrackId);
    if (attribute.empty())
        return FormatMessage(
            "Die Anlage kann nicht geladen werden:%nDas Element '%1'%2 hat den Text '%3', %4.", element,
            where, value, WhatIsWrong(failure));
    return FormatMessage("Die Anlage kann nicht geladen werden:%nIm Element '%1'%2 hat das Attribut '%3' den "
                         "Wert '%4', %5.",
                         element, where, attribute, value, WhatIsWrong(failure));
}

void ReportBadValue(std::string_view procedure, const INode& node, std::string_view element,
                    std::string_view attribute, std::string_view value, std::string_view ownTrackId) {
    CError failure = CError::FromCurrentException();
    ReportError(procedure, failure, BadValueText(node, element, attribute, value, failure, ownTrackId));
}

void ReportNumberKeptAsRead(std::string_view element, std::string_view attribute, std::string_view text) {
    AddParseHint(FormatMessage("Die Zahl '%1' im Attribut '%2' von '%3' ist zu groß für das Zahlenformat "
                               "der Datei;%nsie wird so geschrieben, wie sie steht.",
                               text, attribute, element));
}

std::string KeptNumberEntry(std::string_view valueText, std::string_view original) {
    std::string entry(1, kKeptNumberMark);
    entry += valueText;
    entry += kKeptNumberMark;
    entry += original;
    return entry;
}

bool IsKeptNumber(std::string_view entry) {
    return !entry.empty() && entry.front() == kKeptNumberMark;
}

std::string_view KeptNumberOriginal(std::string_view entry) {
    size_t split = entry.find(kKeptNumberMark, 1);
    return split == std::string_view::npos ? entry : entry.substr(split + 1);
}

std::string KeptNumberText(std::string_view entry, const Variant& current) {
    std::string now = NumberToText(current);
    size_t split = entry.find(kKeptNumberMark, 1);
    if (split != std::string_view::npos && entry.substr(1, split - 1) == now)
        return std::string(entry.substr(split + 1));
    return now;
}

std::string KeepNumberAsRead(std::string_view element, std::string_view attribute, std::string_view text,
                             const Variant& value) {
    std::string read = NumberToText(value);
    AddParseHint(FormatMessage("Im Element '%1' hat das Attribut '%2' den Wert '%3', der nicht ganz als Zahl "
                               "gelesen wird;%nKavrin rechnet mit %4 und schreibt den Wert so, wie er steht, "
                               "solange er nicht bearbeitet wird.",
                               element, attribute, text, read));
    return KeptNumberEntry(read, text);
}

void ReportTextNotReadWhole(std::string_view element, std::string_view text) {
    AddParseHint(FormatMessage("Das Element '%1' hat den Text '%2', der nicht ganz als Zahl gelesen wird;%n"
                               "Kavrin lässt es so, wie es steht.",
                               element, text));
}

bool ReadWhole(std::string_view text, const Variant& value) {
    return std::visit(
        [text](const auto& v) {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, float> || std::is_same_v<T, double>)
                return NumberTextReadsAs(text, v, false);
            else if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>)
                return NumberTextReadsAs(text, static_cast<double>(v), true);
            else
                return true;
        },
        value);
}

void AddOwnedAttribute(INode& node, std::string_view name) {
    int16_t key = AttributeNames().PutString(name);
    if (!node.Attributes().Exists(key))
        node.Attributes().Add(key, kOwnedValue);
}

} // namespace kavrin
