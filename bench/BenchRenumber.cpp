// Renumbering the key ids of a large layout (tracks, signals and every reference to them, one undo
// step) and undoing it. The generator numbers key ids without gaps, so the layout is spread apart
// first (every key id k > 0 becomes 2k + 5) and signal and switch contacts are made to name a key
// id, so that there is something to renumber and to carry along.
// With --jedes-gleis every track without a key id gets one as well (the worst case: every track
// and signal renumbered).
// Usage: kavrin-bench-renumber FILE.anl3 [--jedes-gleis] [benchmark options]
// A layout of a given size: kavrin-gen --size 100 -o big.anl3
#include <benchmark/benchmark.h>

#include "BenchLayout.h"

#include <string>

#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "edit/CKeyIdRenumbering.h"
#include "nodes/CIterGleis.h"
#include "nodes/CIterKontakt.h"
#include "nodes/CIterMeldung.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/LayoutLookup.h"

namespace {

kavrin::CAnlage* gAnlage = nullptr;
int64_t gKeyIds = 0;
int64_t gContacts = 0;
bool gEveryTrack = false;

void SpreadKeyIds(kavrin::CAnlage& anlage) {
    using namespace kavrin;
    for (CNodeGleisSys* system : TrackSystems(anlage)) {
        CIterGleis tracks;
        for (tracks.Walk(*system); tracks.HasNext();) {
            auto* track = static_cast<CNodeGleis*>(tracks.GetNext());
            int32_t named = 0;
            if (gEveryTrack && track->KeyId() <= 0)
                track->SetKeyId(static_cast<int32_t>(1000000 + gKeyIds));
            if (track->KeyId() > 0) {
                track->SetKeyId(track->KeyId() * 2 + 5);
                named = track->KeyId();
                ++gKeyIds;
            }
            CIterMeldung signals;
            for (signals.Walk(*track); signals.HasNext();) {
                auto* signal = static_cast<CNodeMeldung*>(signals.GetNext());
                if (signal->KeyId() > 0) {
                    signal->SetKeyId(signal->KeyId() * 2 + 5);
                    named = signal->KeyId();
                    ++gKeyIds;
                }
            }
            CIterKontakt contacts;
            for (contacts.Walk(*track); contacts.HasNext();) {
                auto* contact = static_cast<CNodeKontakt*>(contacts.GetNext());
                if (contact->SetType() == 0 && named > 0 && named < 65536) {
                    contact->SetSignalDataKeyId(named);
                    ++gContacts;
                }
            }
        }
    }
}

// One renumbering per iteration, with reading the key ids; its undo is not timed (and the other
// way round for the undo benchmark).
template <bool TimeUndo> void Renumber(benchmark::State& state) {
    kavrin::CEditHistory history(*gAnlage);
    for (auto _ : state) {
        if (TimeUndo)
            state.PauseTiming();
        kavrin::CKeyIdRenumbering renumbering(*gAnlage);
        if (!renumbering.Run(history)) {
            state.SkipWithError("nothing renumbered");
            break;
        }
        if (TimeUndo)
            state.ResumeTiming();
        else
            state.PauseTiming();
        history.Undo();
        if (!TimeUndo)
            state.ResumeTiming();
    }
    state.counters["keyIds"] = static_cast<double>(gKeyIds);
    state.counters["contacts"] = static_cast<double>(gContacts);
}

void RenumberKeyIds(benchmark::State& state) {
    Renumber<false>(state);
}
void UndoRenumberKeyIds(benchmark::State& state) {
    Renumber<true>(state);
}

} // namespace

BENCHMARK(RenumberKeyIds)->Unit(benchmark::kMillisecond);
// The undo is far quicker than the renumbering done untimed before it: a fixed count of runs.
BENCHMARK(UndoRenumberKeyIds)->Unit(benchmark::kMillisecond)->Iterations(20);

int main(int argc, char** argv) {
    return kavrin::bench::RunOnLayout(
        argc, argv, "kavrin-bench-renumber", [](kavrin::CAnlage& anlage, std::vector<char*>& options) {
            if (!options.empty() && std::string(options[0]) == "--jedes-gleis") {
                gEveryTrack = true;
                options.erase(options.begin());
            }
            SpreadKeyIds(anlage);
            gAnlage = &anlage;
        });
}
