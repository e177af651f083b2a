#include <gtest/gtest.h>

#include <optional>

#include "EditLayouts.h"
#include "ProcLayouts.h"
#include "core/CArrayOfLong.h"
#include "core/CSet.h"
#include "edit/CEditHistory.h"
#include "edit/CForAll.h"
#include "edit/CProcGleisClearKoll.h"
#include "edit/CProcGleisSignalData.h"
#include "edit/CProcGleise.h"
#include "edit/CProcGoodRemove.h"
#include "edit/CProcKontaktCount.h"
#include "edit/CProcKontaktErase.h"
#include "edit/CProcKontaktInSel.h"
#include "edit/CProcKontaktInvalid.h"
#include "edit/CProcKontaktKeyId.h"
#include "edit/CProcKontakte.h"
#include "edit/CProcMeldungen.h"
#include "edit/CProcRenumKeyId.h"
#include "edit/CProcSignalCount.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/LayoutLookup.h"
#include "plan/CSelection.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

CArrayOfLong ListOf(std::initializer_list<int32_t> values) {
    CArrayOfLong list;
    for (int32_t value : values)
        list.Add(value);
    return list;
}

class Procedures : public SceneryLayoutFixture {
protected:
    ~Procedures() override { selection.Clear(); }

    // Loads the layout and keeps what it saves as before any procedure ran.
    void LoadLayout(const std::string& inner) {
        ASSERT_TRUE(LoadInner(inner));
        before = Save();
    }
    // Runs a leaf procedure over every track (contacts: true, signals: false, tracks: null).
    bool OverAll(IProc& leaf, std::optional<bool> contacts) {
        CProcGleise gleise;
        CProcKontakte kontakte;
        CProcMeldungen meldungen;
        if (!contacts) {
            gleise.SetNextProc(&leaf);
        } else {
            IProc& below = *contacts ? static_cast<IProc&>(kontakte) : static_cast<IProc&>(meldungen);
            gleise.SetNextProc(&below);
            below.SetNextProc(&leaf);
        }
        std::vector<CNodeGleisSys*> systems = TrackSystems(anlage);
        return CForAll::Gleissysteme(systems, &gleise);
    }
    // The step goes into the history; undone, the layout saves as it did before.
    void ExpectUndoRestores(std::unique_ptr<CEditStep> step) {
        if (step->Empty()) {
            EXPECT_EQ(Save(), before);
            return;
        }
        CEditHistory history(anlage);
        history.Record(std::move(step));
        ASSERT_TRUE(history.Undo());
        EXPECT_EQ(Save(), before);
    }
    std::vector<std::string> ContactKinds() const {
        std::vector<std::string> kinds;
        for (CNodeKontakt* contact : Nodes<CNodeKontakt>())
            kinds.push_back(std::to_string(contact->SetType()) + ":" +
                            std::to_string(contact->KontaktZiel()) + ":" +
                            std::to_string(contact->SetValue()));
        return kinds;
    }

    std::string before;
    CSelection selection;
};

// Each mode removes exactly its contacts, in one change per track, and undo puts them back.
TEST_F(Procedures, KontaktEraseByMode) {
    struct Case {
        int32_t mode;
        std::initializer_list<int32_t> values;
        bool selectFirst;
        std::vector<std::string> remaining;
    };
    const std::string first = ContactOf(0, 5) + ContactOf(768, 0, 7) + ContactOf(1, 5) + ContactOf(0, 6);
    const std::string second = ContactOf(1024, 0, 8) + ContactOf(0, 5) + ContactOf(1024, 0, 9);
    const Case cases[] = {
        // Targets: only kind 0 contacts count, and a kind-1 contact naming the target stays.
        {0, {5}, false, {"768:0:7", "1:5:0", "0:6:0", "1024:0:8", "1024:0:9"}},
        {0, {5, 6, 99}, false, {"768:0:7", "1:5:0", "1024:0:8", "1024:0:9"}},
        // Switched buildings and crossings by their SetValue.
        {1, {7, 9}, false, {"0:5:0", "1:5:0", "0:6:0", "1024:0:8", "0:5:0"}},
        // Kinds on selected tracks only.
        {2, {0, 1024}, true, {"768:0:7", "1:5:0", "1024:0:8", "0:5:0", "1024:0:9"}},
        {2, {0}, false, {"0:5:0", "768:0:7", "1:5:0", "0:6:0", "1024:0:8", "0:5:0", "1024:0:9"}},
        // An unknown mode removes nothing.
        {7, {0, 5, 7}, false, {"0:5:0", "768:0:7", "1:5:0", "0:6:0", "1024:0:8", "0:5:0", "1024:0:9"}},
    };
    for (const Case& test : cases) {
        LoadLayout(SystemOf(3, TrackWith(1, "", first) + TrackWith(2, "", second)));
        if (test.selectFirst)
            selection.Add(*FindGleis(anlage, 3, 1));
        auto step = std::make_unique<CEditStep>("Kontakte löschen");
        CProcKontaktErase erase;
        erase.Init(test.mode, ListOf(test.values), *step);
        EXPECT_TRUE(OverAll(erase, true));
        EXPECT_EQ(ContactKinds(), test.remaining) << "mode " << test.mode;
        EXPECT_EQ(erase.Removed(), 7 - static_cast<int32_t>(test.remaining.size()));
        EXPECT_LE(step->Count(), 2u); // one change per track at most
        selection.Clear();
        ExpectUndoRestores(std::move(step));
    }
}

