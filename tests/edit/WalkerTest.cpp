#include <gtest/gtest.h>

#include "EditLayouts.h"
#include "ProcLayouts.h"
#include "core/CError.h"
#include "edit/CForAll.h"
#include "edit/CProcGleise.h"
#include "edit/CProcKontakte.h"
#include "edit/CProcMeldungen.h"
#include "edit/IProc.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/LayoutLookup.h"
#include "plan/CSelection.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

// Writes down every call as a letter: S(tart), P(rocess) with the key, F(inish); answers as told.
class Recorder final : public IProc {
public:
    bool Process(INode*& node, int32_t key) override {
        log += "P" + std::to_string(key) + " ";
        nodes.push_back(node);
        return ++processed != stopAt;
    }
    bool Start() override {
        log += "S ";
        return startResult;
    }
    bool Finish() override {
        log += "F ";
        return finishResult;
    }

    std::string log;
    std::vector<INode*> nodes;
    bool startResult = true;
    bool finishResult = true;
    int stopAt = -1; // the number of the Process call that answers false
    int processed = 0;
};

class Walker : public SceneryLayoutFixture {
public:
    void SetUp() override {
        // System 7: track 1 with three contacts and a signal between them, track 2 bare.
        std::string items = ContactOf(1, 0) + SignalOf(4, "A") + ContactOf(0, 3) + ContactOf(256, 0);
        ASSERT_TRUE(LoadInner(SystemOf(7, TrackWith(1, "", items) + TrackWith(2, "", "")) +
                              SystemOf(8, TrackWith(1, "", "")) + SystemOf(9, "") +
                              "<Gebaeudesammlung GebaudesammlungID=\"4\">" + Building("Haus", 10, 10) +
                              "</Gebaeudesammlung>"));
        systems = TrackSystems(anlage);
        ASSERT_EQ(systems.size(), 4u); // with the layout text's own empty system 1
        first = systems[0]->FindGleis(1);
        bare = systems[0]->FindGleis(2);
    }
    ~Walker() override { selection.Clear(); }

    std::vector<CNodeGleisSys*> systems;
    CNodeGleis* first = nullptr;
    CNodeGleis* bare = nullptr;
    CSelection selection;
};

TEST_F(Walker, StartProcessFinishRulesOfEveryWalk) {
    struct Case {
        const char* what;
        bool start;
        bool finish;
        int stopAt;
        std::function<bool(Walker&, Recorder&)> walk;
        const char* log;
        bool result;
    };
    auto kontakte = [](Walker& w, Recorder& r) { return CForAll::Kontakte(*w.first, &r); };
    auto systemsWalk = [](Walker& w, Recorder& r) { return CForAll::Gleissysteme(w.systems, &r); };
    auto empty = [](Walker& w, Recorder& r) { return CForAll::Kontakte(*w.bare, &r); };
    const Case cases[] = {
        // Keys are the contacts' places among the track's children; the signal is passed over.
        {"all contacts", true, true, -1, kontakte, "S P0 P2 P3 F ", true},
        {"finish decides", true, false, -1, kontakte, "S P0 P2 P3 F ", false},
        {"empty collection", true, true, -1, empty, "S F ", true},
        {"empty collection, finish false", true, false, -1, empty, "S F ", false},
        {"start false", false, true, -1, kontakte, "S ", false},
        {"start false, empty", false, true, -1, empty, "S ", false},
        {"process false in an iterator walk", true, true, 2, kontakte, "S P0 P2 ", false},
        {"process false in a for-each walk", true, true, 2, systemsWalk, "S P0 P0 ", false},
        {"for-each to its end", true, true, -1, systemsWalk, "S P0 P0 P0 P0 F ", true},
        {"signals", true, true, -1, [](Walker& w, Recorder& r) { return CForAll::Meldungen(*w.first, &r); },
         "S P1 F ", true},
        {"tracks pass key 0", true, true, -1,
         [](Walker& w, Recorder& r) { return CForAll::Gleise(*w.systems[0], &r); }, "S P0 P0 F ", true},
    };
    for (const Case& test : cases) {
        Recorder recorder;
        recorder.startResult = test.start;
        recorder.finishResult = test.finish;
        recorder.stopAt = test.stopAt;
        EXPECT_EQ(test.walk(*this, recorder), test.result) << test.what;
        EXPECT_EQ(recorder.log, test.log) << test.what;
    }
}

