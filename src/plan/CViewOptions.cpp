#include "plan/CViewOptions.h"

#include <string>

#include "core/CError.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
constexpr std::array<uint32_t, CViewOptions::kTrackStyles> kTrackPalette = {
    BgrColor(48, 48, 52),    // Eisenbahn: dark grey
    BgrColor(136, 48, 160),  // Strassenbahn: purple
    BgrColor(150, 136, 120), // Strasse: warm grey
    BgrColor(40, 112, 208),  // Wasserwege: blue
};
constexpr std::array<uint32_t, 2> kImmoPalette = {
    BgrColor(140, 84, 44), // Immobilien: brown
    BgrColor(56, 140, 60), // Landschaftselemente: green
};
} // namespace

CViewOptions::CViewOptions() : trackColor_(kTrackPalette), immoColor_(kImmoPalette) {}

uint32_t CViewOptions::DefaultTrackColor(int index) {
    return index >= 1 && index <= kTrackStyles ? kTrackPalette[static_cast<size_t>(index - 1)] : 0;
}

uint32_t CViewOptions::DefaultImmoColor(int kind) {
    return kind >= kFirstImmoKind && kind <= kLastImmoKind
               ? kImmoPalette[static_cast<size_t>(kind - kFirstImmoKind)]
               : 0;
}

int CViewOptions::TrackStyleOfSystem(int trackSystemNumber) {
    // Steuerstrecken (5) only steer traffic and the GBS (6) is a switchboard drawing with its
    // own coordinates; neither is part of the landscape seen from above.
    return trackSystemNumber >= 1 && trackSystemNumber <= kTrackStyles ? trackSystemNumber : 0;
}

int CViewOptions::TrackStyleOfCollection(int collectionId) {
    switch (collectionId) {
    case 1:
    case 2:
    case 3:
        return collectionId;
    case 6:
        return 4; // Wasserwege
    default:
        return 0;
    }
}

int CViewOptions::TrackSlot(int index, const char* member) {
    if (index >= 1 && index <= kTrackStyles)
        return index - 1;
    ReportError(std::string("COptions.") + member, CError::SubscriptOutOfRange());
    return -1;
}

int CViewOptions::ImmoSlot(int kind, const char* member) {
    if (kind >= kFirstImmoKind && kind <= kLastImmoKind)
        return kind - kFirstImmoKind;
    ReportError(std::string("COptions.") + member, CError::SubscriptOutOfRange());
    return -1;
}

uint32_t CViewOptions::TrackColor(int index) const {
    int slot = TrackSlot(index, "TrackColor");
    return slot < 0 ? 0 : trackColor_[slot];
}

void CViewOptions::SetTrackColor(int index, uint32_t color) {
    int slot = TrackSlot(index, "TrackColor");
    if (slot >= 0)
        trackColor_[slot] = color & kWhite;
}

bool CViewOptions::TrackVisible(int index) const {
    int slot = TrackSlot(index, "TrackVisible");
    return slot >= 0 && trackVisible_[slot];
}

void CViewOptions::SetTrackVisible(int index, bool visible) {
    int slot = TrackSlot(index, "TrackVisible");
    if (slot >= 0)
        trackVisible_[slot] = visible;
}

bool CViewOptions::ImmoVisible(int kind) const {
    int slot = ImmoSlot(kind, "ImmoVisible");
    return slot >= 0 && immoVisible_[slot];
}

void CViewOptions::SetImmoVisible(int kind, bool visible) {
    int slot = ImmoSlot(kind, "ImmoVisible");
    if (slot >= 0)
        immoVisible_[slot] = visible;
}

uint32_t CViewOptions::ImmoColor(int kind) const {
    int slot = ImmoSlot(kind, "ImmoColor");
    return slot < 0 ? 0 : immoColor_[slot];
}

void CViewOptions::SetImmoColor(int kind, uint32_t color) {
    int slot = ImmoSlot(kind, "ImmoColor");
    if (slot >= 0)
        immoColor_[slot] = color & kWhite;
}

} // namespace kavrin
