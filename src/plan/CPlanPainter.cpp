#include "plan/CPlanPainter.h"

#include <cmath>
#include <typeinfo>

#include "document/CAnlage.h"
#include "document/CArrayOfNodes.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CCanvasRecorder.h"
#include "plan/CContentBox.h"
#include "plan/CPaintTarget.h"
#include "plan/CPlanImage.h"
#include "plan/CTrackBand.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
constexpr uint32_t kTrackIdColor = 0x800000; // dark blue
constexpr uint32_t kRotCenterColor = 0xFF00FF;
// The outline of the terrain: the background darkened a little.
constexpr uint32_t kOutlineInk = 0x404040;
constexpr double kOutlineShare = 0.3;

// The node as T when it is exactly that class. Cheaper than a cross cast for the hundred
// thousands of children of a large layout.
template <typename T> T* Exactly(INode* node) {
    return node && typeid(*node) == typeid(T) ? static_cast<T*>(node) : nullptr;
}

// Large layouts are drawn from memory far beyond the caches; fetching an object a few steps
// ahead hides part of that latency. What the culling test reads stands in the object itself.
constexpr size_t kPrefetchNode = 24;

double Whole(double value) {
    return std::isfinite(value) ? std::nearbyint(value) : 0;
}
} // namespace

CPlanPainter::CPlanPainter(CAnlage& anlage, CPlanView& view, const CViewOptions& options)
    : anlage_(anlage), view_(view), options_(options) {}

bool CPlanPainter::InitView(CPlanView& view, const CAnlage& anlage) {
    const CNodeLandschaft* terrain = FindTerrain(anlage);
    if (!terrain)
        return false;
    CRect rect = terrain->Rect();
    view.SetLayout(Whole(rect.Left), Whole(rect.Bottom), Whole(rect.Width()), Whole(rect.Top - rect.Bottom));
    view.BuildZoomSteps();
    return view.ExtX() > 0 && view.ExtY() > 0;
}

bool CPlanPainter::FitToContent(CPlanView& view, const CAnlage& anlage) {
    if (std::optional<CRect> content = CContentBox::Of(anlage, view.LayoutRect()))
        return view.FitTo(*content);
    view.World();
    return view.ScalePlan();
}

bool CPlanPainter::DrawAll(Canvas& canvas) {
    if (!anlage_.RootNode())
        return false;
    view_.SetClientSize(canvas.PixelWidth(), canvas.PixelHeight());
    if (view_.Zoom() <= 0 || !view_.ScalePlan())
        return false;
    canvas.SetView(view_.Left(), view_.Top(), view_.Width(), view_.Height());
    DrawBG(canvas);
    CPaintTarget target(canvas, view_, anlage_.HoehenFilter());
    target.WithNames = WithNames;
    target.WithSignals = WithSignals;
    target.TrackMarks = options_.TrackMarks();
    target.Background = options_.BgColor();
    DrawTrackStyles(canvas, target);
    for (int i = 1; i <= options_.ImmoStyleCount(); ++i) {
        int kind = CViewOptions::kFirstImmoKind + i - 1;
        if (options_.ImmoVisible(kind)) {
            target.Color = options_.ImmoColor(kind);
            target.Placed =
                kind == CViewOptions::kFirstImmoKind ? PlacedKind::Building : PlacedKind::Landscape;
            DrawImmoSammlung(target, kind);
        } else {
            HideImmoSammlung(kind);
        }
    }
    if (options_.GoodsVisible()) {
        target.Color = options_.GoodsColor();
        target.Placed = PlacedKind::Goods;
        DrawGoods(target);
    } else {
        HideGoods();
    }
    if (options_.GleisId())
        DrawGleisIds(target);
    target.Labels().Place(canvas, view_, MixColor(options_.BgColor(), 0xFFFFFF, 0.5));
    DrawHighlight(target);
    DrawRotCenter(canvas);
    canvas.Flush();
    signalsShown_ = WithSignals;
    return true;
}

// Tracks by style, each with its track-accompanying objects. When the zoom shows tracks as
// bands, every band goes down first, then the fills of roads, then the line work and marks of
// all styles, so that no band covers the centre line or signal of a track drawn before it.
void CPlanPainter::DrawTrackStyles(Canvas& canvas, CPaintTarget& target) {
    const bool bands = CTrackBand::kWidest / view_.PixelSize() > CTrackBand::kMinPixels;
    CCanvasRecorder fills(canvas), lines(canvas);
    if (bands)
        target.SetLayers(canvas, fills, lines);
    target.Placed = PlacedKind::TrackObject;
    for (int style = 1; style <= options_.TrackStyleCount(); ++style) {
        if (options_.TrackVisible(style)) {
            target.Color = options_.TrackColor(style);
            target.TrackStyle = style;
            DrawTrackStyle(target, style);
        } else {
            HideTrackStyle(style);
        }
    }
    target.TrackStyle = 0;
    target.Track = nullptr;
    target.SetLayers(canvas, canvas, canvas);
    fills.Replay(canvas);
    lines.Replay(canvas);
}