TEST_F(Walker, SelectedTracksOnlyAndNothingForBuildingsOnly) {
    auto* building = Nodes<CNodeImmobilie>().front();
    selection.Add(*building);
    Recorder onlyBuildings;
    EXPECT_TRUE(CForAll::GleiseSelected(selection, &onlyBuildings));
    EXPECT_EQ(onlyBuildings.log, "S F ");

    selection.Add(*bare);
    selection.Add(*first);
    Recorder tracks;
    EXPECT_TRUE(CForAll::GleiseSelected(selection, &tracks));
    EXPECT_EQ(tracks.log, "S P0 P0 F ");
    EXPECT_EQ(tracks.nodes, (std::vector<INode*>{bare, first}));

    Recorder stops;
    stops.stopAt = 1;
    EXPECT_FALSE(CForAll::GleiseSelected(selection, &stops));
    EXPECT_EQ(stops.log, "S P0 ");
}

// A chain runs the leaf's Start and Finish once per parent: here once per track of every system.
TEST_F(Walker, DescendingChainReachesEveryContactOfEveryTrack) {
    CProcGleise gleise;
    CProcKontakte kontakte;
    Recorder leaf;
    gleise.SetNextProc(&kontakte);
    kontakte.SetNextProc(&leaf);
    EXPECT_EQ(gleise.NextProc(), &kontakte);
    EXPECT_TRUE(CForAll::Gleissysteme(systems, &gleise));
    EXPECT_EQ(leaf.log, "S P0 P2 P3 F S F S F ");
    ASSERT_EQ(leaf.nodes.size(), 3u);
    for (INode* node : leaf.nodes)
        EXPECT_NE(dynamic_cast<CNodeKontakt*>(node), nullptr);

    // A false from below ends every level above it.
    Recorder stopping;
    stopping.stopAt = 2;
    CProcMeldungen meldungen;
    meldungen.SetNextProc(&stopping);
    CProcKontakte kontakteStop;
    kontakteStop.SetNextProc(&stopping);
    gleise.SetNextProc(&kontakteStop);
    EXPECT_FALSE(CForAll::Gleissysteme(systems, &gleise));
    EXPECT_EQ(stopping.log, "S P0 P2 ");
}

TEST_F(Walker, MisuseIsAnErrorNotACrash) {
    CProcKontakte kontakte; // nothing chained
    EXPECT_THROW(CForAll::Gleise(*systems[0], &kontakte), CError);
    EXPECT_THROW(CForAll::Gleise(*systems[0], nullptr), CError);
    CProcGleise gleise; // handed tracks instead of systems
    gleise.SetNextProc(&kontakte);
    EXPECT_THROW(CForAll::Gleise(*systems[0], &gleise), CError);
    // The plain interface processes nothing.
    IProc plain;
    EXPECT_FALSE(CForAll::Kontakte(*first, &plain));
    CLeafProc leaf;
    leaf.SetNextProc(&plain);
    EXPECT_EQ(leaf.NextProc(), nullptr);
}

// A procedure may replace the node it is handed; the for-each over systems keeps the new one.
TEST_F(Walker, ReplacedSystemGoesIntoTheList) {
    struct Replacer final : IProc {
        CNodeGleisSys* other = nullptr;
        INode* bogus = nullptr;
        bool Start() override { return true; }
        bool Finish() override { return true; }
        bool Process(INode*& node, int32_t) override {
            node = bogus ? bogus : other;
            return true;
        }
    } replacer;
    replacer.other = systems[3];
    std::vector<CNodeGleisSys*> list{systems[0], systems[1]};
    EXPECT_TRUE(CForAll::Gleissysteme(list, &replacer));
    EXPECT_EQ(list, (std::vector<CNodeGleisSys*>{systems[3], systems[3]}));
    replacer.bogus = first;
    EXPECT_THROW(CForAll::Gleissysteme(list, &replacer), CError);
}

} // namespace
