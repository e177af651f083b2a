#include <gtest/gtest.h>

#include <algorithm>

#include "EraseLayouts.h"
#include "ReferenceCheck.h"
#include "core/CArrayOfLong.h"
#include "core/CError.h"
#include "edit/CDeleteEdit.h"
#include "edit/CEditHistory.h"
#include "edit/CEditStep.h"
#include "edit/CEraser.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/LayoutLookup.h"
#include "plan/CSelection.h"

using namespace kavrin;

namespace {

class Eraser : public test::SceneryLayoutFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(Load(test::EraseLayout()));
        before = Save();
        ASSERT_TRUE(test::DanglingReferences(anlage).count("Kontakt an 1/1 auf Ziel 99"));
    }
    CNodeGleis& Track(int16_t system, int32_t id) {
        CNodeGleis* track = FindGleis(anlage, system, id);
        EXPECT_NE(track, nullptr);
        return *track;
    }
    CNodeImmobilie& Building(int32_t immoIdx) {
        for (CNodeImmobilie* immo : Nodes<CNodeImmobilie>())
            if (immo->ImmoIdx() == immoIdx)
                return *immo;
        throw std::runtime_error("no building");
    }
    std::vector<std::string> Contacts() {
        std::vector<std::string> found;
        for (CNodeKontakt* kontakt : Nodes<CNodeKontakt>()) {
            auto* track = static_cast<CNodeGleis*>(kontakt->Parent());
            found.push_back(
                std::to_string(track->GleisSysID()) + "/" + std::to_string(track->ID()) + ":" +
                std::to_string(kontakt->SetType()) + ":" +
                std::to_string(kontakt->SetType() == 0 ? kontakt->KontaktZiel() : kontakt->SetValue()));
        }
        return found;
    }
    bool Has(const std::string& text) { return Save().find(text) != std::string::npos; }
    // The deletion left nothing pointing nowhere beyond what the file had before (a contact on
    // a target that never existed), and undo gives the file back to the byte.
    void ExpectCleanAndUndoable() {
        std::set<std::string> dangling = test::DanglingReferences(anlage);
        dangling.erase("Kontakt an 1/1 auf Ziel 99");
        dangling.erase("Kontakt an 2/3 auf Ziel 99");
        EXPECT_TRUE(dangling.empty()) << *dangling.begin();
        std::string after = Save();
        ASSERT_TRUE(history.CanUndo());
        ASSERT_TRUE(history.Undo());
        EXPECT_EQ(Save(), before);
        ASSERT_TRUE(history.Redo());
        EXPECT_EQ(Save(), after);
    }

    CSelection selection;
    CEditHistory history{anlage};
    CDeleteEdit edit{anlage, selection, history};
    std::string before;
};

TEST_F(Eraser, TrackWithSignalTakesTrainSignalContactsAndTimetableWithIt) {
    selection.Add(Track(1, 3));
    CDeleteEdit::Result result = edit.DeleteSelection();
    ASSERT_TRUE(result.done);
    EXPECT_TRUE(selection.Empty());
    EXPECT_EQ(FindGleis(anlage, 1, 3), nullptr);
    ASSERT_NE(FindGleis(anlage, 2, 3), nullptr); // same id, other system
    EXPECT_EQ(Track(1, 2).Verbindung(kEnde), 0);
    EXPECT_EQ(Track(1, 4).Verbindung(kAnfang), 0);
    EXPECT_EQ(FindGleisSys(anlage, 1)->Verbindungen().size(), 1u);
    // F1Z1 stood on 1/3 and goes; F1Z2 on 2/3 and F1Z3 stay; the waiting records went with the signal.
    std::string saved = Save();
    EXPECT_EQ(saved.find("ZugID=\"1\""), std::string::npos);
    EXPECT_NE(saved.find("ZugID=\"2\""), std::string::npos);
    EXPECT_NE(saved.find("ZugID=\"3\""), std::string::npos);
    EXPECT_EQ(saved.find("<Wartender"), std::string::npos);
    // The contacts switching the signal's target 8 are gone; the others stay.
    std::vector<std::string> contacts = Contacts();
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "1/1:0:8"), 0);
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "1/1:0:7"), 1);
    // Both entries naming key 5 leave the timetable; the one naming 9 stays.
    EXPECT_NE(saved.find("<TimeTable TimeTableItems=\"1\"><Eintrag Key_Id=\"9\"/></TimeTable>"),
              std::string::npos);
    EXPECT_EQ(result.counts.gleise, 1);
    EXPECT_EQ(result.counts.signale, 1);
    EXPECT_EQ(result.counts.zugverbaende, 1);
    EXPECT_EQ(result.counts.fahrplan, 2);
    EXPECT_EQ(result.counts.wartende, 2);
    // The signal data naming the signal's key id 5 is cleared, on a track and on a contact.
    EXPECT_EQ(Track(2, 5).SignalData(), 0);
    EXPECT_NE(saved.find("SetType=\"1\" SignalData=\"0\""), std::string::npos);
    EXPECT_EQ(result.counts.signalDaten, 2);
    ExpectCleanAndUndoable();
}

