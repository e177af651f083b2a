#pragma once

#include <array>
#include <cstdint>

namespace kavrin {

// A plan colour from its red, green and blue parts (red in the low byte).
constexpr uint32_t BgrColor(uint32_t red, uint32_t green, uint32_t blue) {
    return red | green << 8 | blue << 16;
}

// What the plan draws and in which colours: per track-style group (1 to 4, the track systems
// Eisenbahn, Strassenbahn, Strasse and Wasserwege), per building kind (4 Immobilien and
// 5 Landschaftselemente), goods, background, track-end marks and track ids. Colours are 24-bit
// values with red in the low byte. A new object holds the default palette, which tells the kinds
// apart at a glance and prints well; the settings store overrides it with the user's own colours
// in the editor, and the command line reads the same store.
class CViewOptions {
public:
    static constexpr int kTrackStyles = 4;
    static constexpr int kFirstImmoKind = 4;
    static constexpr int kLastImmoKind = 5;
    static constexpr uint32_t kWhite = 16777215;

    // The default palette: rail dark grey, tram purple, road warm grey, water blue, buildings
    // brown, landscape elements green, goods orange, on a light paper tone.
    static uint32_t DefaultTrackColor(int index);
    static uint32_t DefaultImmoColor(int kind);
    static constexpr uint32_t kDefaultGoodsColor = BgrColor(232, 124, 0);
    static constexpr uint32_t kDefaultBgColor = BgrColor(250, 248, 240);

    CViewOptions();

    uint32_t TrackColor(int index) const;
    void SetTrackColor(int index, uint32_t color);
    bool TrackVisible(int index) const;
    void SetTrackVisible(int index, bool visible);
    uint32_t BgColor() const { return bgColor_; }
    void SetBgColor(uint32_t color) { bgColor_ = color & kWhite; }
    int TrackStyleCount() const { return kTrackStyles; }
    bool TrackMarks() const { return trackMarks_; }
    void SetTrackMarks(bool on) { trackMarks_ = on; }
    bool ImmoVisible(int kind) const;
    void SetImmoVisible(int kind, bool visible);
    int ImmoStyleCount() const { return kLastImmoKind - kFirstImmoKind + 1; }
    uint32_t ImmoColor(int kind) const;
    void SetImmoColor(int kind, uint32_t color);
    uint32_t GoodsColor() const { return goodsColor_; }
    void SetGoodsColor(uint32_t color) { goodsColor_ = color & kWhite; }
    bool GoodsVisible() const { return goodsVisible_; }
    void SetGoodsVisible(bool visible) { goodsVisible_ = visible; }
    // Whether track ids are written on the plan; kept for the run only.
    bool GleisId() const { return gleisId_; }
    void SetGleisId(bool on) { gleisId_ = on; }

    // The track-style group of a track system number, 0 for systems not drawn on the plan.
    static int TrackStyleOfSystem(int trackSystemNumber);
    // The track-style group of a building collection of track-accompanying objects, else 0.
    static int TrackStyleOfCollection(int collectionId);

private:
    // Position in the track arrays, or -1 (reported) when the index is outside 1..4.
    static int TrackSlot(int index, const char* member);
    static int ImmoSlot(int kind, const char* member);

    std::array<uint32_t, kTrackStyles> trackColor_{};
    std::array<bool, kTrackStyles> trackVisible_{true, true, true, true};
    std::array<uint32_t, 2> immoColor_{};
    std::array<bool, 2> immoVisible_{true, true};
    uint32_t goodsColor_ = kDefaultGoodsColor;
    bool goodsVisible_ = true;
    uint32_t bgColor_ = kDefaultBgColor;
    bool trackMarks_ = false;
    bool gleisId_ = false;
};

} // namespace kavrin
