// Load and save of one large layout against pugixml's own parse and save of the same file.
// Usage: kavrin-bench-loadsave FILE.anl3 [benchmark options]
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <pugixml.hpp>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "document/CAnlage.h"
#include "document/CRecordingUserInterface.h"
#include "document/XmlParseError.h"

namespace {

std::string gFile;
const unsigned kParseOptions = kavrin::kLayoutParseOptions;

std::string OutputPath() {
    return (std::filesystem::temp_directory_path() / "kavrin-bench-out.anl3").string();
}

void PugiParse(benchmark::State& state) {
    for (auto _ : state) {
        pugi::xml_document document;
        if (!document.load_file(gFile.c_str(), kParseOptions, pugi::encoding_utf8))
            state.SkipWithError("pugixml cannot parse the file");
        benchmark::DoNotOptimize(document.first_child());
    }
}

// The load until the layout is there; closing it again (freeing the tree) is not timed.
void KavrinLoad(benchmark::State& state) {
    kavrin::CRecordingUserInterface ui;
    kavrin::SetUI(&ui);
    for (auto _ : state) {
        auto anlage = std::make_unique<kavrin::CAnlage>();
        if (!anlage->Load(gFile))
            state.SkipWithError("the layout does not load");
        state.PauseTiming();
        anlage.reset();
        state.ResumeTiming();
    }
    kavrin::SetUI(nullptr);
}

void PugiSave(benchmark::State& state) {
    pugi::xml_document document;
    document.load_file(gFile.c_str(), kParseOptions, pugi::encoding_utf8);
    for (auto _ : state)
        if (!document.save_file(OutputPath().c_str(), "", pugi::format_raw | pugi::format_no_declaration))
            state.SkipWithError("pugixml cannot save");
}

void KavrinSave(benchmark::State& state) {
    kavrin::CRecordingUserInterface ui;
    kavrin::SetUI(&ui);
    kavrin::CAnlage anlage;
    if (!anlage.Load(gFile))
        state.SkipWithError("the layout does not load");
    for (auto _ : state)
        if (!anlage.Save(OutputPath()))
            state.SkipWithError("the layout does not save");
    kavrin::SetUI(nullptr);
}

// Peak resident memory of a fresh process that only loads the layout.
void ReportPeakMemoryOfLoad() {
    pid_t child = fork();
    if (child == 0) {
        kavrin::CRecordingUserInterface ui;
        kavrin::SetUI(&ui);
        kavrin::CAnlage anlage;
        _exit(anlage.Load(gFile) ? 0 : 1);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    double fileMb = static_cast<double>(std::filesystem::file_size(gFile)) / (1024.0 * 1024.0);
    double peakMb = static_cast<double>(usage.ru_maxrss) / 1024.0;
    std::printf("file: %.1f MB; peak resident memory during load: %.1f MB = %.2f x file size%s\n", fileMb,
                peakMb, peakMb / fileMb, WEXITSTATUS(status) == 0 ? "" : " (LOAD FAILED)");
}

} // namespace

BENCHMARK(PugiParse)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(KavrinLoad)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(PugiSave)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(KavrinSave)->Unit(benchmark::kMillisecond)->MinTime(2);

int main(int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-') {
        std::cerr << "Aufruf: kavrin-bench-loadsave DATEI.anl3 [benchmark-Optionen]\n";
        return 2;
    }
    gFile = argv[1];
    ReportPeakMemoryOfLoad();
    argv[1] = argv[0];
    int count = argc - 1;
    benchmark::Initialize(&count, argv + 1);
    benchmark::RunSpecifiedBenchmarks();
    std::remove(OutputPath().c_str());
    return 0;
}