// A track whose children stand out of the usual order keeps that order: contacts taken out
// leave the others where they were, and undo puts them back in between.
TEST_F(Procedures, KontaktEraseKeepsAnOrderOfChildrenAsRead) {
    auto track = [](const std::string& first, const std::string& last) {
        return SystemOf(3, "<Gleis GleisID=\"1\" clsid=\"2E25C8E2-ADCD-469A-942E-7484556FF932\">" + first +
                               "<KontaktZiel>4</KontaktZiel>" + FrameText("0", "0") +
                               "<Anfangsfuehrungsverdrehung Wert=\"0\"/><Charakteristik Kruemmung=\"0\" "
                               "Torsion=\"0\" Fuehrungsverdrehung=\"0\" Laenge=\"100\"/>" +
                               SignalOf(3, "A") + last + ContactOf(1, 0) + "</Gleis>");
    };
    ASSERT_TRUE(LoadInner(track("", "")));
    const std::string expected = Save();
    LoadLayout(track(ContactOf(0, 5), ContactOf(0, 5, 1)));
    auto step = std::make_unique<CEditStep>("Kontakte löschen");
    CProcKontaktErase erase;
    erase.Init(CProcKontaktErase::ModeTarget, ListOf({5}), *step);
    EXPECT_TRUE(OverAll(erase, true));
    EXPECT_EQ(erase.Removed(), 2);
    EXPECT_EQ(Save(), expected);
    ExpectUndoRestores(std::move(step));
}

TEST_F(Procedures, GleisSignalDataRenumbersTheLowPartOrErasesTheValue) {
    struct Case {
        int32_t func;
        std::vector<int32_t> expected; // signal data of tracks 1..4 afterwards
    };
    // Old key ids 40 and 12 become 1 and 2. Track 3 names key id 0, track 4 one not in the list.
    const int32_t withHigh = 3 * 65536 + 12;
    const Case cases[] = {
        {CProcGleisSignalData::FuncRenum, {1, 3 * 65536 + 2, 0, 77}},
        {CProcGleisSignalData::FuncErase, {0, 0, 0, 77}},
        {0, {40, withHigh, 0, 77}},
    };
    for (const Case& test : cases) {
        LoadLayout(SystemOf(2, TrackWith(1, "SignalData=\"40\"", "") +
                                   TrackWith(2, "SignalData=\"" + std::to_string(withHigh) + "\"", "") +
                                   TrackWith(3, "SignalData=\"0\"", "") +
                                   TrackWith(4, "SignalData=\"77\"", "")));
        auto step = std::make_unique<CEditStep>("Signaldaten");
        CProcGleisSignalData proc;
        proc.Init(test.func, ListOf({40, 12}), *step);
        EXPECT_TRUE(OverAll(proc, std::nullopt));
        for (int id = 1; id <= 4; ++id)
            EXPECT_EQ(FindGleis(anlage, 2, id)->SignalData(), test.expected[id - 1]) << id;
        ExpectUndoRestores(std::move(step));
    }
}

