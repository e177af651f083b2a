// Selecting and editing a large layout with the editor's own code: select all, move and rotate
// everything (one undo step each) and undo that, and the click pick of the pointer tool.
// Usage: kavrin-bench-edit FILE.anl3 [benchmark options]
// A layout of the target size: kavrin-gen --tracks 100000 --buildings 100000 [--format new] -o big.anl3
#include <benchmark/benchmark.h>

#include "BenchLayout.h"

#include <random>

#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "edit/CSelectionEdit.h"
#include "plan/CNullCanvas.h"
#include "plan/CPlanObjects.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanPicker.h"
#include "plan/CPlanView.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
kavrin::CAnlage* gAnlage = nullptr;
const kavrin::CViewOptions gOptions;

void SelectAll(benchmark::State& state) {
    kavrin::CSelection selection;
    kavrin::CPlanObjects objects(*gAnlage, gOptions);
    for (auto _ : state) {
        objects.SelectAll(selection, 2);
        state.PauseTiming();
        state.counters["objects"] = selection.Count();
        selection.Clear();
        state.ResumeTiming();
    }
}

// One step of the history per iteration: the edit is timed, its undo is not (and the other way
// round for the undo benchmarks).
template <bool Rotating, bool TimeUndo> void EditAll(benchmark::State& state) {
    kavrin::CSelection selection;
    kavrin::CEditHistory history(*gAnlage);
    kavrin::CSelectionEdit edit(selection, history);
    kavrin::CPlanObjects(*gAnlage, gOptions).SelectAll(selection, 2);
    for (auto _ : state) {
        if (TimeUndo)
            state.PauseTiming();
        if (Rotating)
            edit.Rotate(12.5, 1000, -2000);
        else
            edit.Move(150, -250, 10);
        if (TimeUndo)
            state.ResumeTiming();
        else
            state.PauseTiming();
        history.Undo();
        if (!TimeUndo)
            state.ResumeTiming();
    }
    state.counters["objects"] = selection.Count();
    selection.Clear();
}

void MoveAll(benchmark::State& state) {
    EditAll<false, false>(state);
}
void UndoMoveAll(benchmark::State& state) {
    EditAll<false, true>(state);
}
void RotateAll(benchmark::State& state) {
    EditAll<true, false>(state);
}
void UndoRotateAll(benchmark::State& state) {
    EditAll<true, true>(state);
}

// The test before a step of the window (and the command line): would it take something further
// out of the layout, by the drawn extent of everything selected?
void FurtherOutCheck(benchmark::State& state) {
    kavrin::CSelection selection;
    kavrin::CPlanObjects(*gAnlage, gOptions).SelectAll(selection, 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(kavrin::CSelectionEdit::GoesFurtherOut(
            selection, *gAnlage, kavrin::CPlacementChange::Transform::Rotate(12.5, 1000, -2000)));
    state.counters["objects"] = selection.Count();
    selection.Clear();
}

// The whole layout at the first zoom step, drawn once, so that every node knows it is shown.
kavrin::CPlanView DrawnView() {
    kavrin::CPlanView view;
    kavrin::CPlanPainter::InitView(view, *gAnlage);
    view.World();
    kavrin::CNullCanvas canvas(kWidth, kHeight);
    kavrin::CPlanPainter(*gAnlage, view, gOptions).DrawAll(canvas);
    return view;
}

// A click anywhere on the plan; the picker's grid is built before (see PickerBuild).
void ClickPick(benchmark::State& state) {
    kavrin::CPlanView view = DrawnView();
    kavrin::CPlanPicker picker(*gAnlage);
    picker.Pick(0, 0, view.PixelSize(), 4, 0);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> px(0, kWidth), py(0, kHeight);
    int hits = 0;
    for (auto _ : state) {
        double x = view.ToWorldX(px(random)), y = view.ToWorldY(py(random));
        hits += picker.Pick(x, y, view.PixelSize(), 4, 0) != nullptr;
    }
    state.counters["hits"] = hits;
}

// The first click after an edit: the grid is built anew.
void PickerBuild(benchmark::State& state) {
    kavrin::CPlanView view = DrawnView();
    kavrin::CPlanPicker picker(*gAnlage);
    for (auto _ : state) {
        picker.Invalidate();
        benchmark::DoNotOptimize(picker.Pick(0, 0, view.PixelSize(), 4, 0));
    }
}

} // namespace

BENCHMARK(SelectAll)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveAll)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoMoveAll)->Unit(benchmark::kMillisecond);
BENCHMARK(RotateAll)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoRotateAll)->Unit(benchmark::kMillisecond);
BENCHMARK(FurtherOutCheck)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickPick)->Unit(benchmark::kMicrosecond);
BENCHMARK(PickerBuild)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return kavrin::bench::RunOnLayout(
        argc, argv, "kavrin-bench-edit",
        [](kavrin::CAnlage& anlage, std::vector<char*>&) { gAnlage = &anlage; });
}
