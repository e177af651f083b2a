#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <random>

#include "EditLayouts.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/LayoutLookup.h"
#include "plan/CGleisIdList.h"
#include "plan/CPlanObjects.h"
#include "plan/CPlanPicker.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

using namespace kavrin;

namespace {

// Tracks 1..3 of a railway system (1 and 2 joined), track 1 of a Steuerstrecke, a
// track-accompanying object, two buildings and a good.
class SelectionTest : public test::SceneryLayoutFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" +
                              test::ClassicTrack(1, 0, 0, 1000) + test::ClassicTrack(2, 1000, 0, 1000) +
                              test::ClassicTrack(3, 0, 500, 1000) + test::Connection(1, "Ende", 2, "Anfang") +
                              "</Gleissystem>" + "<Gleissystem GleissystemID=\"5\" TrackSystemNumber=\"5\">" +
                              test::ClassicTrack(1, 0, 900, 500) +
                              "</Gleissystem><Gebaeudesammlung GebaudesammlungID=\"3\">" +
                              test::Building("Bahnsteig", 500, 100) +
                              "</Gebaeudesammlung><Gebaeudesammlung GebaudesammlungID=\"4\">" +
                              test::Building("Haus", 3000, 3000) + test::Building("Kirche", -3000, 3000) +
                              "</Gebaeudesammlung><Goods count=\"1\">" + test::Good(200, -200) + "</Goods>"));
    }
    CNodeGleis& Track(int system, int id) { return *FindGleis(anlage, static_cast<int16_t>(system), id); }
    CNodeImmobilie& Building(size_t index) { return *Nodes<CNodeImmobilie>().at(index); }
    CNodeGood& TheGood() { return *Nodes<CNodeGood>().front(); }

    // Every member's flag is set, every other paintable node's flag is not, and the counters match.
    void ExpectInvariant() {
        int tracks = 0, buildings = 0, goods = 0, trackObjects = 0;
        for (IPaint& member : selection.NewEnum()) {
            EXPECT_TRUE(member.Selected());
            tracks += member.PaintKind() == IPaint::Kind::Gleis;
            goods += member.PaintKind() == IPaint::Kind::Good;
            if (member.PaintKind() == IPaint::Kind::Immobilie) {
                ++buildings;
                trackObjects += static_cast<CNodeImmobilie&>(member).isGleisObjekt();
            }
        }
        int flagged = 0;
        for (auto* node : Nodes<CPaintState>())
            flagged += node->Selected();
        EXPECT_EQ(flagged, selection.Count());
        EXPECT_EQ(selection.CountGleise(), tracks);
        EXPECT_EQ(selection.CountImmos(), buildings);
        EXPECT_EQ(selection.CountGoods(), goods);
        EXPECT_EQ(selection.CountGleisObjekte(), trackObjects);
        EXPECT_EQ(selection.Count(), tracks + buildings + goods);
    }

    CSelection selection;
    CViewOptions options;
};

TEST_F(SelectionTest, AddRemoveAndSetSelectionKeepTheInvariantAndTheCounters) {
    struct Step {
        const char* what;
        std::function<void()> run;
        int tracks, buildings, goods, trackObjects;
    };
    const Step steps[] = {
        {"a track", [&] { selection.Add(Track(2, 1)); }, 1, 0, 0, 0},
        {"the same track again", [&] { selection.Add(Track(2, 1)); }, 1, 0, 0, 0},
        {"a track-accompanying object", [&] { selection.Add(Building(0)); }, 1, 1, 0, 1},
        {"a building", [&] { selection.SetSelection(Building(1), true); }, 1, 2, 0, 1},
        {"a good", [&] { selection.Add(TheGood()); }, 1, 2, 1, 1},
        {"an unselected track removed", [&] { selection.Remove(Track(2, 2)); }, 1, 2, 1, 1},
        {"the track-accompanying object removed", [&] { selection.Remove(Building(0)); }, 1, 1, 1, 0},
        {"set to its state: nothing", [&] { selection.SetSelection(Building(1), true); }, 1, 1, 1, 0},
        {"the building unselected", [&] { selection.SetSelection(Building(1), false); }, 1, 0, 1, 0},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.what);
        step.run();
        ExpectInvariant();
        EXPECT_EQ(selection.CountGleise(), step.tracks);
        EXPECT_EQ(selection.CountImmos(), step.buildings);
        EXPECT_EQ(selection.CountGoods(), step.goods);
        EXPECT_EQ(selection.CountGleisObjekte(), step.trackObjects);
    }
    selection.Clear();
    ExpectInvariant();
    EXPECT_EQ(selection.Count(), 0);
    EXPECT_FALSE(Track(2, 1).Selected());
    EXPECT_TRUE(scope.ui.errors.empty());
}

