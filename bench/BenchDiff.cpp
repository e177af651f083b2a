// Compares two layouts as "kavrin-cli diff" does and reports the time against the time of
// loading both, and the peak memory of the comparison against the memory of the two layouts.
#include <chrono>
#include <fstream>
#include <iostream>
#include <string>

#include "compare/CLayoutDiff.h"
#include "document/CAnlage.h"
#include "document/CRecordingUserInterface.h"

namespace {

// A line of /proc/self/status in kB ("VmRSS", "VmHWM").
long StatusKb(const std::string& key) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(key + ":", 0) == 0)
            return std::stol(line.substr(key.size() + 1));
    return -1;
}

// Sets the peak (VmHWM) back to the present size, so that the next peak is the comparison's own.
void ResetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

double Seconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "Aufruf: kavrin-bench-diff ALT.anl3 NEU.anl3\n";
        return 2;
    }
    kavrin::CRecordingUserInterface ui;
    kavrin::SetUI(&ui);
    const long before = StatusKb("VmRSS");
    auto start = std::chrono::steady_clock::now();
    kavrin::CAnlage alt;
    kavrin::CAnlage neu;
    if (!alt.Load(argv[1]) || !neu.Load(argv[2])) {
        std::cerr << "Eine der Anlagen wurde nicht geladen.\n";
        return 1;
    }
    const double load = Seconds(start);
    const long loaded = StatusKb("VmRSS");
    ResetPeak();
    start = std::chrono::steady_clock::now();
    kavrin::CLayoutDiff diff(alt, neu);
    const double compare = Seconds(start);
    const long peak = StatusKb("VmHWM");
    std::cout << "Eintraege:                  " << diff.Entries().size() << '\n'
              << "Laden beider Anlagen:       " << load << " s\n"
              << "Vergleich:                  " << compare << " s (" << compare / load
              << " x Laden, Ziel <= 2)\n"
              << "Speicher beider Anlagen:    " << (loaded - before) / 1024 << " MB (Prozess "
              << loaded / 1024 << " MB)\n"
              << "Spitze beim Vergleich:      " << peak / 1024 << " MB (+"
              << 100.0 * static_cast<double>(peak - loaded) / static_cast<double>(loaded - before)
              << " % der Anlagen, Ziel <= 10 %)\n";
    kavrin::SetUI(nullptr);
    return 0;
}
