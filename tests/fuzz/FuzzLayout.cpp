// libFuzzer target: a layout loaded from memory must save, load again and save to the same
// bytes (LayoutRoundTrip). A broken promise aborts, so that libFuzzer keeps the input.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "LayoutRoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string fault =
        kavrin::test::RoundTripFault(std::string_view(reinterpret_cast<const char*>(data), size));
    kavrin::test::ForgetPackedTexts();
    if (!fault.empty()) {
        std::fprintf(stderr, "\n==== Kavrin-Fehler ====\n%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