TEST_F(Eraser, TrackWithNegativeKeyIdTakesItsTrainCollectorEntryAndWaitingRecord) {
    selection.Add(Track(1, 4));
    CDeleteEdit::Result result = edit.DeleteSelection();
    ASSERT_TRUE(result.done);
    EXPECT_EQ(result.counts.zugverbaende, 1);
    std::string saved = Save();
    EXPECT_EQ(saved.find("ZugID=\"3\""), std::string::npos);
    // F1Z3 waited at the signal of 1/3, F1Z1 still waits there.
    EXPECT_EQ(saved.find("zugverbandID=\"3\""), std::string::npos);
    EXPECT_NE(saved.find("zugverbandID=\"1\""), std::string::npos);
    const CNodeKollektor& kollektor = Single<CNodeKollektor>();
    ASSERT_EQ(kollektor.Gleise().size(), 1u);
    EXPECT_EQ(kollektor.Gleise()[0].GleissystemID, 2);
    ExpectCleanAndUndoable();
    EXPECT_EQ(Single<CNodeKollektor>().Gleise().size(), 1u);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(Single<CNodeKollektor>().Gleise().size(), 2u);
    EXPECT_EQ(FindGleis(anlage, 1, 4)->Kollektor(), &Single<CNodeKollektor>());
}

TEST_F(Eraser, SwitchTakesTheContactsSwitchingIt) {
    selection.Add(Track(1, 2));
    ASSERT_TRUE(edit.DeleteSelection().done);
    std::vector<std::string> contacts = Contacts();
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "1/1:0:7"), 0);
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "1/1:0:8"), 1);
    ExpectCleanAndUndoable();
}

TEST_F(Eraser, ContactOnAVanishedTargetIsRemovedAndReported) {
    selection.Add(Track(1, 1));
    CDeleteEdit::Result result = edit.DeleteSelection();
    ASSERT_TRUE(result.done);
    ASSERT_EQ(result.reports.size(), 1u);
    EXPECT_EQ(result.reports[0], "Signal / Weichen-Kontakt am Gleis 3 (Strassenbahn) entfernt,\r\n"
                                 "da Kontaktziel >99< nicht existiert.");
    std::vector<std::string> contacts = Contacts();
    EXPECT_EQ(contacts, (std::vector<std::string>{"2/3:0:10", "2/5:1:0"}));
    ExpectCleanAndUndoable();
}

TEST_F(Eraser, BuildingsOnlyTakeTheirContactsAndLockedOnesStay) {
    selection.Add(Building(3));
    selection.Add(Building(4)); // locked in the simulator
    EXPECT_EQ(CDeleteEdit::LockedCount(selection), 1);
    CDeleteEdit::Result result = edit.DeleteSelection();
    ASSERT_TRUE(result.done);
    EXPECT_EQ(result.counts.immos, 1);
    EXPECT_EQ(result.counts.skipped, 1);
    EXPECT_EQ(result.counts.gleise, 0);
    EXPECT_EQ(result.counts.zugverbaende, 0);
    std::vector<std::string> contacts = Contacts();
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "1/1:768:3"), 0);
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "1/1:1024:4"), 1);
    EXPECT_NO_THROW(Building(4));
    // The locked one stays selected; asked again, no member may go, and nothing changes.
    ASSERT_EQ(selection.Count(), 1);
    EXPECT_TRUE(Building(4).Selected());
    EXPECT_TRUE(selection.RemoveDeleteables().empty());
    EXPECT_EQ(selection.Count(), 1);
    EXPECT_EQ(selection.CountImmos(), 1);
    ExpectCleanAndUndoable();
}

