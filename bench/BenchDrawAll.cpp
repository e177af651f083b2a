// DrawAll of one large layout into a 1920x1080 picture through the editor's QPainter canvas:
// the whole layout (zoom 1) and the largest zoom step, centred on the layout.
// Usage: kavrin-bench-drawall FILE.anl3 [benchmark options]
// A layout of the target size: kavrin-gen --tracks 100000 --buildings 100000 -o big.anl3
#include <benchmark/benchmark.h>

#include "BenchLayout.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "app/CQtCanvas.h"
#include "app/modPlanExport.h"
#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "edit/CSelectionEdit.h"
#include "plan/CPlanObjects.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
kavrin::CAnlage* gAnlage = nullptr;

void DrawAllAt(benchmark::State& state, bool largestZoom, bool withSignals) {
    kavrin::CPlanView view;
    if (!kavrin::CPlanPainter::InitView(view, *gAnlage)) {
        state.SkipWithError("the layout has no extent");
        return;
    }
    if (largestZoom)
        view.SelectZoom(static_cast<int>(view.ZoomSteps().size()) - 1);
    else
        view.World();
    kavrin::CViewOptions options;
    kavrin::CPlanPainter painter(*gAnlage, view, options);
    painter.WithSignals = withSignals;
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter qpainter(&image);
    qpainter.setRenderHint(QPainter::Antialiasing, kavrin::kPlanAntialiasing);
    kavrin::CQtCanvas canvas(qpainter, image);
    for (auto _ : state) {
        painter.DrawAll(canvas);
        benchmark::ClobberMemory();
    }
    state.counters["zoom"] = view.Zoom();
}

void WholeLayout(benchmark::State& state) {
    DrawAllAt(state, false, false);
}
void LargestZoom(benchmark::State& state) {
    DrawAllAt(state, true, false);
}
void WholeLayoutWithSignals(benchmark::State& state) {
    DrawAllAt(state, false, true);
}

// The first drawing after everything moved (afterUndo: after that move was undone), each object
// then standing somewhere else than at the drawing before. The objects are drawn unselected, as
// after a move with the mouse tool; AllSelected draws them all selected.
enum class Redraw { AfterEdit, AfterUndo, AllSelected };

void RedrawAfter(benchmark::State& state, bool largestZoom, Redraw what) {
    kavrin::CPlanView view;
    if (!kavrin::CPlanPainter::InitView(view, *gAnlage)) {
        state.SkipWithError("the layout has no extent");
        return;
    }
    if (largestZoom)
        view.SelectZoom(static_cast<int>(view.ZoomSteps().size()) - 1);
    else
        view.World();
    kavrin::CViewOptions options;
    kavrin::CPlanPainter painter(*gAnlage, view, options);
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter qpainter(&image);
    qpainter.setRenderHint(QPainter::Antialiasing, kavrin::kPlanAntialiasing);
    kavrin::CQtCanvas canvas(qpainter, image);
    kavrin::CSelection selection;
    kavrin::CEditHistory history(*gAnlage);
    kavrin::CPlanObjects(*gAnlage, options).SelectAll(selection, 2);
    kavrin::CSelectionEdit(selection, history).Move(150, -250, 0);
    if (what != Redraw::AllSelected)
        selection.Clear();
    painter.DrawAll(canvas);
    for (auto _ : state) {
        state.PauseTiming();
        if (what == Redraw::AfterEdit) {
            history.Undo();
            painter.DrawAll(canvas);
            history.Redo();
        } else if (what == Redraw::AfterUndo) {
            history.Redo();
            painter.DrawAll(canvas);
            history.Undo();
        }
        state.ResumeTiming();
        painter.DrawAll(canvas);
        benchmark::ClobberMemory();
    }
    if (history.CanUndo())
        history.Undo();
    selection.Clear();
}

void WholeLayoutAfterEdit(benchmark::State& state) {
    RedrawAfter(state, false, Redraw::AfterEdit);
}
void LargestZoomAfterEdit(benchmark::State& state) {
    RedrawAfter(state, true, Redraw::AfterEdit);
}
void WholeLayoutAfterUndo(benchmark::State& state) {
    RedrawAfter(state, false, Redraw::AfterUndo);
}
void LargestZoomAfterUndo(benchmark::State& state) {
    RedrawAfter(state, true, Redraw::AfterUndo);
}
void WholeLayoutAllSelected(benchmark::State& state) {
    RedrawAfter(state, false, Redraw::AllSelected);
}

} // namespace

BENCHMARK(WholeLayout)->Unit(benchmark::kMillisecond);
BENCHMARK(LargestZoom)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeLayoutWithSignals)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeLayoutAfterEdit)->Unit(benchmark::kMillisecond);
BENCHMARK(LargestZoomAfterEdit)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeLayoutAfterUndo)->Unit(benchmark::kMillisecond);
BENCHMARK(LargestZoomAfterUndo)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeLayoutAllSelected)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArgc = 1;
    QGuiApplication app(qtArgc, argv);
    return kavrin::bench::RunOnLayout(
        argc, argv, "kavrin-bench-drawall",
        [](kavrin::CAnlage& anlage, std::vector<char*>&) { gAnlage = &anlage; });
}
