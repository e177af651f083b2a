#include <gtest/gtest.h>

#include <limits>

#include "core/CArrayOfLong.h"
#include "core/CEntryCounter.h"
#include "core/CError.h"
#include "core/CSet.h"
#include "document/CArrayOfNodes.h"
#include "document/CNodeUnknown.h"

using namespace kavrin;

namespace {

TEST(CSet, MembershipAndNextUsedOrFree) {
    CSet set;
    EXPECT_TRUE(set.isEmpty());
    EXPECT_EQ(set.NextUsed(0), CSet::NoIndex());
    for (int32_t value : {5, 3, 4, 9, -2, 5})
        set.Use(value);
    EXPECT_FALSE(set.isEmpty());
    EXPECT_EQ(set.Count(), 5);
    EXPECT_TRUE(set.isUsed(-2));
    EXPECT_TRUE(set.isFree(6));
    EXPECT_EQ(set.NextFree(3), 6);
    EXPECT_EQ(set.NextFree(0), 0);
    EXPECT_EQ(set.NextUsed(6), 9);
    EXPECT_EQ(set.NextUsed(10), CSet::NoIndex());
    set.Use(std::numeric_limits<int32_t>::max());
    EXPECT_THROW(set.NextFree(std::numeric_limits<int32_t>::max()), CError);
    set.Reset();
    EXPECT_TRUE(set.isEmpty());
    EXPECT_TRUE(set.isFree(5));
}

TEST(CEntryCounter, CountsPerKeyInTheOrderFirstSeen) {
    CEntryCounter counter;
    for (int32_t key : {768, 0, 768, 1, 768, 0})
        counter.INCREMENT(key);
    ASSERT_EQ(counter.Count(), 3);
    EXPECT_EQ(counter.Key(0), 768);
    EXPECT_EQ(counter.Counter(0), 3);
    EXPECT_EQ(counter.Key(1), 0);
    EXPECT_EQ(counter.Counter(1), 2);
    EXPECT_EQ(counter.Find(1), 2);
    EXPECT_EQ(counter.Find(5), CEntryCounter::NoIndex());
    EXPECT_THROW(counter.Key(3), CError);
    EXPECT_THROW(counter.Counter(-1), CError);
    counter.Clear();
    EXPECT_EQ(counter.Count(), 0);
    EXPECT_EQ(counter.Find(768), CEntryCounter::NoIndex());
}

// Nodes named by their text, so that order and identity can be told from the outside.
std::unique_ptr<INode> Named(const std::string& text) {
    auto node = std::make_unique<CNodeUnknown>();
    node->SetText(text);
    return node;
}

std::string Texts(const CArrayOfNodes& array) {
    std::string out;
    for (const auto& node : array)
        out += node ? node->Text() : std::string("_");
    return out;
}

CArrayOfNodes Filled(const std::string& texts) {
    CArrayOfNodes array;
    for (char c : texts)
        array.Add(Named(std::string(1, c)));
    return array;
}

// Both arrays keep every entry, in order, however their storage grows (whatever step it
// was given, and for a collection of the size of a layout's largest), and are empty again
// after Clear and RemoveAll; only storage of their own can be read.
TEST(Arrays, EntriesSurviveGrowthClearFreezeAndRemoveAll) {
    for (int32_t step : {0, 1, 3, 500}) {
        SCOPED_TRACE(step);
        CArrayOfLong longs;
        CArrayOfNodes nodes;
        if (step) {
            longs.Size(step, step);
            nodes.Size(step, step);
        }
        std::string texts;
        for (int32_t i = 0; i < 1200; ++i) {
            longs.Add(i * 7);
            nodes.Add(Named(std::string(1, char('a' + i % 26))));
            texts += char('a' + i % 26);
        }
        ASSERT_EQ(longs.Count(), 1200);
        ASSERT_EQ(nodes.Count(), 1200);
        for (int32_t i = 0; i < 1200; ++i)
            EXPECT_EQ(longs.Item(i), i * 7) << i;
        EXPECT_EQ(Texts(nodes), texts);
        EXPECT_GE(longs.UpperBound(), 1199);
        EXPECT_THROW(longs.Item(longs.UpperBound() + 1), CError);
        EXPECT_THROW(nodes.Item(nodes.UpperBound() + 1), CError);

        longs.Clear();
        nodes.Clear();
        EXPECT_EQ(longs.Count(), 0);
        EXPECT_EQ(nodes.Count(), 0);
        EXPECT_EQ(longs.Item(3), 0); // the storage stays, emptied
        EXPECT_EQ(nodes.Item(3), nullptr);
        nodes.Add(Named("d"));
        nodes.Freeze();
        nodes.Add(Named("e"));
        EXPECT_EQ(Texts(nodes), "de");

        longs.RemoveAll();
        nodes.RemoveAll();
        EXPECT_EQ(longs.Count(), 0);
        EXPECT_EQ(nodes.Count(), 0);
        EXPECT_THROW(longs.Item(0), CError);
        EXPECT_THROW(nodes.Item(0), CError);
        longs.Add(5);
        EXPECT_EQ(longs.Item(0), 5);
    }
}

TEST(CArrayOfNodes, SetItemAndCompactRemoveEmptyPlacesOrOneNode) {
    CArrayOfNodes array = Filled("abcde");
    std::unique_ptr<INode> b = array.SetItem(1, nullptr);
    std::unique_ptr<INode> d = array.SetItem(3, nullptr);
    EXPECT_EQ(b->Text(), "b");
    EXPECT_EQ(d->Text(), "d");
    EXPECT_EQ(Texts(array), "a_c_e");
    array.Compact();
    EXPECT_EQ(Texts(array), "ace");
    array.Compact(array.Item(1));
    EXPECT_EQ(Texts(array), "ae");
    // Nothing equal: nothing changes.
    array.Compact(b.get());
    EXPECT_EQ(Texts(array), "ae");
}

TEST(CArrayOfNodes, InsertAtPutsManyBackWhereTheyStood) {
    struct Case {
        std::string before;
        std::vector<int32_t> places;
        std::string inserted;
        std::string after;
    };
    const Case cases[] = {
        {"", {0, 1, 2}, "xyz", "xyz"},       {"abc", {0}, "x", "xabc"},           {"abc", {3}, "x", "abcx"},
        {"abc", {0, 2, 4}, "xyz", "xaybzc"}, {"abc", {3, 4, 5}, "xyz", "abcxyz"},
    };
    for (const Case& test : cases) {
        CArrayOfNodes array = Filled(test.before);
        std::vector<std::unique_ptr<INode>> nodes;
        for (char c : test.inserted)
            nodes.push_back(Named(std::string(1, c)));
        array.InsertAt(test.places, std::move(nodes));
        EXPECT_EQ(Texts(array), test.after) << test.before;
    }
    CArrayOfNodes array = Filled("ab");
    std::vector<std::unique_ptr<INode>> two;
    two.push_back(Named("x"));
    two.push_back(Named("y"));
    EXPECT_THROW(array.InsertAt({2, 1}, std::move(two)), CError);
    EXPECT_EQ(Texts(array), "ab");
}

} // namespace