TEST_F(Eraser, TrackObjectTakesItsCollectorAndItsTracksForgetIt) {
    CNodeKollektor* kollektor = &Single<CNodeKollektor>();
    ASSERT_EQ(Track(2, 5).Kollektor(), kollektor);
    selection.Add(Building(1));
    CDeleteEdit::Result result = edit.DeleteSelection();
    EXPECT_EQ(result.counts.kollektoren, 1);
    EXPECT_TRUE(Nodes<CNodeKollektor>().empty());
    EXPECT_EQ(Track(2, 5).Kollektor(), nullptr);
    EXPECT_EQ(Track(1, 4).Kollektor(), nullptr);
    ExpectCleanAndUndoable();
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(Track(2, 5).Kollektor(), kollektor);
}

TEST_F(Eraser, GoodsGoAndTheCountFollows) {
    selection.Add(*Nodes<CNodeGood>()[0]);
    ASSERT_TRUE(edit.DeleteSelection().done);
    EXPECT_EQ(Nodes<CNodeGood>().size(), 1u);
    EXPECT_TRUE(Has("<Goods count=\"1\">"));
    ExpectCleanAndUndoable();
}

TEST_F(Eraser, EmptySelectionDoesNothing) {
    CDeleteEdit::Result result = edit.DeleteSelection();
    EXPECT_FALSE(result.done);
    EXPECT_EQ(history.Count(), 0u);
    EXPECT_EQ(Save(), before);
}

TEST_F(Eraser, SignalsByNameTakeTheirContactsAndTimetableEntriesButNotTheTrains) {
    std::vector<std::pair<std::string, int32_t>> used = CDeleteEdit::SignalsUsed(anlage);
    EXPECT_EQ(used,
              (std::vector<std::pair<std::string, int32_t>>{{CDeleteEdit::kSignalOhneNamen, 1}, {"Hp", 2}}));
    CDeleteEdit::Result result = edit.DeleteSignals({"Hp"});
    EXPECT_EQ(result.counts.signale, 2);
    EXPECT_EQ(Nodes<CNodeMeldung>().size(), 1u);
    std::string saved = Save();
    EXPECT_NE(saved.find("ZugID=\"1\""), std::string::npos);
    EXPECT_NE(saved.find("<TimeTable TimeTableItems=\"0\"/>"), std::string::npos);
    std::vector<std::string> contacts = Contacts();
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "1/1:0:8"), 0);
    EXPECT_EQ(std::count(contacts.begin(), contacts.end(), "2/3:0:10"), 0);
    ExpectCleanAndUndoable();
    ASSERT_TRUE(history.Undo());
    EXPECT_TRUE(edit.DeleteSignals({CDeleteEdit::kSignalOhneNamen}).done);
    ASSERT_EQ(Nodes<CNodeMeldung>().size(), 2u);
    for (CNodeMeldung* meldung : Nodes<CNodeMeldung>())
        EXPECT_EQ(meldung->SignalName(), "Hp");
}

TEST_F(Eraser, ContactsOfAKindOnlyOnSelectedTracks) {
    selection.Add(Track(1, 1));
    EXPECT_EQ(CDeleteEdit::ContactsUsed(selection),
              (std::vector<std::pair<int32_t, int32_t>>{{0, 3}, {512, 1}, {768, 1}, {1024, 1}}));
    CDeleteEdit::Result result = edit.DeleteContacts({0, 512});
    EXPECT_EQ(result.counts.kontakte, 4);
    EXPECT_EQ(Contacts(),
              (std::vector<std::string>{"1/1:768:3", "1/1:1024:4", "2/3:0:10", "2/3:0:99", "2/5:1:0"}));
    EXPECT_FALSE(selection.Empty());
    ExpectCleanAndUndoable();
}