TEST_F(SelectionTest, MembersStayInTheOrderOfSelectionAlsoAfterManyRemovals) {
    CPlanObjects(anlage, options).SelectAll(selection, 2);
    std::vector<IPaint*> all;
    for (IPaint& member : selection.NewEnum())
        all.push_back(&member);
    // Taking out every other member, then adding one back, keeps the rest in order.
    for (size_t i = 0; i < all.size(); i += 2)
        selection.Remove(*all[i]);
    selection.Add(*all[0]);
    std::vector<IPaint*> now;
    for (IPaint& member : selection.NewEnum())
        now.push_back(&member);
    std::vector<IPaint*> expected;
    for (size_t i = 1; i < all.size(); i += 2)
        expected.push_back(all[i]);
    expected.push_back(all[0]);
    EXPECT_EQ(now, expected);
    ExpectInvariant();
}

TEST_F(SelectionTest, RemoveDeleteablesAndRemoveIfKeepTheCounters) {
    CPlanObjects(anlage, options).SelectAll(selection, 2);
    EXPECT_EQ(selection.RemoveIf([](const IPaint& member) {
        return member.PaintKind() == IPaint::Kind::Gleis && static_cast<const CNodeGleis&>(member).ID() != 3;
    }),
              2);
    ExpectInvariant();
    // The ids of the tracks taken out go back to the caller, by track system.
    std::vector<CSelection::DroppedTrack> dropped = selection.RemoveDeleteables();
    ASSERT_EQ(dropped.size(), 1u);
    EXPECT_EQ(dropped[0].system, 2);
    EXPECT_EQ(dropped[0].id, 3);
    ExpectInvariant();
    EXPECT_EQ(selection.Count(), 0);
}

TEST_F(SelectionTest, FailuresAreReportedWithTheMembersName) {
    // A flag set behind the selection's back: the member is not in the collection.
    Track(2, 3).SetSelected(true);
    selection.Remove(Track(2, 3));
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    EXPECT_NE(scope.ui.errors[0].find("CSelection.Remove"), std::string::npos) << scope.ui.errors[0];
    // The track-object counter goes below zero only by the overflow test.
    selection.DecrObjektCount();
    EXPECT_EQ(selection.CountGleisObjekte(), -1);
}

TEST_F(SelectionTest, SelectAllTakesTheShownKindsOfThePlanOnly) {
    struct Case {
        const char* what;
        std::function<void()> hide;
        int tracks, buildings, goods;
    };
    const Case cases[] = {
        {"everything shown (not the Steuerstrecke)", [] {}, 3, 3, 1},
        {"railway hidden", [&] { options.SetTrackVisible(1, false); }, 0, 3, 1},
        {"roads hidden: the road's track objects", [&] { options.SetTrackVisible(3, false); }, 3, 2, 1},
        {"Immobilien hidden", [&] { options.SetImmoVisible(4, false); }, 3, 1, 1},
        {"goods hidden", [&] { options.SetGoodsVisible(false); }, 3, 3, 0},
        {"a track outside the height band", [&] { Track(2, 3).SetInHeightRange(false); }, 2, 3, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        options = CViewOptions();
        for (auto* node : Nodes<CPaintState>())
            node->SetInHeightRange(true);
        c.hide();
        selection.Clear();
        CPlanObjects(anlage, options).SelectAll(selection, 2);
        EXPECT_EQ(selection.CountGleise(), c.tracks);
        EXPECT_EQ(selection.CountImmos(), c.buildings);
        EXPECT_EQ(selection.CountGoods(), c.goods);
        EXPECT_FALSE(Track(5, 1).Selected());
        // Holds says the same of a single object.
        CPlanObjects objects(anlage, options);
        EXPECT_FALSE(objects.Holds(Track(5, 1)));
        EXPECT_EQ(objects.Holds(Track(2, 1)), options.TrackVisible(1));
        EXPECT_EQ(objects.Holds(TheGood()), c.goods > 0);
    }
}

TEST_F(SelectionTest, InvertRubberBandAndPick) {
    CPlanObjects objects(anlage, options);
    selection.Add(Track(2, 1));
    objects.Invert(selection, 2);
    EXPECT_FALSE(Track(2, 1).Selected());
    EXPECT_EQ(selection.Count(), 6);
    ExpectInvariant();

    // The band takes a track only with both ends inside, a building by its position.
    objects.SelectInRect(selection, CRect(-10, 600, 1010, -300), 2, CPlanObjects::How::Replace);
    EXPECT_TRUE(Track(2, 1).Selected());
    EXPECT_FALSE(Track(2, 2).Selected());
    EXPECT_TRUE(Track(2, 3).Selected());
    EXPECT_TRUE(Building(0).Selected());
    EXPECT_TRUE(TheGood().Selected());
    EXPECT_EQ(selection.Count(), 4);
    objects.SelectInRect(selection, CRect(-10, 600, 1010, 400), 2, CPlanObjects::How::Toggle);
    EXPECT_FALSE(Track(2, 3).Selected());
    objects.SelectInRect(selection, CRect(2500, 3500, 3500, 2500), 2, CPlanObjects::How::Add);
    EXPECT_TRUE(Building(1).Selected());
    ExpectInvariant();

    // A pick takes the topmost object near the point: the building stands on track 1.
    const double pixel = 10; // cm per pixel
    EXPECT_EQ(objects.Pick(500, 35, pixel, 4, 2), &Building(0));
    EXPECT_EQ(objects.Pick(700, 30, pixel, 4, 2), &Track(2, 1));
    EXPECT_EQ(objects.Pick(700, 100, pixel, 4, 2), nullptr);
    EXPECT_EQ(objects.Pick(200, -190, pixel, 4, 2), &TheGood());
    // Mode 0 considers only what the last paint drew: nothing has been drawn.
    EXPECT_EQ(objects.Pick(700, 30, pixel, 4, 0), nullptr);
}

// The picker's grid gives the answer of the plain walk, on every sample, also after the objects
// moved (once it is told).
TEST(PlanPicker, AnswersAsThePlainPickDoes) {
    test::RecordingScope scope;
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        SCOPED_TRACE(entry.path().filename().string());
        CAnlage anlage;
        ASSERT_TRUE(anlage.Load(entry.path().string()));
        CViewOptions options;
        CPlanObjects objects(anlage, options);
        CPlanPicker picker(anlage);
        // Points near objects: their positions and track starts, a little off.
        std::vector<std::pair<double, double>> points;
        objects.ForEach([&points](IPaint& object) {
            double length = 0;
            CVector at = object.PaintKind() == IPaint::Kind::Gleis
                             ? static_cast<CNodeGleis&>(object).Anchor(length)
                         : object.PaintKind() == IPaint::Kind::Immobilie
                             ? static_cast<CNodeImmobilie&>(object).DreiBein().Pos()
                             : static_cast<CNodeGood&>(object).DreiBein().Pos();
            points.emplace_back(at.X + length / 2, at.Y + 3);
        });
        std::mt19937 random(3);
        std::uniform_int_distribution<size_t> pick(0, points.size() - 1);
        std::uniform_real_distribution<double> off(-300, 300);
        int hits = 0;
        for (int round = 0; round < 2; ++round) {
            for (int i = 0; i < 400; ++i) {
                auto [x, y] = points[pick(random)];
                x += off(random), y += off(random);
                IPaint* expected = objects.Pick(x, y, 20, 4, 1);
                ASSERT_EQ(picker.Pick(x, y, 20, 4, 1), expected) << x << " " << y;
                hits += expected != nullptr;
            }
            CSelection selection;
            objects.SelectAll(selection, 1);
            selection.Move(1234, -567, 0);
            selection.Clear();
            picker.Invalidate();
        }
        EXPECT_GT(hits, 40);
    }
}

