#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <memory>
#include <pugixml.hpp>
#include <sstream>

#include "TestSupport.h"
#include "compare/CDiffReport.h"
#include "compare/CLayoutDiff.h"
#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "document/NodeTree.h"
#include "edit/CEditHistory.h"
#include "edit/CKeyIdRenumbering.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/LayoutLookup.h"

using namespace kavrin;

namespace {

constexpr const char* kSample = "Tutorial-Ampelkreuzung-3-rechtsabbieger.anl3";

std::unique_ptr<CAnlage> LoadText(const std::string& text, const std::string& name = "Test.anl3") {
    auto anlage = std::make_unique<CAnlage>();
    EXPECT_TRUE(anlage->LoadFromMemory(text, name));
    return anlage;
}

// The sample's text after an edit of its DOM (pugixml keeps everything else as it was).
std::string EditedSample(const std::string& sample, const std::function<void(pugi::xml_document&)>& edit) {
    pugi::xml_document document;
    EXPECT_TRUE(document.load_file(test::SamplePath(sample).c_str(),
                                   pugi::parse_default & ~pugi::parse_wconv_attribute));
    edit(document);
    std::ostringstream out;
    document.save(out, "", pugi::format_raw);
    return out.str();
}

std::string SampleText(const std::string& sample) {
    return test::ReadFile(test::SamplePath(sample));
}

std::string Saved(CAnlage& anlage) {
    CXmlWriter writer;
    EXPECT_TRUE(anlage.WriteDocument(writer));
    return writer.Result();
}

long Total(const CLayoutDiff& diff) {
    return static_cast<long>(diff.Entries().size());
}

// Every sample equals itself and its own load + save, whose numbers are written anew.
TEST(LayoutDiff, SampleEqualsItselfAndItsLoadAndSave) {
    test::RecordingScope scope;
    for (const auto& file : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (file.path().extension() != ".anl3")
            continue;
        SCOPED_TRACE(file.path().filename().string());
        auto alt = LoadText(test::ReadFile(file.path().string()));
        auto same = LoadText(test::ReadFile(file.path().string()));
        auto saved = LoadText(Saved(*alt));
        EXPECT_TRUE(CLayoutDiff(*alt, *same).Equal());
        CLayoutDiff diff(*alt, *saved);
        EXPECT_TRUE(diff.Equal()) << CDiffReport(diff).Details();
    }
}

// Move, turn and an attribute of objects edited in the tree: each found once with its values.
TEST(LayoutDiff, MoveTurnAndAttributeFoundOnceWithTheirValues) {
    test::RecordingScope scope;
    auto alt = LoadText(SampleText(kSample));
    auto neu = LoadText(SampleText(kSample));
    CNodeGleis* track = FindGleis(*neu, 3, 40);
    ASSERT_NE(track, nullptr);
    track->MovePos(300, 400, 50); // 5 m across, 0.5 m up
    CNodeImmobilie* building = nullptr;
    ForEachNode(*neu->RootNode(), [&building](const INode& node, int) {
        if (auto* found = dynamic_cast<const CNodeImmobilie*>(&node); found && !building)
            building = const_cast<CNodeImmobilie*>(found);
    });
    ASSERT_NE(building, nullptr);
    const CVector place = building->DreiBein().Pos();
    building->RotateFrame(-30, place.X, place.Y);
    SetAttributeText(*building, "Smoke", "7");

    CLayoutDiff diff(*alt, *neu);
    ASSERT_EQ(Total(diff), 3) << CDiffReport(diff).Details();
    const auto& entries = diff.Entries();
    EXPECT_EQ(entries[0].kind, DiffKind::Gleise);
    EXPECT_EQ(entries[0].change, DiffChange::Verschoben);
    EXPECT_NEAR(entries[0].distance, 5.0, 1e-6);
    EXPECT_NEAR(entries[0].height, 0.5, 1e-6);
    EXPECT_EQ(entries[0].object, "Gleis 40 [Strasse]");
    EXPECT_EQ(entries[1].kind, DiffKind::Immobilien);
    EXPECT_EQ(entries[1].change, DiffChange::Gedreht);
    EXPECT_NEAR(entries[1].angle, -30.0, 1e-4);
    EXPECT_EQ(entries[2].change, DiffChange::Geaendert);
    ASSERT_EQ(entries[2].values.size(), 1u);
    EXPECT_EQ(entries[2].values[0].name, "Smoke");
    EXPECT_EQ(entries[2].values[0].oldText, "0");
    EXPECT_EQ(entries[2].values[0].newText, "7");
    EXPECT_EQ(diff.Count(DiffKind::Gleise, DiffChange::Verschoben), 1);
    EXPECT_EQ(diff.Count(DiffKind::Immobilien), 2);
}

struct KindCase {
    const char* xpath; // the first node it finds is removed
    DiffKind kind;
};

// Removing one object of a kind from a copy: the copy lacks exactly that object, and compared the
// other way round it is the one object added.
TEST(LayoutDiff, EveryKindRemovedAndAddedExactlyOnce) {
    test::RecordingScope scope;
    const KindCase cases[] = {
        // A track with no signal or contact that no collector lists.
        {"//Gleissystem/Gleis[not(*[self::Kontakt or self::Meldung])][not(@GleisID = "
         "//Kollektor/Gleis/@gleisID)]",
         DiffKind::Gleise},
        {"//Meldung", DiffKind::Signale},
        {"//Kontakt", DiffKind::Kontakte},
        {"//Immobile[not(@kollektorID) or @kollektorID='0'][not(BeweglichesTeil)]", DiffKind::Immobilien},
        {"//Goods/Good", DiffKind::Gueter},
        {"//Zugverband", DiffKind::Zuege},
        {"//Kammera[@name!='Leer']", DiffKind::Kameras},
        {"/sutrackp/Kollektor", DiffKind::Kollektoren},
        {"/sutrackp/Weather", DiffKind::Sonstiges},
    };
    // The sample has no goods: two are put in, one of which the removal takes out again.
    const std::string full = EditedSample(kSample, [](pugi::xml_document& document) {
        pugi::xml_node goods = document.select_node("//Goods").node();
        for (int i = 0; i < 2; ++i) {
            pugi::xml_node good = goods.append_child("Good");
            good.append_attribute("gsbname") = i ? "\\Gueter\\Kiste.3dm" : "\\Gueter\\Fass.3dm";
            pugi::xml_node frame = good.append_child("Dreibein");
            for (const char* name : {"Pos", "Dir", "Nor", "Bin"}) {
                pugi::xml_node vector = frame.append_child("Vektor");
                vector.append_attribute("x") = std::string(name) == "Dir" ? 1 : 100 * i;
                vector.append_attribute("y") = std::string(name) == "Nor" ? 1 : 0;
                vector.append_attribute("z") = std::string(name) == "Bin" ? 1 : 0;
                vector.text() = name;
            }
        }
    });
    auto whole = LoadText(full);
    for (const KindCase& kindCase : cases) {
        SCOPED_TRACE(kindCase.xpath);
        pugi::xml_document document;
        ASSERT_TRUE(document.load_string(full.c_str(), pugi::parse_default & ~pugi::parse_wconv_attribute));
        pugi::xml_node victim = document.select_node(kindCase.xpath).node();
        ASSERT_TRUE(victim);
        victim.parent().remove_child(victim);
        std::ostringstream out;
        document.save(out, "", pugi::format_raw);
        auto part = LoadText(out.str());

        CLayoutDiff removed(*whole, *part);
        ASSERT_EQ(Total(removed), 1) << CDiffReport(removed).Details();
        EXPECT_EQ(removed.Entries()[0].kind, kindCase.kind);
        EXPECT_EQ(removed.Entries()[0].change, DiffChange::Entfernt);
        CLayoutDiff added(*part, *whole);
        ASSERT_EQ(Total(added), 1) << CDiffReport(added).Details();
        EXPECT_EQ(added.Entries()[0].change, DiffChange::Hinzugefuegt);
        EXPECT_EQ(added.Entries()[0].object, removed.Entries()[0].object);
    }
}

// A cut connection is told once, at one of its two tracks; a resized terrain names its grid.
TEST(LayoutDiff, ConnectionCutAndTerrainResize) {
    test::RecordingScope scope;
    auto alt = LoadText(SampleText(kSample));
    std::string first, second;
    auto neu = LoadText(EditedSample(kSample, [&](pugi::xml_document& document) {
        pugi::xml_node record = document.select_node("//Gleisverbindung").node();
        first = record.attribute("GleisID1").value();
        second = record.attribute("GleisID2").value();
        record.parent().remove_child(record);
        pugi::xml_node terrain = document.select_node("//Schandlaft").node();
        terrain.attribute("extX").set_value(terrain.attribute("extX").as_int() * 2);
    }));
    CLayoutDiff diff(*alt, *neu);
    ASSERT_EQ(Total(diff), 2) << CDiffReport(diff).Details();
    const CDiffEntry& cut = diff.Entries()[0];
    EXPECT_EQ(cut.kind, DiffKind::Gleise);
    ASSERT_EQ(cut.values.size(), 1u);
    EXPECT_EQ(cut.values[0].name.rfind("Verbindung ", 0), 0u);
    EXPECT_TRUE(cut.values[0].newText.empty());
    EXPECT_NE(
        cut.values[0].oldText.find(cut.object.find(" " + first + " ") != std::string::npos ? second : first),
        std::string::npos);
    const CDiffEntry& terrain = diff.Entries()[1];
    EXPECT_EQ(terrain.kind, DiffKind::Gelaende);
    ASSERT_EQ(terrain.values.size(), 1u);
    EXPECT_EQ(terrain.values[0].name, "extX");
    EXPECT_EQ(std::stoi(terrain.values[0].newText), 2 * std::stoi(terrain.values[0].oldText));
}

// Signals numbered 101 ... and renumbered 1, 2, 3 ...: each is the same signal with a new key
// id (and the contacts that switch them name the new ids), nothing added or removed.
TEST(LayoutDiff, RenumberedKeyIdsAreChangedIdentities) {
    test::RecordingScope scope;
    auto spread = [](pugi::xml_document& document) {
        for (auto found : document.select_nodes("//Meldung")) {
            pugi::xml_attribute key = found.node().attribute("Key_Id");
            key.set_value(key.as_int() + 100);
        }
    };
    auto alt = LoadText(EditedSample(kSample, spread));
    auto neu = LoadText(EditedSample(kSample, spread));
    CEditHistory history(*neu);
    CKeyIdRenumbering renumbering(*neu);
    ASSERT_GT(renumbering.ChangedCount(), 0);
    ASSERT_TRUE(renumbering.Run(history));
    CLayoutDiff diff(*alt, *neu);
    EXPECT_EQ(diff.Count(DiffKind::Signale, DiffChange::Hinzugefuegt), 0);
    EXPECT_EQ(diff.Count(DiffKind::Signale, DiffChange::Entfernt), 0);
    long renumbered = 0;
    for (const CDiffEntry& entry : diff.Entries()) {
        if (entry.kind != DiffKind::Signale)
            continue;
        for (const CDiffValue& value : entry.values)
            if (value.name == "Key_Id") {
                ++renumbered;
                EXPECT_GT(std::stoi(value.oldText), 100);
                EXPECT_LT(std::stoi(value.newText), 100);
            }
    }
    EXPECT_EQ(renumbered, diff.Count(DiffKind::Signale, DiffChange::Geaendert));
    EXPECT_EQ(renumbered, 11);
}

// The JSON summary carries every kind and change with the counts of the comparison.
TEST(LayoutDiff, ReportsCarryTheCounts) {
    test::RecordingScope scope;
    auto alt = LoadText(SampleText("Tutorial-Ampelkreuzung-2.anl3"));
    auto neu = LoadText(SampleText(kSample));
    CLayoutDiff diff(*alt, *neu);
    CDiffReport report(diff);
    const std::string json = report.Json(true);
    for (int k = 0; k < kDiffKindCount; ++k) {
        auto kind = static_cast<DiffKind>(k);
        std::string counts = "\"" + std::string(KindKey(kind)) + "\": {";
        for (int c = 0; c < kDiffChangeCount; ++c) {
            auto change = static_cast<DiffChange>(c);
            counts += (c ? ", \"" : "\"") + std::string(ChangeKey(change)) +
                      "\": " + std::to_string(diff.Count(kind, change));
        }
        EXPECT_NE(json.find(counts + "}"), std::string::npos) << counts;
    }
    size_t listed = 0;
    for (size_t at = json.find("{\"art\": "); at != std::string::npos; at = json.find("{\"art\": ", at + 1))
        ++listed;
    EXPECT_EQ(listed, diff.Entries().size());
    EXPECT_NE(report.Summary().find("Signale: 2 hinzugefügt, 9 geändert"), std::string::npos)
        << report.Summary();
}

} // namespace
