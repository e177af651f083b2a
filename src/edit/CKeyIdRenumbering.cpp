#include "edit/CKeyIdRenumbering.h"

#include <algorithm>
#include <memory>

#include "core/CArrayOfLong.h"
#include "core/CError.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "edit/CForAll.h"
#include "edit/CProcGleisSignalData.h"
#include "edit/CProcGleise.h"
#include "edit/CProcKontaktKeyId.h"
#include "edit/CProcKontakte.h"
#include "edit/CProcMeldungen.h"
#include "edit/CProcRenumKeyId.h"
#include "nodes/CIterGleis.h"
#include "nodes/CIterKontakt.h"
#include "nodes/CIterMeldung.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/LayoutLookup.h"

namespace kavrin {

CKeyIdRenumbering::CKeyIdRenumbering(CAnlage& anlage) : anlage_(anlage) {
    ReadKeyIds();
    CountDanglingReferences();
}

void CKeyIdRenumbering::ReadKeyIds() {
    std::vector<int32_t> ids;
    for (CNodeGleisSys* system : TrackSystems(anlage_)) {
        CIterGleis tracks;
        for (tracks.Walk(*system); tracks.HasNext();) {
            auto* track = static_cast<CNodeGleis*>(tracks.GetNext());
            if (track->KeyId() > 0)
                ids.push_back(track->KeyId());
            CIterMeldung signals;
            for (signals.Walk(*track); signals.HasNext();)
                if (int32_t keyId = static_cast<CNodeMeldung*>(signals.GetNext())->KeyId(); keyId > 0)
                    ids.push_back(keyId);
        }
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    table_.clear();
    table_.reserve(ids.size());
    for (size_t i = 0; i < ids.size(); ++i)
        table_.push_back({ids[i], static_cast<int32_t>(i + 1)});
}

void CKeyIdRenumbering::CountDanglingReferences() {
    auto known = [this](int32_t keyId) {
        return keyId <= 0 ||
               std::binary_search(table_.begin(), table_.end(), Entry{keyId, 0},
                                  [](const Entry& a, const Entry& b) { return a.oldId < b.oldId; });
    };
    dangling_ = 0;
    for (CNodeGleisSys* system : TrackSystems(anlage_)) {
        CIterGleis tracks;
        for (tracks.Walk(*system); tracks.HasNext();) {
            auto* track = static_cast<CNodeGleis*>(tracks.GetNext());
            dangling_ += known(track->SignalData() & 0xFFFF) ? 0 : 1;
            CIterKontakt contacts;
            for (contacts.Walk(*track); contacts.HasNext();)
                dangling_ += known(static_cast<CNodeKontakt*>(contacts.GetNext())->SignalDataKeyId()) ? 0 : 1;
        }
    }
}

std::string CKeyIdRenumbering::DanglingText() const {
    if (dangling_ == 0)
        return {};
    return FormatMessage(dangling_ == 1
                             ? "%1 Kontakt oder Gleis verweist auf eine Key-ID, die es in der Anlage "
                               "nicht gibt; dieser Verweis bleibt unverändert."
                             : "%1 Kontakte oder Gleise verweisen auf Key-IDs, die es in der Anlage "
                               "nicht gibt; diese Verweise bleiben unverändert.",
                         WholeNumberText(dangling_));
}

int32_t CKeyIdRenumbering::ChangedCount() const {
    return static_cast<int32_t>(std::count_if(table_.begin(), table_.end(),
                                              [](const Entry& entry) { return entry.oldId != entry.newId; }));
}

std::string CKeyIdRenumbering::TableText() const {
    std::string text = FormatMessage("Key-ID alt%tKey-ID neu") + "\n";
    for (const Entry& entry : table_)
        if (entry.oldId != entry.newId)
            text += std::to_string(entry.oldId) + "\t" + std::to_string(entry.newId) + "\n";
    return text;
}

std::string CKeyIdRenumbering::WarningText() {
    return FormatMessage("Die Key-IDs der Weichen und Signale werden lückenlos neu nummeriert (1, 2, 3 …); "
                         "Kontakte, die Signale oder Weichen schalten, werden mit angepasst.%m"
                         "Achtung: Lua-Skripte, die Signale oder Weichen über ihre Nummer ansprechen, "
                         "müssen danach von Hand angepasst werden!");
}

bool CKeyIdRenumbering::Run(CEditHistory& history) {
    changedObjects_ = 0;
    changedReferences_ = 0;
    if (ChangedCount() == 0)
        return false;
    auto step = std::make_unique<CEditStep>(FormatMessage("Key-IDs neu nummerieren"));
    try {
        CArrayOfLong oldIds;
        oldIds.Size(200, 200);
        for (const Entry& entry : table_)
            oldIds.Add(entry.oldId);
        std::vector<CNodeGleisSys*> systems = TrackSystems(anlage_);
        CProcGleise gleise;
        auto walk = [&](IProc& below) {
            gleise.SetNextProc(&below);
            if (!CForAll::Gleissysteme(systems, &gleise))
                throw CError::ObjectNotSet();
        };
        CProcRenumKeyId renum;
        renum.Init(oldIds, *step);
        walk(renum);
        CProcMeldungen meldungen;
        meldungen.SetNextProc(&renum);
        walk(meldungen);
        CProcKontaktKeyId contacts;
        contacts.Init(CProcKontaktKeyId::FuncRenum, oldIds, *step);
        CProcKontakte kontakte;
        kontakte.SetNextProc(&contacts);
        walk(kontakte);
        CProcGleisSignalData signalData;
        signalData.Init(CProcGleisSignalData::FuncRenum, oldIds, *step);
        walk(signalData);
        changedObjects_ = renum.Changed();
        changedReferences_ = contacts.Changed() + signalData.Changed();
    } catch (...) {
        CError failure = CError::FromCurrentException();
        step->Undo();
        changedObjects_ = changedReferences_ = 0;
        ReportError("CKeyIdRenumbering.Run", failure,
                    FormatMessage("Beim %1 der %2 ist ein Fehler aufgetreten!%mDie Anlage ist unverändert.",
                                  "Nummerieren", "Key-IDs"));
        return false;
    }
    history.Record(std::move(step));
    return true;
}

} // namespace kavrin
