// The object list of a layout and the search of "Suchen", checked against the sample files'
// own text: what the raw XML holds must be counted and found.

#include <gtest/gtest.h>

#include <regex>

#include "TestSupport.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "plan/CLayoutInventory.h"
#include "plan/CObjectSearch.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

long Occurrences(const std::string& text, const std::string& what) {
    long count = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size()))
        ++count;
    return count;
}

// Occurrences inside the track systems only (track-accompanying objects have tracks of their own
// in the collectors).
long InTrackSystems(const std::string& text, const std::string& what) {
    long count = 0;
    for (size_t at = text.find("<Gleissystem "); at != std::string::npos;
         at = text.find("<Gleissystem ", at + 1)) {
        size_t end = text.find("</Gleissystem>", at);
        count += Occurrences(text.substr(at, end == std::string::npos ? std::string::npos : end - at), what);
    }
    return count;
}

const CLayoutInventory::Section* FindSection(const CLayoutInventory& inventory, const std::string& start) {
    for (const auto& section : inventory.Sections())
        if (section.title.rfind(start, 0) == 0)
            return &section;
    return nullptr;
}

long SectionsTotal(const CLayoutInventory& inventory, const std::string& start) {
    long total = 0;
    for (const auto& section : inventory.Sections())
        if (section.title.rfind(start, 0) == 0)
            total += section.Total();
    return total;
}

class InventoryOfSample : public testing::TestWithParam<const char*> {
protected:
    RecordingScope scope;
    CAnlage anlage;
};

} // namespace

TEST_P(InventoryOfSample, CountsWhatTheFileHolds) {
    std::string path = SamplePath(GetParam());
    ASSERT_TRUE(anlage.Load(path));
    std::string raw = ReadFile(path);
    CLayoutInventory inventory(anlage);

    EXPECT_EQ(SectionsTotal(inventory, "Gleise je"), InTrackSystems(raw, "<Gleis "));
    EXPECT_EQ(SectionsTotal(inventory, "Signale je"), InTrackSystems(raw, "<Meldung "));
    EXPECT_EQ(SectionsTotal(inventory, "Kontakte je"), InTrackSystems(raw, "<Kontakt "));
    EXPECT_EQ(SectionsTotal(inventory, "Gebäudesammlung"), Occurrences(raw, "<Immobile "));
    EXPECT_EQ(SectionsTotal(inventory, "Züge"), Occurrences(raw, "<Rollmaterial "));
    const auto* trains = FindSection(inventory, "Züge");
    ASSERT_NE(trains, nullptr);
    EXPECT_EQ(static_cast<long>(trains->rows.size()), Occurrences(raw, "<Zugverband "));
    long switches = InTrackSystems(raw, "clsid=\"C889EADB-") + InTrackSystems(raw, "clsid=\"B0818DD8-");
    EXPECT_EQ(SectionsTotal(inventory, "Weichen je"), switches);

    // Every line of the CSV but the heading is one row, and its counts add up to the same.
    std::string csv = inventory.Csv();
    long rows = 0;
    for (const auto& section : inventory.Sections())
        rows += static_cast<long>(section.rows.size());
    EXPECT_EQ(Occurrences(csv, "\r\n"), rows + 1);
    EXPECT_EQ(csv.rfind("Abschnitt;Name;Detail;Anzahl\r\n", 0), 0u);
}

INSTANTIATE_TEST_SUITE_P(Samples, InventoryOfSample,
                         testing::Values("Demo-Linien.anl3", "Demoanlage-Ampel-Grundmodelle.anl3",
                                         "Lua-Testbeispiel.anl3", "Screenshots.anl3",
                                         "Tutorial-Ampelkreuzung.anl3"));

TEST(Inventory, TrainsNameTheTrackTheyStandOn) {
    RecordingScope scope;
    CAnlage anlage;
    ASSERT_TRUE(anlage.Load(SamplePath("Demo-Linien.anl3")));
    CLayoutInventory inventory(anlage);
    const auto* trains = FindSection(inventory, "Züge");
    ASSERT_NE(trains, nullptr);
    ASSERT_FALSE(trains->rows.empty());
    // The first train of the file stands on track 22 of the road system (id 3).
    EXPECT_EQ(trains->rows.front().name, "#Solaris Urbino 12 weiß (v8)");
    EXPECT_EQ(trains->rows.front().detail, "Gleis 22 [Strasse]");
}

