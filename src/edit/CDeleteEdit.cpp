#include "edit/CDeleteEdit.h"

#include <map>
#include <memory>
#include <unordered_set>

#include "core/CArrayOfLong.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "edit/CEditStep.h"
#include "edit/CForAll.h"
#include "edit/CProcGleise.h"
#include "edit/CProcKontaktCount.h"
#include "edit/CProcKontakte.h"
#include "edit/CProcMeldungen.h"
#include "edit/CProcSignalCount.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/LayoutLookup.h"
#include "nodes/TrafficLookup.h"
#include "plan/CSelection.h"

namespace kavrin {

// The eraser's work goes into one step. On an error the step is rolled back before the error
// is reported, so the layout is as it was; `keep` false rolls back a run that went well too
// (the preview).
CDeleteEdit::Result CDeleteEdit::Run(const char* stepName,
                                     const std::function<void(CEraser&, CArrayOfLong&)>& work, bool keep) {
    Result result;
    auto step = std::make_unique<CEditStep>(FormatMessage(stepName));
    CArrayOfLong removedKeyIds;
    removedKeyIds.Size(200, 200);
    CEraser eraser(anlage_, *step);
    try {
        work(eraser, removedKeyIds);
        if (removedKeyIds.Count() > 0)
            eraser.EraseKeyIdReferences(removedKeyIds);
    } catch (...) {
        step->Undo();
        // The eraser's own members name themselves with the doubled "Beim" users know; a failure
        // outside them reads as a plain sentence.
        const CEraser::Failure failure =
            eraser.Failed().value_or(CEraser::Failure{"Run", "Löschen", "Objekte"});
        ReportCurrentError("CEraser." + failure.member,
                           FormatMessage("Beim %1 der %2 ist ein Fehler aufgetreten!%m"
                                         "Speichern Sie die Anlage KEINESFALLS unter dem alten Namen,%n"
                                         "da die Daten sehr wahrscheinlich kaputt sind!!",
                                         failure.doing, failure.what));
        result.failed = true;
        return result;
    }
    result.counts = eraser.Counts();
    result.reports = eraser.Reports();
    result.done = !step->Empty();
    if (!keep)
        step->Undo();
    else
        history_.Record(std::move(step));
    return result;
}

CDeleteEdit::Result CDeleteEdit::DeleteSelection() {
    if (selection_.Empty())
        return {};
    Result result = Run(
        "Löschen",
        [this](CEraser& eraser, CArrayOfLong& removedKeyIds) {
            if (selection_.CountGleise() > 0)
                eraser.DeleteSelectedTracks(removedKeyIds);
            if (selection_.CountImmos() > 0)
                eraser.DeleteSelectedImmos();
            if (selection_.CountGoods() > 0)
                eraser.DeleteSelectedGoods();
            eraser.CleanUpKontaktZiele();
        },
        true);
    // The nodes deleted are held by the history now (or back in place after an error); what
    // the simulator's lock kept stays selected, so the user sees what is left.
    if (!result.failed)
        selection_.RemoveDeleteables();
    return result;
}

CDeleteEdit::Result CDeleteEdit::Preview() {
    if (selection_.Empty())
        return {};
    return Run(
        "Löschen",
        [this](CEraser& eraser, CArrayOfLong& removedKeyIds) {
            if (selection_.CountGleise() > 0)
                eraser.DeleteSelectedTracks(removedKeyIds);
            if (selection_.CountImmos() > 0)
                eraser.DeleteSelectedImmos();
            if (selection_.CountGoods() > 0)
                eraser.DeleteSelectedGoods();
            eraser.CleanUpKontaktZiele();
        },
        false);
}

CDeleteEdit::Result CDeleteEdit::DeleteSignals(const std::vector<std::string>& names) {
    std::vector<std::string> models;
    for (const std::string& name : names)
        models.push_back(name == kSignalOhneNamen ? std::string() : name);
    return Run(
        "Signale löschen",
        [&models](CEraser& eraser, CArrayOfLong& removedKeyIds) {
            eraser.DeleteSelectedSignals(models, removedKeyIds);
            eraser.CleanUpKontaktZiele();
        },
        true);
}

CDeleteEdit::Result CDeleteEdit::DeleteContacts(const std::vector<int32_t>& kinds) {
    return Run(
        "Kontakte löschen",
        [&kinds](CEraser& eraser, CArrayOfLong&) {
            eraser.EraseKontaktGruppen(kinds);
            eraser.CleanUpKontaktZiele();
        },
        true);
}

std::vector<std::pair<std::string, int32_t>> CDeleteEdit::SignalsUsed(const CAnlage& anlage) {
    CProcSignalCount count;
    count.Init();
    CProcMeldungen meldungen;
    meldungen.SetNextProc(&count);
    CProcGleise gleise;
    gleise.SetNextProc(&meldungen);
    std::vector<CNodeGleisSys*> systems = TrackSystems(anlage);
    CForAll::Gleissysteme(systems, &gleise);
    std::map<std::string, int32_t> byName;
    for (int32_t i = 0; i < count.Counter().Count(); ++i) {
        const std::string& name = count.Name(i);
        byName[name.empty() ? kSignalOhneNamen : name] += count.Counter().Counter(i);
    }
    return {byName.begin(), byName.end()};
}

std::vector<std::pair<int32_t, int32_t>> CDeleteEdit::ContactsUsed(const CSelection& selection) {
    CProcKontaktCount count;
    count.Init();
    CProcKontakte kontakte;
    kontakte.SetNextProc(&count);
    CForAll::GleiseSelected(selection, &kontakte);
    std::map<int32_t, int32_t> byKind;
    for (int32_t i = 0; i < count.Counter().Count(); ++i)
        byKind[count.Counter().Key(i)] += count.Counter().Counter(i);
    return {byKind.begin(), byKind.end()};
}

std::vector<CDeleteEdit::Train> CDeleteEdit::AffectedTrains(const CAnlage& anlage) {
    std::vector<Train> trains;
    for (INode* train : CEraser::TrainsOn(anlage, [&anlage](int16_t system, int32_t gleis) {
             const CNodeGleis* track = FindGleis(anlage, system, gleis);
             return track && track->Selected() && track->isDeleteable();
         }))
        trains.push_back({train->Parent() ? IntAttribute(*train->Parent(), "FuhrparkID") : 0,
                          TrainName(*train), TrainVehicleCount(*train)});
    return trains;
}

int32_t CDeleteEdit::LockedCount(const CSelection& selection) {
    int32_t locked = 0;
    for (IPaint& member : selection.NewEnum())
        if (!member.isDeleteable())
            ++locked;
    return locked;
}

} // namespace kavrin