TEST_F(Procedures, KontaktKeyIdFollowsTheListOrClearsTheSignalData) {
    // Contacts naming key ids 40 (with a high part), 12, 5 (not in the list) and none.
    const std::string contacts = ContactOf(0, 1, 0, 2 * 65536 + 40) + ContactOf(0, 1, 0, 12) +
                                 ContactOf(0, 1, 0, 5) + ContactOf(0, 1, 0, 0);
    struct Case {
        int32_t func;
        std::vector<int32_t> expected;
        int32_t changed;
    };
    const Case cases[] = {
        {CProcKontaktKeyId::FuncRenum, {2 * 65536 + 1, 2, 5, 0}, 2},
        {CProcKontaktKeyId::FuncErase, {0, 0, 5, 0}, 2},
        {3, {2 * 65536 + 40, 12, 5, 0}, 0},
    };
    for (const Case& test : cases) {
        LoadLayout(SystemOf(2, TrackWith(1, "", contacts)));
        auto step = std::make_unique<CEditStep>("Kontakte");
        CProcKontaktKeyId proc;
        proc.Init(test.func, ListOf({40, 12}), *step);
        EXPECT_TRUE(OverAll(proc, true));
        std::vector<int32_t> data;
        for (CNodeKontakt* contact : Nodes<CNodeKontakt>())
            data.push_back(contact->SignalData());
        EXPECT_EQ(data, test.expected) << test.func;
        EXPECT_EQ(proc.Changed(), test.changed);
        ExpectUndoRestores(std::move(step));
    }
}

TEST_F(Procedures, RenumKeyIdTouchesTracksAndSignalsAboveZeroOnly) {
    LoadLayout(SystemOf(2, TrackWith(1, "Key_Id=\"30\"", SignalOf(90, "A") + SignalOf(0, "B")) +
                               TrackWith(2, "Key_Id=\"-1\"", SignalOf(-5, "C")) +
                               TrackWith(3, "Key_Id=\"7\"", "")));
    auto step = std::make_unique<CEditStep>("Nummerieren");
    CProcRenumKeyId renum;
    // 7 is not in the list: it stays.
    renum.Init(ListOf({30, 90}), *step);
    EXPECT_TRUE(OverAll(renum, std::nullopt));
    EXPECT_TRUE(OverAll(renum, false));
    EXPECT_EQ(FindGleis(anlage, 2, 1)->KeyId(), 1);
    EXPECT_EQ(FindGleis(anlage, 2, 2)->KeyId(), -1);
    EXPECT_EQ(FindGleis(anlage, 2, 3)->KeyId(), 7);
    std::vector<int32_t> signals;
    for (CNodeMeldung* signal : Nodes<CNodeMeldung>())
        signals.push_back(signal->KeyId());
    EXPECT_EQ(signals, (std::vector<int32_t>{2, 0, -5}));
    EXPECT_EQ(renum.Changed(), 2);
    ExpectUndoRestores(std::move(step));
}

TEST_F(Procedures, GoodRemoveTakesTheSelectedGoodsAndUndoPutsThemBack) {
    std::string goods = "<Goods count=\"4\">" + Good(100, 100) + Good(200, 100) + Good(300, 100) +
                        Good(400, 100) + "</Goods>";
    std::string text = LayoutText();
    text.replace(text.find("<Goods count=\"0\"/>"), 18, goods);
    ASSERT_TRUE(Load(text));
    before = Save();
    std::vector<CNodeGood*> all = Nodes<CNodeGood>();
    ASSERT_EQ(all.size(), 4u);
    selection.Add(*all[3]);
    selection.Add(*all[1]);
    INode& list = *all[0]->Parent();
    auto step = std::make_unique<CEditStep>("Löschen");
    CProcGoodRemove remove;
    remove.Init(*step);
    EXPECT_TRUE(CForAll::Goods(list, &remove));
    EXPECT_EQ(remove.Removed(), 2);
    EXPECT_EQ(Nodes<CNodeGood>(), (std::vector<CNodeGood*>{all[0], all[2]}));
    EXPECT_NE(Save().find("<Goods count=\"2\">"), std::string::npos);
    selection.Clear();
    ExpectUndoRestores(std::move(step));
}

