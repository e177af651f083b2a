#include <gtest/gtest.h>

#include "core/CArrayOfLong.h"
#include "core/CDictionary.h"
#include "core/CError.h"
#include "core/CStringPack.h"

using namespace kavrin;

namespace {

std::vector<int32_t> Entries(const CArrayOfLong& array) {
    std::vector<int32_t> out;
    for (int32_t i = array.FirstIndex(); i <= array.LastIndex(); ++i)
        out.push_back(array.Item(i));
    return out;
}

TEST(CArrayOfLong, FindAddUniqueCompactAndBounds) {
    CArrayOfLong array;
    for (int v : {5, 3, 5, 9, 5})
        array.Add(v);
    EXPECT_EQ(array.Find(9), 3);
    EXPECT_EQ(array.Find(4), CArrayOfLong::NoIndex());
    EXPECT_EQ(array.AddUnique(3), 1);
    EXPECT_EQ(array.AddUnique(4), 5);
    array.Compact(7); // not present: nothing changes
    EXPECT_EQ(Entries(array), (std::vector<int32_t>{5, 3, 5, 9, 5, 4}));
    array.Compact(5);
    EXPECT_EQ(Entries(array), (std::vector<int32_t>{3, 9, 4}));
    try {
        array.Item(11);
        FAIL() << "an index beyond the storage must fail";
    } catch (const CError& e) {
        EXPECT_EQ(e.Number(), 9);
    }
}

TEST(CArrayOfLong, FreezeTrimsAndAddStillWorks) {
    CArrayOfLong array;
    array.Add(1);
    array.Add(2);
    array.Freeze();
    EXPECT_EQ(array.UpperBound(), 1);
    array.Add(3);
    EXPECT_EQ(Entries(array), (std::vector<int32_t>{1, 2, 3}));
    CArrayOfLong empty;
    empty.Freeze();
    EXPECT_EQ(empty.UpperBound(), -1);
}

TEST(CStringPack, IndicesAreStableAndCaseSensitive) {
    CStringPack pack;
    int16_t a = pack.PutString("Gleis");
    EXPECT_EQ(a, 1);
    EXPECT_EQ(pack.PutString("Gleis"), a);
    int16_t b = pack.PutString("gleis");
    EXPECT_NE(a, b);
    EXPECT_EQ(pack.GetString(a), "Gleis");
    EXPECT_EQ(pack.GetString(b), "gleis");
    EXPECT_EQ(pack.GetIndex("GLEIS"), 0);
    EXPECT_EQ(pack.GetIndex("gleis"), b);
    EXPECT_EQ(pack.GetString(0), "? ? ?");
    EXPECT_EQ(pack.GetString(3), "? ? ?");
    EXPECT_EQ(pack.PutString(""), 3);
}

TEST(CStringPack, GrowsPastItsFirstTwentyAndOverflowsAt32767) {
    CStringPack pack;
    for (int i = 1; i <= CStringPack::kMaxTexts; ++i)
        ASSERT_EQ(pack.PutString("t" + std::to_string(i)), i);
    EXPECT_EQ(pack.GetString(21), "t21");
    EXPECT_EQ(pack.PutString("t5"), 5);
    try {
        pack.PutString("one too many");
        FAIL();
    } catch (const CError& e) {
        EXPECT_EQ(e.Number(), 6);
        EXPECT_NE(e.Description().find("Überlauf: mehr als 32767 verschiedene"), std::string::npos);
    }
    EXPECT_EQ(pack.Count(), CStringPack::kMaxTexts);
    // Only a process that holds no node any more may start a pack afresh; whoever caches its
    // indices sees that they went stale.
    uint32_t generation = pack.Generation();
    pack.Reset();
    EXPECT_EQ(pack.Count(), 0);
    EXPECT_EQ(pack.GetIndex("t5"), 0);
    EXPECT_EQ(pack.PutString("neu"), 1);
    EXPECT_NE(pack.Generation(), generation);
}

TEST(CDictionary, KeepsInsertionOrder) {
    CDictionary dictionary;
    dictionary.Add(5, "a");
    dictionary.Add(2, "b");
    dictionary.Add(9, "c");
    ASSERT_TRUE(dictionary.Delete(2));
    EXPECT_FALSE(dictionary.Delete(2));
    ASSERT_EQ(dictionary.Count(), 2);
    EXPECT_EQ(dictionary.Entries()[0].key, 5);
    EXPECT_EQ(dictionary.Entries()[1].value, "c");
    EXPECT_EQ(*dictionary.Item(9), "c");
    EXPECT_EQ(dictionary.Item(4), std::nullopt);
}

} // namespace
