#include <gtest/gtest.h>

#include <filesystem>

#include "LayoutRoundTrip.h"
#include "TestSupport.h"
#include "document/CAnlage.h"
#include "document/CXmlWriter.h"

using namespace kavrin;

namespace {

// Every input that once broke the fuzzer's round trip (load, save, load the saved text, save
// again to the same bytes), and the real layouts, keep the promise.
TEST(FuzzRegressions, EveryKeptInputAndEverySampleSurvivesTheRoundTrip) {
    int inputs = 0;
    for (const char* folder : {KAVRIN_FUZZ_REGRESSIONS_DIR, KAVRIN_SAMPLES_DIR, KAVRIN_EXAMPLES_DIR})
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (!entry.is_regular_file() || entry.path().extension() != ".anl3")
                continue;
            ++inputs;
            EXPECT_EQ(test::RoundTripFault(test::ReadFile(entry.path().string())), "") << entry.path();
        }
    EXPECT_GE(inputs, 15);
}

// A number not read whole ("630abc" read as 630) gets a hint and is saved exactly as it stood;
// the round trip alone would let a hinted change pass.
TEST(FuzzRegressions, NumbersNotReadWholeAreNamedAndSavedAsTheyStood) {
    const std::pair<const char*, const char*> cases[] = {
        {"not-read-whole-length.anl3", "Laenge=\"630abc\""},
        {"not-read-whole-vector.anl3", "x=\"0xyz\""},
        {"not-read-whole-signal-data.anl3", "SignalData=\"-65537\""},
    };
    for (const auto& [file, attribute] : cases) {
        test::RecordingScope scope;
        CAnlage anlage;
        ASSERT_TRUE(anlage.LoadFromMemory(
            test::ReadFile(std::string(KAVRIN_FUZZ_REGRESSIONS_DIR) + "/" + file), file));
        int named = 0;
        for (const std::string& hint : scope.ui.parseLog.Hints())
            named += hint.find("nicht ganz als Zahl") != std::string::npos ? 1 : 0;
        EXPECT_EQ(named, 1) << file;
        CXmlWriter writer;
        ASSERT_TRUE(anlage.WriteDocument(writer));
        EXPECT_NE(writer.Result().find(attribute), std::string::npos) << file;
    }
}

} // namespace
