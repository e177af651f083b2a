#include "compare/CDiffReport.h"

#include <charconv>
#include <cmath>

#include "core/modTools.h"

namespace kavrin {

namespace {

std::string Signed(double value, int decimals) {
    std::string text = DecimalText(value, decimals, false);
    return text[0] == '-' ? text : "+" + text;
}

std::string JsonString(std::string_view text) {
    std::string out = "\"";
    for (unsigned char c : text) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (c < 0x20) {
                char buffer[8];
                std::snprintf(buffer, sizeof buffer, "\\u%04x", c);
                out += buffer;
            } else {
                out += static_cast<char>(c);
            }
        }
    }
    return out + "\"";
}

std::string JsonNumber(double value) {
    if (!std::isfinite(value))
        return "0";
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 10);
    return std::string(buffer, result.ptr);
}

std::string JsonPlace(const CVector& place) {
    return "{\"x\": " + JsonNumber(place.X / 100) + ", \"y\": " + JsonNumber(place.Y / 100) +
           ", \"z\": " + JsonNumber(place.Z / 100) + "}";
}

std::string JsonEntry(const CDiffEntry& entry) {
    std::string out = "{\"art\": " + JsonString(KindKey(entry.kind)) +
                      ", \"aenderung\": " + JsonString(ChangeKey(entry.change)) +
                      ", \"objekt\": " + JsonString(entry.object);
    if (entry.hasOldPlace)
        out += ", \"alter_ort_m\": " + JsonPlace(entry.oldPlace);
    if (entry.hasNewPlace)
        out += ", \"neuer_ort_m\": " + JsonPlace(entry.newPlace);
    if (entry.change == DiffChange::Verschoben)
        out +=
            ", \"abstand_m\": " + JsonNumber(entry.distance) + ", \"hoehe_m\": " + JsonNumber(entry.height);
    if (entry.change == DiffChange::Gedreht)
        out += ", \"winkel_grad\": " + JsonNumber(entry.angle);
    if (entry.change == DiffChange::Geaendert) {
        out += ", \"werte\": [";
        for (size_t i = 0; i < entry.values.size(); ++i) {
            const CDiffValue& value = entry.values[i];
            out += (i ? ", " : "") + std::string("{\"name\": ") + JsonString(value.name) +
                   ", \"alt\": " + (value.oldText.empty() ? "null" : JsonString(value.oldText)) +
                   ", \"neu\": " + (value.newText.empty() ? "null" : JsonString(value.newText)) + "}";
        }
        out += "]";
    }
    return out + "}";
}

} // namespace

std::string CDiffReport::Summary() const {
    if (diff_.Equal())
        return FormatMessage("Keine Unterschiede.") + "\n";
    std::string out = FormatMessage("Zusammenfassung:") + "\n";
    for (int k = 0; k < kDiffKindCount; ++k) {
        auto kind = static_cast<DiffKind>(k);
        if (diff_.Count(kind) == 0)
            continue;
        std::string counts;
        for (int c = 0; c < kDiffChangeCount; ++c) {
            auto change = static_cast<DiffChange>(c);
            if (long n = diff_.Count(kind, change))
                counts += (counts.empty() ? "" : ", ") + FormatMessage("%1 %2", n, ChangeText(change));
        }
        out += FormatMessage("  %1: %2", KindText(kind), counts) + "\n";
    }
    return out;
}

std::string CDiffReport::EntryLine(const CDiffEntry& entry) {
    switch (entry.change) {
    case DiffChange::Verschoben:
        return FormatMessage("%1: verschoben um %2 m, Höhe %3 m", entry.object,
                             DecimalText(entry.distance, 2, false), Signed(entry.height, 2));
    case DiffChange::Gedreht:
        return FormatMessage("%1: gedreht um %2°", entry.object, Signed(entry.angle, 2));
    default:
        return FormatMessage("%1: %2", entry.object, ChangeText(entry.change));
    }
}

namespace {
// Long texts (tool tips of a hundred lines) are cut for reading; the JSON keeps them whole.
std::string Shortened(const std::string& text) {
    constexpr size_t kShown = 100;
    if (text.empty())
        return "—";
    if (text.size() <= kShown)
        return text;
    size_t cut = kShown;
    while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80)
        --cut; // not inside a UTF-8 character
    return text.substr(0, cut) + "…";
}
} // namespace

std::string CDiffReport::ValueLine(const CDiffValue& value) {
    return FormatMessage("%1: %2 → %3", value.name, Shortened(value.oldText), Shortened(value.newText));
}

std::string CDiffReport::Details() const {
    if (diff_.Equal())
        return {};
    std::string out = FormatMessage("Änderungen:") + "\n";
    for (const CDiffEntry& entry : diff_.Entries()) {
        out += FormatMessage("  %1: %2", KindText(entry.kind), EntryLine(entry)) + "\n";
        for (const CDiffValue& value : entry.values)
            out += "      " + ValueLine(value) + "\n";
    }
    return out;
}

std::string CDiffReport::Json(bool withDetails) const {
    std::string out = "{\"zusammenfassung\": {";
    for (int k = 0; k < kDiffKindCount; ++k) {
        auto kind = static_cast<DiffKind>(k);
        out += (k ? ", " : "") + JsonString(KindKey(kind)) + ": {";
        for (int c = 0; c < kDiffChangeCount; ++c) {
            auto change = static_cast<DiffChange>(c);
            out += (c ? ", " : "") + JsonString(ChangeKey(change)) + ": " +
                   std::to_string(diff_.Count(kind, change));
        }
        out += "}";
    }
    out += "}";
    if (withDetails) {
        out += ", \"aenderungen\": [";
        bool first = true;
        for (const CDiffEntry& entry : diff_.Entries()) {
            out += (first ? "\n  " : ",\n  ") + JsonEntry(entry);
            first = false;
        }
        out += first ? "]" : "\n]";
    }
    return out + "}\n";
}

} // namespace kavrin
