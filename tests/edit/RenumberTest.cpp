#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>

#include "ProcLayouts.h"
#include "edit/CEditHistory.h"
#include "edit/CKeyIdRenumbering.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/LayoutLookup.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

class Renumber : public SceneryLayoutFixture {
protected:
    // The key ids of every track and signal, in document order.
    std::vector<int32_t> KeyIds() const {
        std::vector<int32_t> ids;
        ForEachNode(*anlage.RootNode(), [&](const INode& node, int) {
            if (auto* track = dynamic_cast<const CNodeGleis*>(&node))
                ids.push_back(track->KeyId());
            else if (auto* signal = dynamic_cast<const CNodeMeldung*>(&node))
                ids.push_back(signal->KeyId());
        });
        return ids;
    }
    std::vector<int32_t> ContactSignalData() const {
        std::vector<int32_t> data;
        for (CNodeKontakt* contact : Nodes<CNodeKontakt>())
            data.push_back(contact->SignalData());
        return data;
    }
};

// Every key id becomes its rank among the distinct ids above 0; references follow; undo gives the
// same bytes as before; a second renumbering finds nothing to do.
TEST_F(Renumber, IdsBecomeOneToNAndReferencesFollow) {
    const std::string tracks =
        TrackWith(1, "Key_Id=\"40\" SignalData=\"" + std::to_string(5 * 65536 + 12) + "\"",
                  SignalOf(12, "A") + SignalOf(0, "B") + ContactOf(0, 1, 0, 40) + ContactOf(0, 1, 0, 99)) +
        TrackWith(2, "Key_Id=\"-3\" SignalData=\"700\"",
                  SignalOf(700, "C") + ContactOf(0, 1, 0, 7 * 65536 + 700)) +
        TrackWith(3, "Key_Id=\"12\"", "");
    ASSERT_TRUE(LoadInner(SystemOf(2, tracks)));
    const std::string before = Save();
    CEditHistory history(anlage);
    CKeyIdRenumbering renumbering(anlage);
    ASSERT_EQ(renumbering.Table().size(), 3u);
    EXPECT_EQ(renumbering.ChangedCount(), 3);
    EXPECT_EQ(renumbering.TableText(), "Key-ID alt\tKey-ID neu\n12\t1\n40\t2\n700\t3\n");
    EXPECT_EQ(renumbering.DanglingReferences(), 1); // the contact naming 99
    EXPECT_NE(renumbering.DanglingText().find("1 Kontakt oder Gleis verweist"), std::string::npos);
    ASSERT_TRUE(renumbering.Run(history));
    // Track 1, its signals, track 2 and its signal, track 3 (sharing 12 with a signal).
    EXPECT_EQ(KeyIds(), (std::vector<int32_t>{2, 1, 0, -3, 3, 1}));
    // The contact naming 99 names no object: it stays as it is.
    EXPECT_EQ(ContactSignalData(), (std::vector<int32_t>{2, 99, 7 * 65536 + 3}));
    EXPECT_EQ(FindGleis(anlage, 2, 1)->SignalData(), 5 * 65536 + 1);
    EXPECT_EQ(FindGleis(anlage, 2, 2)->SignalData(), 3);
    EXPECT_EQ(renumbering.ChangedObjects(), 4);
    EXPECT_EQ(renumbering.ChangedReferences(), 4);
    EXPECT_TRUE(anlage.Changed());
    const std::string renumbered = Save();

    CKeyIdRenumbering again(anlage);
    EXPECT_EQ(again.ChangedCount(), 0);
    EXPECT_EQ(again.DanglingReferences(), 1);
    EXPECT_FALSE(again.Run(history));
    EXPECT_EQ(history.Count(), 1u);

    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(Save(), before);
    EXPECT_FALSE(anlage.Changed());
    ASSERT_TRUE(history.Redo());
    EXPECT_EQ(Save(), renumbered);
}

// The samples are numbered without gaps (one is not). Spread apart, each one comes back exactly
// to its own numbers; renumbered and undone, each saves the bytes it saved before.
TEST_F(Renumber, EverySampleSpreadApartComesBackToItsNumbers) {
    int samples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        ++samples;
        const std::string name = entry.path().filename().string();
        const std::string original = ReadFile(entry.path().string());
        ASSERT_TRUE(Load(original)) << name;
        const std::vector<int32_t> ids = KeyIds();
        const std::string saved = Save();

        std::string spread;
        std::regex keyId("Key_Id=\"(-?\\d+)\"");
        auto last = original.cbegin();
        for (std::sregex_iterator it(original.begin(), original.end(), keyId), end; it != end; ++it) {
            int64_t value = std::stoll((*it)[1].str());
            spread.append(last, (*it)[0].first);
            spread += "Key_Id=\"" + std::to_string(value > 0 ? value * 3 + 10 : value) + "\"";
            last = (*it)[0].second;
        }
        spread.append(last, original.cend());

        ASSERT_TRUE(Load(spread)) << name;
        const std::string spreadSaved = Save();
        CEditHistory history(anlage);
        CKeyIdRenumbering renumbering(anlage);
        bool changes = renumbering.ChangedCount() > 0;
        EXPECT_EQ(renumbering.Run(history), changes) << name;
        // The expected numbers: each id's rank among the distinct ones above 0.
        std::vector<int32_t> distinct;
        for (int32_t id : ids)
            if (id > 0)
                distinct.push_back(id);
        std::sort(distinct.begin(), distinct.end());
        distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
        std::vector<int32_t> expected;
        for (int32_t id : ids)
            expected.push_back(
                id > 0 ? static_cast<int32_t>(std::lower_bound(distinct.begin(), distinct.end(), id) -
                                              distinct.begin()) +
                             1
                       : id);
        EXPECT_EQ(KeyIds(), expected) << name;
        if (expected == ids) {
            EXPECT_EQ(Save(), saved) << name;
        }
        if (changes) {
            ASSERT_TRUE(history.Undo()) << name;
            EXPECT_EQ(Save(), spreadSaved) << name;
        }
    }
    EXPECT_EQ(samples, test::SampleCount());
    EXPECT_GT(samples, 0);
}

} // namespace
