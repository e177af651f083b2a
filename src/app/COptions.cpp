#include "app/COptions.h"

#include "app/CSettingsStore.h"
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
        SetTrackColor(i, ReadColor(Key("Track%1Color", i), DefaultTrackColor(i)));
        SetTrackVisible(i, ReadVisible(Key("Track%1Visible", i)));
    }
    for (int kind = kFirstImmoKind; kind <= kLastImmoKind; ++kind) {
        SetImmoColor(kind, ReadColor(Key("Immo%1Color", kind), DefaultImmoColor(kind)));
        SetImmoVisible(kind, ReadVisible(Key("Immo%1Visible", kind)));
    }
    SetGoodsColor(ReadColor("GoodsColor", kDefaultGoodsColor));
    SetGoodsVisible(ReadVisible("GoodsVisible"));
    SetBgColor(ReadColor("BGColor", kDefaultBgColor));
    SetTrackMarks(CSettingsStore::GetNumber(kSection, "TrackMarks", 0) != 0);
}

void COptions::Save() const {
    for (int i = 1; i <= kTrackStyles; ++i) {
        SaveColor(Key("Track%1Color", i), TrackColor(i));
        SaveFlag(Key("Track%1Visible", i), TrackVisible(i));
    }
    for (int kind = kFirstImmoKind; kind <= kLastImmoKind; ++kind) {
        SaveColor(Key("Immo%1Color", kind), ImmoColor(kind));
        SaveFlag(Key("Immo%1Visible", kind), ImmoVisible(kind));
    }
    SaveColor("GoodsColor", GoodsColor());
    SaveFlag("GoodsVisible", GoodsVisible());
    SaveColor("BGColor", BgColor());
    SaveFlag("TrackMarks", TrackMarks());
}

} // namespace kavrin
