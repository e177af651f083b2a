#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <regex>

#include "EditLayouts.h"
#include "core/CStringPack.h"
#include "edit/CAttributeChange.h"
#include "edit/CChildChange.h"
#include "edit/CConnectionChange.h"
#include "edit/CEditHistory.h"
#include "edit/CSelectionEdit.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPlanObjects.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

using namespace kavrin;

namespace {

class Undo : public test::SceneryLayoutFixture {
protected:
    std::string SaveAs(const std::string& name) {
        std::string out = dir.File(name);
        EXPECT_TRUE(anlage.Save(out));
        return test::ReadFile(out);
    }
    // The layout's left half (what a rubber band over it takes).
    void SelectLeftHalf() {
        CRect layout = FindTerrain(anlage)->Rect();
        layout.Normalize();
        layout.Right = (layout.Left + layout.Right) / 2;
        CPlanObjects(anlage, options).SelectInRect(selection, layout, 2, CPlanObjects::How::Replace);
    }

    CViewOptions options;
    CSelection selection;
};

std::string Replaced(const std::string& text, const std::string& pattern, const std::string& format) {
    std::string result = std::regex_replace(text, std::regex(pattern), format);
    EXPECT_NE(result, text) << pattern;
    return result;
}

// Every edit undone leaves the layout as it was, to the byte, whatever the file held: every
// sample, and copies whose frames are kept as read (a frame with an attribute of its own,
// vectors with one, vectors out of order) or whose ends carry two records.
TEST_F(Undo, EditsUndoneSaveTheSameBytesAsNoEdit) {
    struct Layout {
        std::string name;
        std::string text;
    };
    std::vector<Layout> layouts;
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir()))
        if (entry.path().extension() == ".anl3")
            layouts.push_back({entry.path().filename().string(), test::ReadFile(entry.path().string())});
    ASSERT_EQ(layouts.size(), static_cast<size_t>(test::SampleCount()));
    ASSERT_FALSE(layouts.empty());
    const std::string newer = test::ReadFile(test::SamplePath("Demo-Linien.anl3"));
    const std::string classic = test::ReadFile(test::SamplePath("Tutorial-Ampelkreuzung.anl3"));
    layouts.push_back({"newer frames with an attribute",
                       Replaced(newer, R"(<Frame><Position)", "<Frame Art=\"1\"><Position")});
    layouts.push_back(
        {"classic vectors with an attribute", Replaced(classic, R"(<Vektor x=)", "<Vektor w=\"1\" x=")});
    layouts.push_back(
        {"classic vectors out of order",
         Replaced(classic, R"((<Vektor [^>]*>Pos</Vektor>)(<Vektor [^>]*>Dir</Vektor>))", "$2$1")});
    layouts.push_back(
        {"two records at one end",
         Replaced(
             newer,
             R"re(<Gleisverbindung GleisID1="(\d+)" Anschluss1="(\w+)" GleisID2="(\d+)" Anschluss2="(\w+)"/>)re",
             "$&<Gleisverbindung GleisID1=\"$3\" Anschluss1=\"EndeAbzweig\" GleisID2=\"$1\" "
             "Anschluss2=\"EndeAbzweig\"/>")});
    for (const Layout& layout : layouts) {
        SCOPED_TRACE(layout.name);
        selection.Clear();
        ASSERT_TRUE(Load(layout.text));
        std::string unedited = SaveAs("unedited.anl3");
        ASSERT_TRUE(anlage.Load(path));
        CEditHistory history(anlage);
        CSelectionEdit edit(selection, history);
        SelectLeftHalf();
        ASSERT_GT(selection.Count(), 0);
        ASSERT_TRUE(edit.Move(1234.5, -678.25, 3));
        ASSERT_TRUE(edit.Rotate(33.3, 100, -200));
        size_t cut = edit.CutSelection();
        CPlanObjects(anlage, options).SelectAll(selection, 2);
        ASSERT_TRUE(edit.Rotate(-123.4, 5, 5));
        EXPECT_TRUE(anlage.Changed());
        std::string edited = SaveAs("edited.anl3");
        EXPECT_NE(edited, unedited);
        EXPECT_FALSE(anlage.Changed());
        history.MarkSaved();
        size_t steps = history.Done();
        EXPECT_EQ(steps, cut > 0 ? 4u : 3u);
        while (history.CanUndo())
            ASSERT_TRUE(history.Undo());
        EXPECT_TRUE(anlage.Changed()); // the saved state is the edited one
        EXPECT_EQ(SaveAs("undone.anl3"), unedited);
        // Done again, the edits give the same bytes as the first time.
        while (history.CanRedo())
            ASSERT_TRUE(history.Redo());
        EXPECT_FALSE(anlage.Changed());
        EXPECT_EQ(SaveAs("redone.anl3"), edited);
        history.Undo();
        history.Undo();
        EXPECT_TRUE(history.Redo());
        EXPECT_TRUE(history.Redo());
        EXPECT_EQ(SaveAs("again.anl3"), edited);
    }
}

