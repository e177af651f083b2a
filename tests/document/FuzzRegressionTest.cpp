#include <gtest/gtest.h>

#include <filesystem>

#include "LayoutRoundTrip.h"
#include "TestSupport.h"

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

} // namespace
