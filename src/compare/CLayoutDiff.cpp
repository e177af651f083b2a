#include "compare/CLayoutDiff.h"

#include <algorithm>
#include <numeric>
#include <tuple>

#include "compare/CChapterComparer.h"
#include "compare/CSceneryComparer.h"
#include "compare/CTrackComparer.h"

namespace kavrin {

const char* KindText(DiffKind kind) {
    static const char* const texts[] = {"Gleise", "Signale", "Kontakte",    "Immobilien", "Güter",
                                        "Züge",   "Kameras", "Kollektoren", "Gelände",    "Sonstiges"};
    return texts[static_cast<size_t>(kind)];
}

const char* KindKey(DiffKind kind) {
    static const char* const keys[] = {"Gleise", "Signale", "Kontakte",    "Immobilien", "Gueter",
                                       "Zuege",  "Kameras", "Kollektoren", "Gelaende",   "Sonstiges"};
    return keys[static_cast<size_t>(kind)];
}

const char* ChangeText(DiffChange change) {
    static const char* const texts[] = {"hinzugefügt", "entfernt", "verschoben", "gedreht", "geändert"};
    return texts[static_cast<size_t>(change)];
}

const char* ChangeKey(DiffChange change) {
    static const char* const keys[] = {"hinzugefuegt", "entfernt", "verschoben", "gedreht", "geaendert"};
    return keys[static_cast<size_t>(change)];
}

CLayoutDiff::CLayoutDiff(const CAnlage& alt, const CAnlage& neu) {
    CDiffCollector collector;
    CTrackComparer(alt, neu, collector).Run();
    CSceneryComparer(alt, neu, collector).Run();
    CChapterComparer(alt, neu, collector).Run();
    entries_ = std::move(collector.Entries());
    CTrackComparer::PlaceOnTracks(entries_);
    std::stable_sort(entries_.begin(), entries_.end(), [](const CDiffEntry& a, const CDiffEntry& b) {
        return std::tie(a.kind, a.orderName, a.order, a.change) <
               std::tie(b.kind, b.orderName, b.order, b.change);
    });
    for (const CDiffEntry& entry : entries_)
        ++counts_[static_cast<size_t>(entry.kind)][static_cast<size_t>(entry.change)];
}

long CLayoutDiff::Count(DiffKind kind) const {
    const auto& row = counts_[static_cast<size_t>(kind)];
    return std::accumulate(row.begin(), row.end(), 0L);
}

} // namespace kavrin