TEST_F(Eraser, AffectedTrainsAreThoseOnSelectedTracks) {
    selection.Add(Track(1, 3));
    selection.Add(Track(1, 4));
    std::vector<CDeleteEdit::Train> trains = CDeleteEdit::AffectedTrains(anlage);
    ASSERT_EQ(trains.size(), 2u);
    EXPECT_EQ(trains[0].name, "#Zug 1");
    EXPECT_EQ(trains[0].vehicles, 2);
    EXPECT_EQ(trains[1].name, "#Zug 3");
    // The preview counts and changes nothing.
    CDeleteEdit::Result preview = edit.Preview();
    EXPECT_EQ(preview.counts.gleise, 2);
    EXPECT_EQ(preview.counts.zugverbaende, 2);
    EXPECT_EQ(preview.counts.signale, 2);
    EXPECT_EQ(Save(), before);
    EXPECT_EQ(selection.CountGleise(), 2);
    EXPECT_EQ(history.Count(), 0u);
}

// What the eraser changed before a failure goes back with its step, to the byte.
TEST_F(Eraser, AFailureHalfwayIsRolledBackByItsStep) {
    selection.Add(Track(1, 3));
    selection.Add(Building(3));
    CEditStep step("Löschen");
    CEraser eraser(anlage, step);
    CArrayOfLong removedKeyIds;
    eraser.DeleteSelectedTracks(removedKeyIds);
    eraser.DeleteSelectedImmos();
    EXPECT_EQ(removedKeyIds.Count(), 2); // the track's 0 and the signal's 5
    EXPECT_THROW(eraser.EraseNodes(*FindGleisSys(anlage, 1), {0, 99}), CError);
    step.Undo();
    EXPECT_EQ(Save(), before);
    EXPECT_NE(FindGleis(anlage, 1, 3), nullptr);
}

// A deletion that fails halfway leaves the layout as it was, records nothing, and says so with
// the warning not to save over the old file.
TEST_F(Eraser, AFailedDeletionIsRolledBackAndReported) {
    selection.Add(Track(1, 3));
    selection.Add(Building(3));
    CDeleteEdit::Result result = edit.Run(
        "Löschen",
        [this](CEraser& eraser, CArrayOfLong& removedKeyIds) {
            eraser.DeleteSelectedTracks(removedKeyIds);
            eraser.DeleteSelectedImmos();
            eraser.EraseNodes(*FindGleisSys(anlage, 1), {0, 99}); // no child 99
        },
        true);
    EXPECT_TRUE(result.failed);
    EXPECT_FALSE(result.done);
    EXPECT_EQ(history.Count(), 0u);
    EXPECT_EQ(Save(), before);
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    const std::string& error = scope.ui.errors.front();
    EXPECT_EQ(error.rfind(FormatMessage("Beim Löschen der Objekte ist ein Fehler aufgetreten!"), 0), 0u)
        << error;
    EXPECT_NE(error.find("KEINESFALLS"), std::string::npos) << error;
    EXPECT_NE(error.find("CEraser.Run"), std::string::npos) << error;
}

TEST_F(Eraser, KeyIdsOfRemovedTracksAndSignalsAreReportedUnlessNegative) {
    for (int32_t id : {1, 2, 3, 4})
        selection.Add(Track(1, id));
    CEditStep step("Löschen");
    CEraser eraser(anlage, step);
    CArrayOfLong removedKeyIds;
    eraser.DeleteSelectedTracks(removedKeyIds);
    std::vector<int32_t> ids;
    for (int32_t i = 0; i < removedKeyIds.Count(); ++i)
        ids.push_back(removedKeyIds.Item(i));
    std::sort(ids.begin(), ids.end());
    // Tracks 1 and 3 carry 0, the switch 4, the signals 5 and 6; track 4's -3 is not reported.
    EXPECT_EQ(ids, (std::vector<int32_t>{0, 0, 4, 5, 6}));
    step.Undo();
}

} // namespace