TEST(GleisIdList, ParsesIdsAndRangesAndRefusesTheRest) {
    struct Case {
        const char* text;
        bool ok;
        std::vector<std::pair<int32_t, int32_t>> items;
    };
    const Case cases[] = {
        {"12, 40..55, -3", true, {{12, 12}, {40, 55}, {-3, -3}}},
        {"12,40..55,-3", true, {{12, 12}, {40, 55}, {-3, -3}}},
        {" 7;8  9 ", true, {{7, 7}, {8, 8}, {9, 9}}},
        {"55..40", true, {{40, 55}}},
        {"40 .. 55", true, {{40, 55}}},
        {"-5..-2", true, {{-5, -2}}},
        {"+4", true, {{4, 4}}},
        {"", false, {}},
        {" , ", false, {}},
        {"12a", false, {}},
        {"1..", false, {}},
        {"1...3", false, {}},
        {"1,5.5", false, {}},
        {"99999999999", false, {}},
        {"--3", false, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        CGleisIdList list;
        std::string error;
        EXPECT_EQ(list.Parse(c.text, error), c.ok);
        EXPECT_EQ(error.empty(), c.ok);
        std::vector<std::pair<int32_t, int32_t>> items;
        for (const CGleisIdList::Item& item : list.Items())
            items.emplace_back(item.from, item.to);
        EXPECT_EQ(items, c.items);
    }
}

TEST_F(SelectionTest, IdListSelectsTheTracksOfOneSystemAndNamesWhatItCouldNotTake) {
    CGleisIdList list;
    std::string error;
    ASSERT_TRUE(list.Parse("1, 3, 9, 2..5, 10..20", error));
    Track(2, 3).SetActive(false); // its kind hidden
    std::vector<std::string> notTaken = list.Select(selection, *FindGleisSys(anlage, 2), 2);
    EXPECT_EQ(notTaken, (std::vector<std::string>{"3", "9", "10..20"}));
    EXPECT_TRUE(Track(2, 1).Selected());
    EXPECT_TRUE(Track(2, 2).Selected());
    EXPECT_FALSE(Track(2, 3).Selected());
    EXPECT_FALSE(Track(5, 1).Selected());
    // Mode 1 takes hidden tracks too (the command line's "any track of that system").
    EXPECT_TRUE(list.Select(selection, *FindGleisSys(anlage, 2), 1).size() == 2);
    EXPECT_TRUE(Track(2, 3).Selected());
}

} // namespace
