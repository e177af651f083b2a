#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <set>

#include "EditLayouts.h"
#include "ReferenceCheck.h"
#include "edit/CDeleteEdit.h"
#include "edit/CEditHistory.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisOrt.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPlanObjects.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

using namespace kavrin;

namespace {

// Each deletion on each sample: the file written afterwards loads without a hint the original
// did not give, nothing in it points nowhere that did not before, and undo gives the original
// bytes back.
class EraseSamples : public test::SceneryLayoutFixture {
protected:
    using Deletion = std::function<bool(CDeleteEdit&)>;

    void Check(const std::string& sample, const char* what, const Deletion& deletion) {
        SCOPED_TRACE(sample + ": " + what);
        selection.Clear();
        ASSERT_TRUE(anlage.Load(test::SamplePath(sample)));
        std::set<std::string> hintsBefore(Hints().begin(), Hints().end());
        std::set<std::string> danglingBefore = test::DanglingReferences(anlage);
        std::string unedited = SaveAs("unedited.anl3");
        CEditHistory history(anlage);
        CDeleteEdit edit(anlage, selection, history);
        if (!deletion(edit))
            return; // the sample has nothing of the kind; ran[] tells whether another had
        ++ran[what];
        ASSERT_EQ(history.Done(), 1u);
        std::set<std::string> dangling = test::DanglingReferences(anlage);
        for (const std::string& reference : dangling)
            EXPECT_TRUE(danglingBefore.count(reference)) << reference;
        std::string deleted = SaveAs("deleted.anl3");
        EXPECT_NE(deleted, unedited);
        selection.Clear();
        ASSERT_TRUE(history.Undo());
        EXPECT_EQ(SaveAs("undone.anl3"), unedited);
        CAnlage reloaded;
        ASSERT_TRUE(reloaded.Load(dir.File("deleted.anl3")));
        for (const std::string& hint : Hints())
            EXPECT_TRUE(hintsBefore.count(hint)) << hint;
        for (const std::string& reference : test::DanglingReferences(reloaded))
            EXPECT_TRUE(danglingBefore.count(reference)) << reference;
    }
    std::string SaveAs(const std::string& name) {
        std::string out = dir.File(name);
        EXPECT_TRUE(anlage.Save(out));
        return test::ReadFile(out);
    }
    static std::vector<std::string> Samples() {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir()))
            if (entry.path().extension() == ".anl3")
                names.push_back(entry.path().filename().string());
        return names;
    }

    CViewOptions options;
    CSelection selection;
    std::map<std::string, int> ran; // deletions done, by kind
};

TEST_F(EraseSamples, EveryDeletionLeavesNoReferenceToWhatWentAndUndoesToTheByte) {
    std::vector<std::string> samples = Samples();
    ASSERT_EQ(samples.size(), static_cast<size_t>(test::SampleCount()));
    ASSERT_FALSE(samples.empty());
    int trainsDeleted = 0, signalsDeleted = 0, contactsDeleted = 0;
    for (const std::string& sample : samples) {
        Check(sample, "westliche Hälfte", [&](CDeleteEdit& edit) {
            CRect layout = FindTerrain(anlage)->Rect();
            layout.Normalize();
            layout.Right = (layout.Left + layout.Right) / 2;
            CPlanObjects(anlage, options).SelectInRect(selection, layout, 2, CPlanObjects::How::Replace);
            return edit.DeleteSelection().done;
        });
        Check(sample, "ein Gleis mit Zug", [&](CDeleteEdit& edit) {
            for (CNodeGleisOrt* place : Nodes<CNodeGleisOrt>())
                if (CNodeGleis* track = FindGleis(anlage, place->GleissystemID(), place->GleisID())) {
                    selection.Add(*track);
                    CDeleteEdit::Result result = edit.DeleteSelection();
                    EXPECT_GE(result.counts.zugverbaende, 1);
                    trainsDeleted += result.counts.zugverbaende;
                    return result.done;
                }
            return false;
        });
        Check(sample, "ein Signal", [&](CDeleteEdit& edit) {
            std::vector<std::pair<std::string, int32_t>> used = CDeleteEdit::SignalsUsed(anlage);
            if (used.empty())
                return false;
            auto fewest = std::min_element(used.begin(), used.end(),
                                           [](const auto& a, const auto& b) { return a.second < b.second; });
            CDeleteEdit::Result result = edit.DeleteSignals({fewest->first});
            EXPECT_EQ(result.counts.signale, fewest->second);
            signalsDeleted += result.counts.signale;
            return result.done;
        });
        Check(sample, "alle Immobilien", [&](CDeleteEdit& edit) {
            for (CNodeImmobilie* immo : Nodes<CNodeImmobilie>())
                selection.Add(*immo);
            int32_t locked = CDeleteEdit::LockedCount(selection);
            CDeleteEdit::Result result = edit.DeleteSelection();
            EXPECT_EQ(result.counts.skipped, locked);
            EXPECT_EQ(Nodes<CNodeImmobilie>().size(), static_cast<size_t>(locked));
            return result.done;
        });
        Check(sample, "alle Kontakte einer Art", [&](CDeleteEdit& edit) {
            std::vector<CNodeKontakt*> contacts = Nodes<CNodeKontakt>();
            if (contacts.empty())
                return false;
            int32_t kind = contacts.front()->SetType();
            for (CNodeGleis* track : Nodes<CNodeGleis>())
                selection.Add(*track);
            CDeleteEdit::Result result = edit.DeleteContacts({kind});
            for (CNodeKontakt* kontakt : Nodes<CNodeKontakt>())
                EXPECT_NE(kontakt->SetType(), kind);
            contactsDeleted += result.counts.kontakte;
            return result.done;
        });
    }
    // Each kind of deletion ran on at least one sample.
    for (const char* what : {"westliche Hälfte", "ein Gleis mit Zug", "ein Signal", "alle Immobilien",
                             "alle Kontakte einer Art"})
        EXPECT_GT(ran[what], 0) << what;
    EXPECT_GT(trainsDeleted, 0);
    EXPECT_GT(signalsDeleted, 0);
    EXPECT_GT(contactsDeleted, 0);
}

} // namespace