TEST_F(Undo, ChangedFollowsTheSavedPoint) {
    ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" +
                          test::ClassicTrack(1, 0, 0, 1000) + "</Gleissystem>"));
    CEditHistory history(anlage);
    CSelectionEdit edit(selection, history);
    EXPECT_FALSE(edit.Move(1, 0, 0)); // nothing selected
    CPlanObjects(anlage, options).SelectAll(selection, 2);
    EXPECT_FALSE(edit.Move(0, 0, 0));
    EXPECT_FALSE(edit.Rotate(0, 5, 5));
    EXPECT_FALSE(anlage.Changed());
    EXPECT_TRUE(edit.Move(1, 0, 0));
    EXPECT_EQ(history.UndoName(), "Verschieben");
    EXPECT_TRUE(anlage.Changed());
    EXPECT_TRUE(history.Undo());
    EXPECT_FALSE(anlage.Changed());
    EXPECT_EQ(history.RedoName(), "Verschieben");
    EXPECT_TRUE(history.Redo());
    Save();
    history.MarkSaved();
    EXPECT_FALSE(anlage.Changed());
    EXPECT_TRUE(history.Undo());
    EXPECT_TRUE(anlage.Changed());
    // A new edit after an undo drops the step that was saved: no state is the saved one now.
    EXPECT_TRUE(edit.Rotate(10, 0, 0));
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.Count(), 1u);
    EXPECT_TRUE(history.Undo());
    EXPECT_TRUE(anlage.Changed());
    EXPECT_FALSE(history.Undo());
}

// A layout that the load itself repaired stays changed until it is saved, undo or not.
TEST_F(Undo, LoadRepairStaysChangedUntilSaved) {
    ASSERT_TRUE(LoadInner("<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"1\">" +
                          test::ClassicTrack(1, 0, 0, 1000) + test::Connection(1, "Ende", 9, "Anfang") +
                          "</Gleissystem>"));
    ASSERT_TRUE(anlage.Changed());
    CEditHistory history(anlage);
    CSelectionEdit edit(selection, history);
    CPlanObjects(anlage, options).SelectAll(selection, 2);
    ASSERT_TRUE(edit.Move(5, 5, 0));
    ASSERT_TRUE(history.Undo());
    EXPECT_TRUE(anlage.Changed());
    Save();
    history.MarkSaved();
    EXPECT_FALSE(anlage.Changed());
}

// The other recorded changes deletion and renumbering build on: a child taken out (moved into
// the history, not copied) and put back at its place, a scalar attribute, a record made.
TEST_F(Undo, ChildrenAttributesAndRecordsGoBackExactly) {
    ASSERT_TRUE(Load(test::ReadFile(test::SamplePath("Demo-Linien.anl3"))));
    std::string unedited = SaveAs("unedited.anl3");
    CNodeGleisSys& system = *FindGleisSys(anlage, 3);
    const INode* third = system.SubNodes().Item(2);
    CEditHistory history(anlage);
    auto step = std::make_unique<CEditStep>("Löschen");
    auto taken = CChildChange::TakeOut(system, 2);
    EXPECT_EQ(taken->Held(), third);
    step->Add(std::move(taken));
    CNodeGleis* track = system.FindGleis(5);
    step->Add(CAttributeChange::Set(*track, "GleisID", "4711"));
    step->Add(CAttributeChange::Set(*track, "Neu", "ja"));
    step->Add(CConnectionChange::Join(system, CGleisVerbindung(1, kAnfang, 2, kEnde)));
    history.Record(std::move(step));
    EXPECT_EQ(track->ID(), 4711);
    std::string edited = SaveAs("edited.anl3");
    EXPECT_NE(edited.find("GleisID=\"4711\""), std::string::npos);
    EXPECT_NE(edited.find("Neu=\"ja\""), std::string::npos);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(system.SubNodes().Item(2), third);
    EXPECT_EQ(SaveAs("undone.anl3"), unedited);
    ASSERT_TRUE(history.Redo());
    EXPECT_EQ(SaveAs("redone.anl3"), edited);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(SaveAs("undone2.anl3"), unedited);
}

} // namespace
