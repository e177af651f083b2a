#pragma once

#include <array>
#include <cstdint>

namespace kavrin {

// What the plan draws and in which colours: per track-style group (1 to 4, the track systems
// Eisenbahn, Strassenbahn, Strasse and Wasserwege), per building kind (4 Immobilien and
// 5 Landschaftselemente), goods, background, track-end marks and track ids. Colours are 24-bit
// values with red in the low byte. The settings store fills it in the editor; the command line
// can set it too.
class CViewOptions {
public:
    static constexpr int kTrackStyles = 4;
    static constexpr int kFirstImmoKind = 4;
    static constexpr int kLastImmoKind = 5;
    static constexpr uint32_t kWhite = 16777215;

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
    uint32_t goodsColor_ = 0;
    bool goodsVisible_ = true;
    uint32_t bgColor_ = kWhite;
    bool trackMarks_ = false;
    bool gleisId_ = false;
};

} // namespace kavrin
