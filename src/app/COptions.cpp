#include "app/COptions.h"

#include "app/CSettingsStore.h"
#include "app/FOptView.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
const char* const kSection = "Anlagen";

// A colour outside 24 bits, or a text that is no number, keeps the default.
uint32_t ReadColor(const std::string& key, uint32_t defaultValue) {
    int32_t value = CSettingsStore::GetNumber(kSection, key, static_cast<int32_t>(defaultValue));
    if (value < 0 || static_cast<uint32_t>(value) > COptions::kWhite)
        return defaultValue;
    return static_cast<uint32_t>(value);
}

// Every stored text other than "0" means visible.
bool ReadVisible(const std::string& key) {
    std::string text = CSettingsStore::Get(kSection, key);
    return text == CSettingsStore::kNoEntry || text != "0";
}

void SaveColor(const std::string& key, uint32_t color) {
    CSettingsStore::Save(kSection, key, std::to_string(color));
}

void SaveFlag(const std::string& key, bool on) {
    CSettingsStore::Save(kSection, key, on ? "1" : "0");
}

std::string Key(const char* templ, int number) {
    return FormatMessage(templ, number);
}
} // namespace

COptions::COptions() {
    Load();
}

void COptions::Load() {
    for (int i = 1; i <= kTrackStyles; ++i) {
        trackColor_[i - 1] = ReadColor(Key("Track%1Color", i), 0);
        trackVisible_[i - 1] = ReadVisible(Key("Track%1Visible", i));
    }
    for (int kind = kFirstImmoKind; kind <= kLastImmoKind; ++kind) {
        immoColor_[kind - kFirstImmoKind] = ReadColor(Key("Immo%1Color", kind), 0);
        immoVisible_[kind - kFirstImmoKind] = ReadVisible(Key("Immo%1Visible", kind));
    }
    goodsColor_ = ReadColor("GoodsColor", 0);
    goodsVisible_ = ReadVisible("GoodsVisible");
    bgColor_ = ReadColor("BGColor", kWhite);
    trackMarks_ = CSettingsStore::GetNumber(kSection, "TrackMarks", 0) != 0;
}

void COptions::Save() const {
    for (int i = 1; i <= kTrackStyles; ++i) {
        SaveColor(Key("Track%1Color", i), trackColor_[i - 1]);
        SaveFlag(Key("Track%1Visible", i), trackVisible_[i - 1]);
    }
    for (int kind = kFirstImmoKind; kind <= kLastImmoKind; ++kind) {
        SaveColor(Key("Immo%1Color", kind), immoColor_[kind - kFirstImmoKind]);
        SaveFlag(Key("Immo%1Visible", kind), immoVisible_[kind - kFirstImmoKind]);
    }
    SaveColor("GoodsColor", goodsColor_);
    SaveFlag("GoodsVisible", goodsVisible_);
    SaveColor("BGColor", bgColor_);
    SaveFlag("TrackMarks", trackMarks_);
}

bool COptions::AskUser(QWidget* parent) {
    FOptView dialog(*this, parent);
    if (dialog.exec() != FOptView::Accepted)
        return false;
    Save();
    return true;
}

int COptions::TrackSlot(int index, const char* member) {
    if (index >= 1 && index <= kTrackStyles)
        return index - 1;
    ReportError(std::string("COptions.") + member, CError::SubscriptOutOfRange());
    return -1;
}

int COptions::ImmoSlot(int kind, const char* member) {
    if (kind >= kFirstImmoKind && kind <= kLastImmoKind)
        return kind - kFirstImmoKind;
    ReportError(std::string("COptions.") + member, CError::SubscriptOutOfRange());
    return -1;
}

uint32_t COptions::TrackColor(int index) const {
    int slot = TrackSlot(index, "TrackColor");
    return slot < 0 ? 0 : trackColor_[slot];
}

void COptions::SetTrackColor(int index, uint32_t color) {
    int slot = TrackSlot(index, "TrackColor");
    if (slot >= 0)
        trackColor_[slot] = color & kWhite;
}

bool COptions::TrackVisible(int index) const {
    int slot = TrackSlot(index, "TrackVisible");
    return slot >= 0 && trackVisible_[slot];
}

void COptions::SetTrackVisible(int index, bool visible) {
    int slot = TrackSlot(index, "TrackVisible");
    if (slot >= 0)
        trackVisible_[slot] = visible;
}

bool COptions::ImmoVisible(int kind) const {
    int slot = ImmoSlot(kind, "ImmoVisible");
    return slot >= 0 && immoVisible_[slot];
}

void COptions::SetImmoVisible(int kind, bool visible) {
    int slot = ImmoSlot(kind, "ImmoVisible");
    if (slot >= 0)
        immoVisible_[slot] = visible;
}

uint32_t COptions::ImmoColor(int kind) const {
    int slot = ImmoSlot(kind, "ImmoColor");
    return slot < 0 ? 0 : immoColor_[slot];
}

void COptions::SetImmoColor(int kind, uint32_t color) {
    int slot = ImmoSlot(kind, "ImmoColor");
    if (slot >= 0)
        immoColor_[slot] = color & kWhite;
}

} // namespace kavrin