TEST_F(Procedures, CountsAndCollections) {
    LoadLayout(SystemOf(
        2, TrackWith(1, "", ContactOf(0, 5, 0, 21) + SignalOf(30, "Hauptsignal", 5) + ContactOf(1, 0), "4") +
               TrackWith(2, "",
                         ContactOf(0, 9) + SignalOf(31, "") + SignalOf(32, "Hauptsignal") +
                             ContactOf(0, 4, 0, 3 * 65536 + 22))));
    CProcKontaktCount contacts;
    contacts.Init();
    EXPECT_TRUE(OverAll(contacts, true));
    ASSERT_EQ(contacts.Counter().Count(), 2);
    EXPECT_EQ(contacts.Counter().Counter(contacts.Counter().Find(0)), 3);
    EXPECT_EQ(contacts.Counter().Counter(contacts.Counter().Find(1)), 1);

    CProcSignalCount signals;
    signals.Init();
    EXPECT_TRUE(OverAll(signals, false));
    ASSERT_EQ(signals.Counter().Count(), 2);
    EXPECT_EQ(signals.Name(0), "Hauptsignal");
    EXPECT_EQ(signals.Counter().Counter(0), 2);
    EXPECT_EQ(signals.Name(1), "");

    // Target 9 is carried by nothing; 4 (a track) and 5 (a signal) exist.
    CSet valid;
    valid.Use(4);
    valid.Use(5);
    CProcKontaktInvalid invalid;
    invalid.Init(valid);
    EXPECT_TRUE(OverAll(invalid, true));
    ASSERT_EQ(invalid.Invalid().size(), 1u);
    EXPECT_EQ(invalid.Invalid()[0]->KontaktZiel(), 9);

    // Key ids on the selected track 2 only: its signals and what its contacts name, sorted.
    selection.Add(*FindGleis(anlage, 2, 2));
    CProcKontaktInSel inSel;
    EXPECT_TRUE(CForAll::GleiseSelected(selection, &inSel));
    std::vector<int32_t> ids;
    for (int32_t i = 0; i <= inSel.KeyIds().LastIndex(); ++i)
        ids.push_back(inSel.KeyIds().Item(i));
    EXPECT_EQ(ids, (std::vector<int32_t>{22, 31, 32}));
}

TEST_F(Procedures, ClearKollLetsTracksGoOfDeletedCollectors) {
    LoadLayout(
        SystemOf(2, TrackWith(1, "", "") + TrackWith(2, "", "") + TrackWith(3, "", "")) +
        "<Kollektor id=\"4\"><Gleis gleisID=\"1\" gleissystemID=\"2\"/><Gleis gleisID=\"2\" "
        "gleissystemID=\"2\"/></Kollektor><Kollektor id=\"6\"><Gleis gleisID=\"3\" gleissystemID=\"2\"/>"
        "</Kollektor>");
    ASSERT_NE(FindGleis(anlage, 2, 1)->Kollektor(), nullptr);
    CNodeKollektor* kept = FindGleis(anlage, 2, 3)->Kollektor();
    ASSERT_NE(kept, nullptr);
    auto step = std::make_unique<CEditStep>("Kollektoren");
    CProcGleisClearKoll clear;
    clear.Init(ListOf({4}), *step);
    EXPECT_TRUE(OverAll(clear, std::nullopt));
    EXPECT_EQ(clear.Cleared(), 2);
    EXPECT_EQ(FindGleis(anlage, 2, 1)->Kollektor(), nullptr);
    EXPECT_EQ(FindGleis(anlage, 2, 2)->Kollektor(), nullptr);
    EXPECT_EQ(FindGleis(anlage, 2, 3)->Kollektor(), kept);
    CNodeKollektor* four = FindKollektor(anlage, 4);
    step->Undo();
    EXPECT_EQ(FindGleis(anlage, 2, 1)->Kollektor(), four);
}

TEST_F(Procedures, ProceduresThatChangeNeedInit) {
    LoadLayout(SystemOf(2, TrackWith(1, "Key_Id=\"3\"", ContactOf(0, 1))));
    CProcRenumKeyId renum;
    EXPECT_THROW(OverAll(renum, std::nullopt), CError);
    CProcKontaktErase erase;
    EXPECT_THROW(OverAll(erase, true), CError);
    CProcKontaktCount count;
    EXPECT_THROW(OverAll(count, true), CError);
    EXPECT_EQ(Save(), before);
}

} // namespace