TEST(Inventory, TextGroupsDigitsAndCsvQuotes) {
    struct Case {
        long value;
        char thousands;
        const char* text;
    };
    for (const Case& c :
         {Case{0, '.', "0"}, Case{999, '.', "999"}, Case{1000, '.', "1.000"}, Case{1234567, '.', "1.234.567"},
          Case{1234567, 0, "1234567"}, Case{-12345, ',', "-12,345"}})
        EXPECT_EQ(CLayoutInventory::GroupedNumber(c.value, c.thousands), c.text) << c.value;

    // A model name with the separator or a quote is quoted in the CSV.
    RecordingScope scope;
    CAnlage anlage;
    std::string layout = ReadFile(SamplePath("Demo-Linien.anl3"));
    layout = std::regex_replace(layout, std::regex("SBahn_Haltestelle1_SM2"), "Halt;&quot;Nord&quot;",
                                std::regex_constants::format_first_only);
    TempDir dir;
    WriteFile(dir.File("a.anl3"), layout);
    ASSERT_TRUE(anlage.Load(dir.File("a.anl3")));
    EXPECT_NE(CLayoutInventory(anlage).Csv().find(";\"Halt;\"\"Nord\"\"\";;1\r\n"), std::string::npos);
}

namespace {
class Search : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(anlage.Load(SamplePath("Demo-Linien.anl3"))); }
    RecordingScope scope;
    CAnlage anlage;
};
} // namespace

TEST_F(Search, FindsByIdKeyIdNameAndFunction) {
    std::string raw = ReadFile(SamplePath("Demo-Linien.anl3"));
    CObjectSearch search(anlage);
    struct Case {
        const char* query;
        CObjectSearch::Kind kind;
        long expected; // hits of that kind
    };
    const Case cases[] = {
        {"22", CObjectSearch::Kind::Track, Occurrences(raw, "<Gleis GleisID=\"22\" ")},
        {"StationLEFT", CObjectSearch::Kind::Contact, Occurrences(raw, "LuaFn=\"stationLeft(")},
        {"haltestelle1", CObjectSearch::Kind::Building, Occurrences(raw, "SBahn_Haltestelle1_SM2.3dm\"")},
        {"  ", CObjectSearch::Kind::Track, 0},
    };
    for (const Case& c : cases) {
        long found = 0;
        for (const auto& hit : search.Find(c.query))
            found += hit.kind == c.kind;
        EXPECT_EQ(found, c.expected) << c.query;
        EXPECT_GT(c.expected + (std::string(c.query) == "  "), 0) << "the sample lacks " << c.query;
    }
}

TEST_F(Search, HitsLieOnTheLayoutAndTellWhatIsHidden) {
    CObjectSearch search(anlage);
    auto hits = search.Find("22");
    ASSERT_FALSE(hits.empty());
    const auto& track = hits.front();
    EXPECT_EQ(track.text, "Gleis 22 [Strasse]");
    EXPECT_NE(track.node, nullptr);
    EXPECT_FALSE(track.hidden);
    // Inside the layout, which is centred on the origin and smaller than 10 km.
    EXPECT_LT(std::abs(track.x), 1e6);
    EXPECT_LT(std::abs(track.y), 1e6);
    EXPECT_FALSE(track.x == 0 && track.y == 0);

    // Everything below ground is hidden by a height filter whose top is deep down.
    anlage.HoehenFilter().SetTopLine(-100000);
    for (const auto& hit : search.Find("22"))
        EXPECT_TRUE(hit.hidden) << hit.text;
}

TEST_F(Search, StopsAtTheLimitAndIgnoresCaseOfUmlauts) {
    CObjectSearch search(anlage);
    EXPECT_EQ(search.Find("1", 3).size(), 3u);
    EXPECT_TRUE(CObjectSearch::ContainsIgnoringCase("Großes HÄUSCHEN", "häus"));
    EXPECT_TRUE(CObjectSearch::ContainsIgnoringCase("Signal_Ö", "ö"));
    EXPECT_FALSE(CObjectSearch::ContainsIgnoringCase("Haus", "Maus"));
}
