// Deleting from a large layout with the editor's own code, each deletion one undo step: half of
// all tracks (the western half, with their contacts, signals, the trains on them and everything
// that refers to them) and all buildings, and the undo of either.
// Usage: kavrin-bench-erase FILE.anl3 [benchmark options]
// Layouts of the target sizes: kavrin-gen --size 25 -o 25.anl3 (likewise 50 and 100)
#include <benchmark/benchmark.h>

#include "BenchLayout.h"


#include "document/CAnlage.h"
#include "edit/CDeleteEdit.h"
#include "edit/CEditHistory.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CSelection.h"

namespace {

kavrin::CAnlage* gAnlage = nullptr;
double gMiddle = 0;

void SelectWesternTracks(kavrin::CSelection& selection) {
    for (kavrin::CNodeGleisSys* system : kavrin::TrackSystems(*gAnlage))
        for (kavrin::CNodeGleis* track : system->Gleise().Tracks())
            if (kavrin::CTrackGeometry(*track).Start().X < gMiddle)
                selection.Add(*track);
}

void SelectBuildings(kavrin::CSelection& selection) {
    for (const auto& chapter : gAnlage->RootNode()->SubNodes())
        if (dynamic_cast<kavrin::CNodeImmoSammlung*>(chapter.get()))
            for (const auto& child : chapter->SubNodes())
                if (auto* immo = dynamic_cast<kavrin::CNodeImmobilie*>(child.get()))
                    selection.Add(*immo);
}

// One deletion per iteration; the deletion is timed and its undo not, or the other way round.
template <bool TimeUndo> void Erase(benchmark::State& state, void (*select)(kavrin::CSelection&)) {
    kavrin::CSelection selection;
    kavrin::CEditHistory history(*gAnlage);
    kavrin::CDeleteEdit::Result result;
    for (auto _ : state) {
        state.PauseTiming();
        select(selection);
        if (!TimeUndo)
            state.ResumeTiming();
        result = kavrin::CDeleteEdit(*gAnlage, selection, history).DeleteSelection();
        if (TimeUndo)
            state.ResumeTiming();
        else
            state.PauseTiming();
        history.Undo();
        if (!TimeUndo)
            state.ResumeTiming();
    }
    const kavrin::CEraser::Tally& c = result.counts;
    state.counters["tracks"] = c.gleise;
    state.counters["buildings"] = c.immos;
    state.counters["contacts"] = c.kontakte;
    state.counters["signals"] = c.signale;
    state.counters["trains"] = c.zugverbaende;
    state.counters["connections"] = c.verbindungen;
}

void DeleteHalfTracks(benchmark::State& state) {
    Erase<false>(state, SelectWesternTracks);
}
void UndoDeleteHalfTracks(benchmark::State& state) {
    Erase<true>(state, SelectWesternTracks);
}
void DeleteAllBuildings(benchmark::State& state) {
    Erase<false>(state, SelectBuildings);
}
void UndoDeleteAllBuildings(benchmark::State& state) {
    Erase<true>(state, SelectBuildings);
}

// The x halfway between the westernmost and the easternmost track start.
double MiddleOfTracks(const kavrin::CAnlage& anlage) {
    double west = 0, east = 0;
    bool first = true;
    for (const kavrin::CNodeGleisSys* system : kavrin::TrackSystems(anlage))
        for (const kavrin::CNodeGleis* track : system->Gleise().Tracks()) {
            double x = kavrin::CTrackGeometry(*track).Start().X;
            west = first || x < west ? x : west;
            east = first || x > east ? x : east;
            first = false;
        }
    return (west + east) / 2;
}

} // namespace

BENCHMARK(DeleteHalfTracks)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoDeleteHalfTracks)->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteAllBuildings)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoDeleteAllBuildings)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return kavrin::bench::RunOnLayout(argc, argv, "kavrin-bench-erase",
                                      [](kavrin::CAnlage& anlage, std::vector<char*>&) {
                                          gAnlage = &anlage;
                                          gMiddle = MiddleOfTracks(anlage);
                                      });
}
