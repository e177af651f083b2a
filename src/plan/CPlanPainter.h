#pragma once

#include <cstdint>

namespace kavrin {

class CAnlage;
class CHoehenFilter;
class CNodeGleis;
class CPaintTarget;
class CPlanImage;
class CPlanView;
class CViewOptions;
class Canvas;

// Draws a whole layout (DrawAll): background, tracks by style with their track-accompanying
// objects, buildings by kind, goods, track ids, the names and ids placed where they fit, the
// selected objects once more in the highlight colour, and the rotation centre, in that order.
// The window and the bitmap export both draw through it, each on its own canvas.
class CPlanPainter {
public:
    CPlanPainter(CAnlage& anlage, CPlanView& view, const CViewOptions& options);

    // Selected objects: a strong pink that none of the kinds uses (red in the low byte).
    static constexpr uint32_t kHighlightColor = 235 | 0 << 8 | 140 << 16;

    // Takes the layout's extent from its terrain (whole world units) and builds the zoom steps;
    // false when the layout has no usable terrain.
    static bool InitView(CPlanView& view, const CAnlage& anlage);
    // Fits the view to the layout's content, or shows the whole layout when it holds nothing;
    // false when the picture has no size yet.
    static bool FitToContent(CPlanView& view, const CAnlage& anlage);

    bool WithNames = false;
    bool WithSignals = false;
    // The accepted background picture, not owned; null for the plain background colour.
    const CPlanImage* Background = nullptr;
    bool RotCenterShown = false;
    double RotCenterX = 0;
    double RotCenterY = 0;

    // False when nothing was drawn: no zoom yet, or the view cannot be scaled.
    bool DrawAll(Canvas& canvas);

private:
    void DrawBG(Canvas& canvas) const;
    void DrawTrackStyles(Canvas& canvas, CPaintTarget& target);
    void DrawHighlight(CPaintTarget& target) const;
    void DrawTrackStyle(CPaintTarget& target, int style);
    void HideTrackStyle(int style);
    void DrawImmoSammlung(CPaintTarget& target, int kind);
    void HideImmoSammlung(int kind);
    void DrawGoods(CPaintTarget& target);
    void HideGoods();
    void DrawGleisIds(CPaintTarget& target) const;
    void DrawRotCenter(Canvas& canvas) const;
    // The walks behind the draw and hide steps: with a target they activate and paint each
    // node, without one they deactivate it.
    void ShowTrackStyle(int style, CPaintTarget* target);
    template <typename Match> void ShowBuildings(Match collectionMatches, CPaintTarget* target);
    void ShowGoods(CPaintTarget* target);
    void PaintTrack(CNodeGleis& track, CPaintTarget& target) const;

    // Whether the last drawing showed signals and contacts.
    bool signalsShown_ = false;
    CAnlage& anlage_;
    CPlanView& view_;
    const CViewOptions& options_;
};

} // namespace kavrin