namespace kavrin {

// The plan's objects stand in the track systems, the building collections and the goods list:
// one pass over those tells which members are still in the layout.
void CDeleteEdit::ForgetRemoved(CSelection& selection, const CAnlage& anlage) {
    if (selection.Empty() || !anlage.RootNode())
        return;
    std::unordered_set<const IPaint*> present;
    for (const auto& chapter : anlage.RootNode()->SubNodes())
        if (dynamic_cast<const CNodeGleisSys*>(chapter.get()) ||
            dynamic_cast<const CNodeImmoSammlung*>(chapter.get()) ||
            dynamic_cast<const CNodeGoods*>(chapter.get()))
            for (const auto& child : chapter->SubNodes())
                if (const auto* member = dynamic_cast<const IPaint*>(child.get()))
                    present.insert(member);
    selection.RemoveIf([&present](const IPaint& member) { return !present.count(&member); });
}

std::vector<std::string> CDeleteEdit::SummaryLines(const Result& result) {
    const CEraser::Tally& c = result.counts;
    struct Line {
        int32_t count;
        const char* one;
        const char* many;
    };
    const Line lines[] = {
        {c.gleise, "%1 Gleis", "%1 Gleise"},
        {c.immos, "%1 Immobilie", "%1 Immobilien"},
        {c.goods, "%1 Ladegut", "%1 Ladegüter"},
        {c.kontakte, "%1 Kontakt", "%1 Kontakte"},
        {c.signale, "%1 Signal", "%1 Signale"},
        {c.zugverbaende, "%1 Zugverband", "%1 Zugverbände"},
        {c.wartende, "%1 wartender Zug an einem Signal", "%1 wartende Züge an Signalen"},
        {c.fahrplan, "%1 Fahrplan-Eintrag", "%1 Fahrplan-Einträge"},
        {c.verbindungen, "%1 Gleisverbindung", "%1 Gleisverbindungen"},
        {c.kollektorGleise, "%1 Gleis-Eintrag eines Kollektors", "%1 Gleis-Einträge von Kollektoren"},
        {c.kollektoren, "%1 Kollektor", "%1 Kollektoren"},
        {c.signalDaten, "%1 Verweis auf eine Key-ID", "%1 Verweise auf Key-IDs"},
    };
    std::vector<std::string> text;
    for (const Line& line : lines)
        if (line.count > 0)
            text.push_back(
                FormatMessage(line.count == 1 ? line.one : line.many, WholeNumberText(line.count)));
    if (c.skipped > 0)
        text.push_back(FormatMessage(c.skipped == 1 ? "%1 in EEP gesperrtes Objekt bleibt erhalten"
                                                    : "%1 in EEP gesperrte Objekte bleiben erhalten",
                                     WholeNumberText(c.skipped)));
    return text;
}

} // namespace kavrin