// The selected objects once more, above everything, in the highlight colour.
void CPlanPainter::DrawHighlight(CPaintTarget& target) const {
    std::vector<CPaintTarget::Found> selected = target.TakeSelected();
    if (selected.empty())
        return;
    target.Highlighting = true;
    target.WithNames = false;
    target.WithSignals = false;
    target.Color = kHighlightColor;
    for (const CPaintTarget::Found& found : selected) {
        target.Placed = found.placed;
        target.TrackStyle = found.trackStyle;
        target.Track = found.track;
        found.node->Paint(target);
    }
    target.Highlighting = false;
}

// Without a colour map the terrain rectangle is outlined, so that the layout's extent shows.
void CPlanPainter::DrawBG(Canvas& canvas) const {
    canvas.Clear(options_.BgColor());
    const CRect layout = view_.LayoutRect();
    if (Background && !Background->Empty()) {
        canvas.StretchImage(*Background, layout);
        return;
    }
    const double xs[4] = {layout.Left, layout.Right, layout.Right, layout.Left};
    const double ys[4] = {layout.Top, layout.Top, layout.Bottom, layout.Bottom};
    canvas.SetPen(MixColor(options_.BgColor(), kOutlineInk, kOutlineShare), 1);
    canvas.Polygon(xs, ys, 4, false);
}

// Signals and contacts start inactive and become active when drawn; they need hiding only
// when the previous drawing showed them.
void CPlanPainter::PaintTrack(CNodeGleis& track, CPaintTarget& target) const {
    track.SetActive(true);
    target.Track = &track;
    if (!target.WithSignals && signalsShown_)
        track.HideTrackMarks();
    track.Paint(target);
}

void CPlanPainter::DrawTrackStyle(CPaintTarget& target, int style) {
    ShowTrackStyle(style, &target);
}

void CPlanPainter::HideTrackStyle(int style) {
    ShowTrackStyle(style, nullptr);
}

void CPlanPainter::ShowTrackStyle(int style, CPaintTarget* target) {
    for (CNodeGleisSys* system : TrackSystems(anlage_)) {
        if (CViewOptions::TrackStyleOfSystem(system->Number()) != style)
            continue;
        const std::vector<CNodeGleis*>& tracks = system->Gleise().Tracks();
        for (size_t i = 0; i < tracks.size(); ++i) {
            if (i + kPrefetchNode < tracks.size())
                __builtin_prefetch(tracks[i + kPrefetchNode]);
            CNodeGleis* track = tracks[i];
            if (target) {
                PaintTrack(*track, *target);
            } else {
                track->SetActive(false);
                track->HideTrackMarks();
            }
        }
    }
    if (target)
        target->Track = nullptr;
    ShowBuildings([style](int id) { return CViewOptions::TrackStyleOfCollection(id) == style; }, target);
}

void CPlanPainter::DrawImmoSammlung(CPaintTarget& target, int kind) {
    ShowBuildings([kind](int id) { return id == kind; }, &target);
}

void CPlanPainter::HideImmoSammlung(int kind) {
    ShowBuildings([kind](int id) { return id == kind; }, nullptr);
}

template <typename Match> void CPlanPainter::ShowBuildings(Match matches, CPaintTarget* target) {
    for (const auto& chapter : anlage_.RootNode()->SubNodes()) {
        auto* collection = Exactly<CNodeImmoSammlung>(chapter.get());
        if (!collection || !matches(collection->ID()))
            continue;
        const CArrayOfNodes& children = collection->SubNodes();
        for (auto it = children.begin(), last = children.end(); it != last; ++it) {
            if (last - it > static_cast<std::ptrdiff_t>(kPrefetchNode))
                __builtin_prefetch((it + kPrefetchNode)->get());
            if (auto* building = Exactly<CNodeImmobilie>(it->get())) {
                building->SetActive(target != nullptr);
                if (target)
                    building->Paint(*target);
            }
        }
    }
}

void CPlanPainter::DrawGoods(CPaintTarget& target) {
    ShowGoods(&target);
}

void CPlanPainter::HideGoods() {
    ShowGoods(nullptr);
}

void CPlanPainter::ShowGoods(CPaintTarget* target) {
    for (const auto& chapter : anlage_.RootNode()->SubNodes())
        if (Exactly<CNodeGoods>(chapter.get()))
            for (const auto& child : chapter->SubNodes())
                if (auto* good = Exactly<CNodeGood>(child.get())) {
                    good->SetActive(target != nullptr);
                    if (target)
                        good->Paint(*target);
                }
}

// The id of every track drawn, at the middle of its centre line.
void CPlanPainter::DrawGleisIds(CPaintTarget& target) const {
    for (CNodeGleisSys* system : TrackSystems(anlage_))
        for (CNodeGleis* track : system->Gleise().Tracks()) {
            if (!track->Consider(0))
                continue;
            CTrackGeometry geometry(*track);
            CVector middle = geometry.PointAt(geometry.Length() / 2);
            target.Labels().Add(middle.X + view_.PaintXOffset, middle.Y + view_.PaintYOffset,
                                std::to_string(track->ID()), kTrackIdColor, 3, 12);
        }
}

void CPlanPainter::DrawRotCenter(Canvas& canvas) const {
    if (!RotCenterShown)
        return;
    double x = RotCenterX, y = RotCenterY;
    double reach = 10 * view_.PixelSize();
    canvas.SetPen(kRotCenterColor, 2);
    canvas.Circle(x, y, 6, false);
    canvas.Line(x - reach, y, x + reach, y);
    canvas.Line(x, y - reach, x, y + reach);
}

} // namespace kavrin
